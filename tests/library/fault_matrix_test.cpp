// Every function of every record, on empty and on full objects, with plain, missing and extreme arguments, on hosts of every
// version, whole and with a service that is missing, comes late or stops working: it answers what it answers on a whole host
// or less, raises no more than what is documented, and loses no reference.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>

#include "host/runtime/service.hpp"
#include "plugin/entry.hpp"
#include "plugin/services.hpp"
#include "plugin/wrappers.hpp"
#include "standin/foundation/log.hpp"
#include "tests/library/bridge_fixture.hpp"
#include "tests/library/member_matrix.hpp"

namespace {

using namespace member_matrix;

// Around each version at which the library changes its ways.
constexpr double hostVersions[] = {0.0, 2011.4, 2012.0, 2012.2, 2013.0, 2013.03, 2013.04, 2015.04, 2016.0, 2019.01};
constexpr double newestVersion = 2019.01;

// The host's own methods, by the declarations by which the library looks them up.
const std::set<std::string> methodDeclarations = {
    "LenB( s as string ) as integer",
    "VarType(value As Variant) As Integer",
    "Operator_Convert() As Ptr",
    "Constructor(bytes as Integer)",
    "Value(key As Variant) As Variant",
    "Value(key As Variant, Assigns _value As Variant)",
    "Key(index As Integer) As Variant",
    "GetTrueFolderItem(path As String, pathMode As Integer) As FolderItem",
    "TrueItem(Index as integer) as Folderitem",
    "Year as Integer, Month as Integer = 1, Day as Integer = 1, hour as Integer = 0, minute as Integer = 0, "
    "second as Integer = 0",
};

std::vector<std::string> serviceNames() {
  std::vector<std::string> names(methodDeclarations.begin(), methodDeclarations.end());
  for (const host::Service& service : host::services()) names.push_back(service.name);
  return names;
}

// What is asked only where the host lacks something else.
const std::map<std::string, std::string> firstChoices = {
    {"REALGetPropValueString", "VariantToString"},      {"REALGetPropValueInt64", "VariantToInt64"},
    {"REALGetPropValueSingle", "VariantToSingle"},      {"REALGetPropValueDouble", "VariantToDouble"},
    {"PluginNewVariantText", "PluginCopyTextCFString"}, {"memoryBlockGetPtr", "Operator_Convert() As Ptr"},
    {"memoryBlockGetSize", "REALGetPropValueInteger"},
};

// Without them nothing that was taken can be given back.
bool givesBack(std::string_view service) { return service.find("Unlock") != std::string_view::npos; }
// Nobody can tell that a lock which was answered was not made.
bool counts(std::string_view service) {
  return service.find("ock") != std::string_view::npos && service.find("Block") == std::string_view::npos;
}

// Without keys the library asks a dictionary for the value of nil, which the host refuses.
const char* hostRaises(std::string_view fault) {
  return fault.starts_with("Key(index") || fault.starts_with("REALLoadObjectMethod") ? "KeyNotFoundException" : "";
}

std::set<std::string>& declarationsAsked() {
  static std::set<std::string> asked;
  return asked;
}
void* loadObjectMethod(host::HostObject* object, const char* declaration) {
  declarationsAsked().insert(declaration);
  return bridge_test::hostService<void*(host::HostObject*, const char*)>("REALLoadObjectMethod")(object, declaration);
}
void* loadGlobalMethod(void* module, const char* declaration) {
  declarationsAsked().insert(declaration);
  return bridge_test::hostService<void*(void*, const char*)>("REALLoadGlobalMethod")(module, declaration);
}

// The services by which the library's accessors look them up.
std::set<std::string> lookedUpByAccessors() {
#define LOOKUP(accessor, cell, lookup, ...) lookup,
  return {PLUGIN_HOST_SERVICES(LOOKUP) PLUGIN_ARRAY_GETTERS(LOOKUP)};
#undef LOOKUP
}
// Those whose accessors found them since they were last forgotten.
std::set<std::string> found() {
  std::set<std::string> names;
#define FOUND(accessor, cell, lookup, ...) \
  if (plugin::cell != nullptr) names.insert(#accessor);
  PLUGIN_HOST_SERVICES(FOUND)
  PLUGIN_ARRAY_GETTERS(FOUND)
#undef FOUND
  return names;
}
std::set<std::string> accessors() {
#define ACCESSOR(accessor, ...) #accessor,
  return {PLUGIN_HOST_SERVICES(ACCESSOR) PLUGIN_ARRAY_GETTERS(ACCESSOR)};
#undef ACCESSOR
}

std::set<std::string> without(const std::set<std::string>& all, const std::set<std::string>& some) {
  std::set<std::string> rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(), std::inserter(rest, rest.end()));
  return rest;
}

struct Fault {
  std::string name;
  std::function<void()> set = [] {};
  bool canLose = false;  // the means to give back are gone
  bool fromTheStart = false;
};

void refuseToRegister(plugin::ClassRecord*) {}

// While it lives no sibling offers the registry of wrappers.
class NoRegistry {
 public:
  NoRegistry() : before_(replace(reinterpret_cast<IMP>(&none))) { plugin::instances = nullptr; }
  NoRegistry(const NoRegistry&) = delete;
  ~NoRegistry() {
    replace(before_);
    plugin::obtainSharedServices();
  }

 private:
  static NSObject* none(Class, SEL) { return nullptr; }
  static IMP replace(IMP method) {
    return class_replaceMethod(object_getClass(classOf<NSException>()), sel_registerName("GetInstancesDictionaryZKT"),
                               method, "@@:");
  }
  IMP before_;
};

class FaultMatrix : public bridge_test::BridgeTest {
 protected:
  static void SetUpTestSuite() { startSiblings(); }
  FaultMatrix() : arguments_(std::make_unique<Arguments>()) {
    settle();
    // Thousands of exceptions would be logged.
    standin_setLogSink([](void*, const char*, size_t) {}, nullptr);
    // The classes are there for good.
    intercept("PluginRegisterClass", reinterpret_cast<void*>(&refuseToRegister));
  }
  ~FaultMatrix() override {
    standin_setLogSink(nullptr, nullptr);
    arguments_.reset();
    start();
    settle();
    std::printf("%lld calls\n", static_cast<long long>(cases_));
  }

  // As the host does when it loads the library.
  static void start() {
    forgetServices();
    REALPluginMain(plugin::gResolver);
  }

  Outcome callOnce(const Target& target, int contents, std::vector<Value> values, const Fault& fault) {
    const host::LiveCounts before = runtime().live();
    Outcome outcome;
    {
      const AutoreleasePool pool;
      Value object = arguments_->objectFor(target, contents);
      fault.set();
      fault.fromTheStart ? start() : forgetServices();
      if (fault.fromTheStart && contents == 0) object = calls::make(target.type->name());
      Result result = invoke(target, object, values);
      runtime().faults().clear();
      plugin::hostVersion = newestVersion;
      forgetServices();
      outcome = outcomeOf(target, result, values);
      result = {};
      values.clear();
      settle();
    }
    ++cases_;
    EXPECT_TRUE(fault.canLose || runtime().live() == before) << target.name() << '\n' << runtime().describeLive();
    return outcome;
  }

  std::vector<std::vector<Value>> argumentRows(const Target& target, bool withOthers) const {
    std::vector<std::vector<Value>> rows = {arguments_->plainFor(target)};
    const auto parameters = target.parameters();
    for (size_t index = 0; withOthers && index < parameters.size(); ++index) {
      for (Value& other : arguments_->others(parameters[index].type)) {
        rows.push_back(rows[0]);
        rows.back()[index] = std::move(other);
      }
    }
    return rows;
  }

  // Where the means to give back are gone, in a process of its own, which ends with what it lost.
  void callAll(const Fault& fault, bool withOthers) {
    if (!fault.canLose) return tour(fault, withOthers);
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
      tour(fault, withOthers);
      std::fflush(nullptr);
      _exit(HasFailure());
    }
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << fault.name;
    cases_ += static_cast<int64_t>(whole_.size());
  }

  void tour(const Fault& fault, bool withOthers) {
    // A wrapper that is found again and cannot be locked is given without a reference: not to a host that counts.
    std::optional<NoRegistry> unshared;
    if (plugin::instances != nullptr && fault.name.starts_with("REALLockObject")) unshared.emplace();
    for (const Target& target : allTargets()) {
      const auto rows = argumentRows(target, withOthers);
      for (size_t row = 0; row < rows.size(); ++row) {
        for (int contents = target.firstContents(); contents <= target.lastContents(); ++contents) {
          const std::string where = target.name() + ", object " + std::to_string(contents) + ", row " + std::to_string(row);
          const auto [whole, isNew] = whole_.try_emplace(where);
          if (isNew) whole->second = callOnce(target, contents, rows[row], {});
          const Outcome outcome = callOnce(target, contents, rows[row], fault);
          expectNoMore(fault.name + ": " + where, outcome, whole->second, hostRaises(fault.name));
        }
      }
      if (failures() > 20) return;
    }
  }
  // Calls every member on a host of the version that lacks the one service, or none, and adds the accessors that were used.
  void meet(double version, const std::string& missing, std::set<std::string>& met) {
    intercept("REALLoadObjectMethod", reinterpret_cast<void*>(&loadObjectMethod));
    intercept("REALLoadGlobalMethod", reinterpret_cast<void*>(&loadGlobalMethod));
    if (!missing.empty()) switchOff(missing.c_str());
    start();
    plugin::hostVersion = version;
    for (const Target& target : allTargets()) {
      const AutoreleasePool pool;
      for (int contents = target.firstContents(); contents <= target.lastContents(); ++contents) {
        for (std::vector<Value>& values : argumentRows(target, true)) {
          invoke(target, arguments_->objectFor(target, contents), values);
        }
      }
    }
    settle();
    met.merge(found());
    allOn();
    plugin::hostVersion = newestVersion;
  }

  static int failures() { return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count(); }

  std::unique_ptr<Arguments> arguments_;
  std::map<std::string, Outcome> whole_;
  int64_t cases_ = 0;
};

// The tours below prove something only of what they meet.
TEST_F(FaultMatrix, MeetsEveryServiceAndMethodThatMembersReach) {
  std::set<std::string> offered;
  for (const host::Service& service : host::services()) offered.insert(service.name);
  EXPECT_EQ(lookedUpByAccessors(), offered);

  std::set<std::string> met;
  for (const double version : {0.0, 2015.04, newestVersion}) meet(version, "", met);
  for (const auto& [name, first] : firstChoices) meet(newestVersion, first, met);
  const std::set<std::string> unmet = {
      "REALBuildStringWithEncoding", "REALConvertString",  // No member makes host strings of UTF-16 or UTF-32 bytes.
      "REALCallFunctionWithExceptionHandler",              // For 2 GiB of data and more.
      "REALDisposeStringData",                             // No member frees a host string's bytes itself.
  };
  EXPECT_EQ(without(accessors(), met), unmet);
  EXPECT_EQ(without(methodDeclarations, declarationsAsked()),
            std::set<std::string>({"Constructor(bytes as Integer)"}));  // For 2 GiB of data and more.
  EXPECT_EQ(without(declarationsAsked(), methodDeclarations), std::set<std::string>());
}

TEST_F(FaultMatrix, WholeHostsOfEveryVersionWithEveryArgument) {
  for (const double version : hostVersions) {
    callAll({"version " + std::to_string(version), [version] { plugin::hostVersion = version; }}, true);
  }
}

Fault missing(const std::string& name) {
  return {name,
          [name] {
            host::Faults& faults = host::Runtime::shared().faults();
            faults.switchOff(name);
            const auto first = firstChoices.find(name);
            if (first != firstChoices.end()) faults.switchOff(first->second);
          },
          givesBack(name)};
}

TEST_F(FaultMatrix, EachServiceMissing) {
  for (const std::string& name : serviceNames()) {
    callAll(missing(name), true);
    if (failures() > 20) return;
  }
}

TEST_F(FaultMatrix, EachServiceMissingFromTheStart) {
  for (const std::string& name : serviceNames()) {
    Fault fault = missing(name);
    fault.fromTheStart = true;
    callAll(fault, false);
    if (failures() > 20) return;
  }
}

TEST_F(FaultMatrix, EachServiceMissingUntilALaterLookup) {
  for (const std::string& name : serviceNames()) {
    for (const int64_t misses : {1, 2, 3, 5}) {
      callAll({name + " after " + std::to_string(misses) + " look-ups",
               [&] { runtime().faults().missingUntil(name, misses + 1); }, givesBack(name)},
              false);
    }
    if (failures() > 20) return;
  }
}

TEST_F(FaultMatrix, EachServiceThatStopsWorking) {
  for (const host::Service& service : host::services()) {
    if (counts(service.name)) continue;
    for (const int64_t first : {1, 2, 3}) {
      callAll({std::string(service.name) + " to call " + std::to_string(first),
               [&] { runtime().faults().failFromCall(service.name, first); }},
              false);
    }
    if (failures() > 20) return;
  }
}

}  // namespace
