// Every function of every record, on an empty and on a full object, with plain, missing and extreme arguments, on hosts of
// every version, whole and with a service that is missing, comes late or stops working: it answers, raises no more than what
// is documented, and loses no reference.
#include <cmath>
#include <limits>

#include "host/runtime/service.hpp"
#include "plugin/services.hpp"
#include "standin/foundation/log.hpp"
#include "tests/library/bridge_fixture.hpp"
#include "tests/library/member_matrix.hpp"

namespace {

using namespace member_matrix;
using host::Kind;

constexpr double hostVersions[] = {0.0, 2011.4, 2012.0, 2012.2, 2013.0, 2013.03, 2013.04, 2019.01};

// The ends of a number's range, and what is no number; none for other types.
std::vector<Value> extremes(const host::Type& type) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  const auto least = std::numeric_limits<int64_t>::min(), most = std::numeric_limits<int64_t>::max();
  if (type.kind == Kind::Double) {
    return {Value::number(infinite), Value::number(-infinite), Value::number(std::nan("")), Value::number(1e308)};
  }
  if (type.kind == Kind::UInt64) return {Value::unsignedInteger(~uint64_t{0}), Value::unsignedInteger(uint64_t{1} << 63)};
  if (type.kind == Kind::Integer) return {Value::integer(least), Value::integer(most), Value::integer(-1)};
  if (type.kind == Kind::UInt32) return {Value::unsignedInteger(0xFFFFFFFF, Kind::UInt32)};
  if (host::lowerCase(type.name) == "nsrangezkt") {
    return {calls::range(~uint64_t{0}, ~uint64_t{0}), calls::range(0, ~uint64_t{0}), calls::range(1000, 0)};
  }
  if (host::lowerCase(type.name) == "nssizezkt") return {calls::structure("NSSizeZKT", infinite, std::nan(""))};
  return {};
}

// Without them nothing that was taken can be given back.
bool givesBack(std::string_view service) { return service.find("Unlock") != std::string_view::npos; }
// Nobody can tell that a lock which was answered was not made.
bool counts(std::string_view service) {
  return service.find("ock") != std::string_view::npos && service.find("Block") == std::string_view::npos;
}

class FaultMatrix : public bridge_test::BridgeTest {
 protected:
  FaultMatrix() : arguments_(std::make_unique<Arguments>()) {
    settle();
    // Thousands of exceptions would be logged.
    standin_setLogSink([](void*, const char*, size_t) {}, nullptr);
  }
  ~FaultMatrix() override {
    standin_setLogSink(nullptr, nullptr);
    arguments_.reset();
    settle();
    std::printf("%lld calls\n", static_cast<long long>(cases_));
  }

  // One call with the fault that `setFault` makes; `canLose` where the fault itself takes the means to give back away.
  template <class SetFault>
  void callOnce(const Target& target, bool full, std::vector<Value> values, SetFault&& setFault, bool canLose) {
    const host::LiveCounts before = runtime().live();
    {
      const AutoreleasePool pool;
      const Value object = objectFor(target, full, *arguments_);
      setFault();
      forgetServices();
      invoke(target, object, values);
      runtime().faults().clear();
      plugin::hostVersion = 2019.01;
      forgetServices();
      values.clear();
      settle();
    }
    ++cases_;
    if (canLose) bridge_test::dropEverythingSince(before);
    EXPECT_TRUE(canLose || runtime().live() == before) << target.name() << '\n' << runtime().describeLive();
  }

  std::vector<std::vector<Value>> argumentRows(const Target& target, bool withExtremes) const {
    const std::vector<host::Type> types = target.parameters();
    std::vector<Value> plain;
    for (const host::Type& type : types) plain.push_back(arguments_->plain(type));
    std::vector<std::vector<Value>> rows = {plain};
    for (size_t index = 0; withExtremes && index < types.size(); ++index) {
      std::vector<Value> others = extremes(types[index]);
      others.push_back(Arguments::empty(types[index]));
      for (Value& other : others) {
        rows.push_back(plain);
        rows.back()[index] = std::move(other);
      }
    }
    return rows;
  }

  template <class SetFault>
  void callAll(const std::string& what, bool withExtremes, SetFault&& setFault, bool canLose = false) {
    SCOPED_TRACE(what);
    for (const Target& target : allTargets()) {
      for (std::vector<Value>& row : argumentRows(target, withExtremes)) {
        for (const bool full : {false, true}) {
          if (full || target.isInstance()) callOnce(target, full, row, setFault, canLose);
        }
      }
      if (HasFailure()) return;
    }
    if (canLose) forgetWhatWasLost();
  }

  // The arguments may have references that nobody gives back.
  void forgetWhatWasLost() {
    arguments_.reset();
    settle();
    bridge_test::dropEverythingSince(start_);
    arguments_ = std::make_unique<Arguments>();
    settle();
  }

  const host::LiveCounts start_ = runtime().live();
  std::unique_ptr<Arguments> arguments_;
  int64_t cases_ = 0;
};

std::vector<std::string> serviceNames() {
  std::vector<std::string> names;
  for (const host::Service& service : host::services()) names.push_back(service.name);
  for (const char* method :
       {"LenB( s as string ) as integer", "VarType(value As Variant) As Integer", "Operator_Convert() As Ptr",
        "Constructor(bytes as Integer)", "Value(key As Variant) As Variant",
        "Value(key As Variant, Assigns _value As Variant)", "Key(index As Integer) As Variant",
        "GetTrueFolderItem(path As String, pathMode As Integer) As FolderItem",
        "TrueItem(Index as integer) as Folderitem"}) {
    names.push_back(method);
  }
  return names;
}

TEST_F(FaultMatrix, WholeHostsOfEveryVersionWithEveryArgument) {
  for (const double version : hostVersions) {
    callAll("version " + std::to_string(version), true, [version] { plugin::hostVersion = version; });
  }
}

TEST_F(FaultMatrix, EachServiceMissing) {
  for (const std::string& name : serviceNames()) {
    callAll(
        name, true, [&] { runtime().faults().switchOff(name); }, givesBack(name));
    if (HasFailure()) return;
  }
}

TEST_F(FaultMatrix, EachServiceMissingUntilALaterLookup) {
  for (const std::string& name : serviceNames()) {
    for (const int64_t lookup : {2, 3}) {
      callAll(
          name + " from look-up " + std::to_string(lookup), false, [&] { runtime().faults().missingUntil(name, lookup); },
          givesBack(name));
    }
    if (HasFailure()) return;
  }
}

TEST_F(FaultMatrix, EachServiceThatStopsWorking) {
  for (const host::Service& service : host::services()) {
    if (counts(service.name)) continue;
    for (const int64_t first : {1, 2, 3}) {
      callAll(std::string(service.name) + " to call " + std::to_string(first), false,
              [&] { runtime().faults().failFromCall(service.name, first); });
    }
    if (HasFailure()) return;
  }
}

}  // namespace
