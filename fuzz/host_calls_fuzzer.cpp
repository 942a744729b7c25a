// Random members called with random live objects through the host: each answers or raises what it may, and when all objects
// are let go of, none is left. With FUZZ_TRACE in the environment it names the members that it calls.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>

#include "fuzz/support/byte_source.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "plugin/entry.hpp"
#include "standin/foundation/log.hpp"
#include "standin/runtime/accounting.hpp"
#include "tests/library/member_matrix.hpp"

namespace {

using calls::Value;
using host::Kind;
using member_matrix::Target;

constexpr int mostCalls = 200;
constexpr NSUInteger mostLength = 20'000;  // of a text; those that have grown longer are let go of

// Members write files where they are told to: in a folder of the fuzzer's own.
void enterOwnFolder() {
  static std::string folder = (std::filesystem::temp_directory_path() / "host_calls.XXXXXX").string();
  fuzz::require(::mkdtemp(folder.data()) != nullptr && ::chdir(folder.c_str()) == 0, "there is no folder to work in");
  std::atexit([] { std::filesystem::remove_all(folder); });
}

bool start() {
  GTEST_FLAG_SET(throw_on_failure, true);
  const auto beside = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  host::Runtime::shared().loadPlugin(beside / "SiblingsZKT.so");
  host::Runtime::shared().startPlugin(&REALPluginMain);
  standin_setLogSink([](void*, const char*, size_t) {}, nullptr);
  enterOwnFolder();
  return true;
}

class Session {
 public:
  explicit Session(fuzz::Bytes bytes) : source_(bytes) {}

  void run() {
    for (int call = 0; call < mostCalls && !source_.atEnd(); ++call) {
      const Target& target = targets()[source_.upTo(static_cast<uint32_t>(targets().size() - 1))];
      Value object = target.isInstance() ? objectOf(target) : Value();
      std::vector<Value> values;
      for (const host::Parameter& parameter : target.parameters()) values.push_back(argument(target, parameter));
      if (traces()) std::fprintf(stderr, "%s\n", target.name().c_str());
      member_matrix::invoke(target, object, values);
      keep(std::move(object));
      for (Value& value : values) keep(std::move(value));
    }
  }

 private:
  static bool traces() {
    static const bool wanted = std::getenv("FUZZ_TRACE") != nullptr;
    return wanted;
  }
  static const std::vector<Target>& targets() {
    static const std::vector<Target> all = member_matrix::allTargets();
    return all;
  }

  uint8_t below(size_t limit) { return static_cast<uint8_t>(source_.upTo(static_cast<uint32_t>(limit - 1))); }

  Value objectOf(const Target& target) {
    const Value* known = findObject(target.type->name());
    return known != nullptr ? *known : arguments_.objectFor(target, below(static_cast<size_t>(target.lastContents()) + 1));
  }

  // One of the kept objects that is of the class, or nil.
  const Value* findObject(const std::string& className) {
    const host::HostClass* type = host::Runtime::shared().findClass(className);
    const size_t first = below(kept_.size());
    for (size_t index = 0; index < kept_.size(); ++index) {
      const Value& value = kept_[(first + index) % kept_.size()];
      if (value.asObject() != nullptr && type != nullptr && value.asObject()->type->isKindOf(type)) return &value;
    }
    return nullptr;
  }

  Value argument(const Target& target, const host::Parameter& parameter) {
    const host::Type& type = parameter.type;
    if (below(8) == 0) return host::emptyValue(type);
    if (type.kind == Kind::Boolean) return Value::boolean(below(2) != 0);
    if (type.kind == Kind::String) return string();
    if (type.kind == Kind::Double || type.kind == Kind::Single) return number(type.kind);
    if (type.kind != Kind::Object) return integer(type.kind);
    const std::string name = host::lowerCase(type.name);
    if (name == "nsrangezkt") return calls::range(position(), position());
    if (name == "memoryblock" && below(2) == 0) return calls::bytes(source_.text(64));
    if (name == "variant") return variant();
    if (name == "dictionary") return dictionary();
    const Value* known = findObject(type.name);
    return known != nullptr ? *known : arguments_.plain(target, parameter);
  }

  // No objects: what became an attribute of itself would rightly live for ever.
  Value dictionary() {
    Value made = Value::object(host::makeDictionary());
    for (int entry = below(4); entry > 0; --entry) {
      host::setDictionaryValue(made.asObject(), string(), below(2) == 0 ? string() : number(Kind::Double));
    }
    return made;
  }

  // No text: one that became an attribute of itself would rightly live for ever.
  Value variant() {
    const Value& value = kept_[below(kept_.size())];
    return below(2) == 0 || isText(value) ? string() : value;
  }

  // Random ones name no file outside.
  Value string() {
    constexpr const char* telling[] = {"NSFont",  "NSColor", "NSLink",          "NSAttachment",
                                       "x:y",     "a",       "file:///nowhere", "utf-8",
                                       "TXT.rtf", "NSRTF",   "NSHTML",          "\xF0\x9F\x98\x80"};
    if (below(2) == 0) return Value::string(telling[below(std::size(telling))]);
    std::string text = source_.text(16);
    std::erase_if(text, [](char c) { return c == '/' || c == '.'; });
    return Value::string(text);
  }

  Value number(Kind kind) {
    constexpr double telling[] = {0, -1, 12, 1e9, 1e308, std::numeric_limits<double>::infinity()};
    const double value = below(4) == 0 ? std::nan("") : telling[below(std::size(telling))];
    return kind == Kind::Single ? Value::single(static_cast<float>(value)) : Value::number(value);
  }

  Value integer(Kind kind) {
    return below(6) == 0 ? Value::integer(source_.number<int64_t>(), kind) : Value::integer(below(16), kind);
  }

  uint64_t position() { return below(10) == 0 ? source_.number<uint64_t>() : below(12); }

  void keep(Value value) {
    if (value.asObject() != nullptr && isSmall(value)) kept_[next_++ % kept_.size()] = std::move(value);
  }
  static bool isText(const Value& value) {
    const std::string name = calls::classNameOf(value);
    return name == "NSAttributedStringZKT" || name == "NSMutableAttributedStringZKT";
  }
  static bool isSmall(const Value& value) {
    return !isText(value) || NSAttributedString::length(calls::handleOf(value)) <= mostLength;
  }

  fuzz::ByteSource source_;
  const member_matrix::Arguments arguments_;
  std::array<Value, 12> kept_;
  size_t next_ = 0;
};

void runSession(fuzz::Bytes bytes) {
  const AutoreleasePool pool;
  Session(bytes).run();
  member_matrix::settle();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  [[maybe_unused]] static const bool started = start();
  static const std::string objects = (runSession({}), standin::liveObjectsAfterDrain(), standin::describeLiveObjects());
  const host::LiveCounts before = host::Runtime::shared().live();
  runSession({bytes, size});
  fuzz::require(host::Runtime::shared().live() == before, "host values are left: " + host::Runtime::shared().describeLive());
  standin::liveObjectsAfterDrain();
  fuzz::require(standin::describeLiveObjects() == objects,
                "there were\n" + objects + "and now there are\n" + standin::describeLiveObjects());
  return 0;
}
