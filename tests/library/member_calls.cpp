// Calling members of host classes as a host program does.
#include "tests/library/member_calls.hpp"

#include <filesystem>

#include "host/runtime/memory_block.hpp"
#include "plugin/entry.hpp"

namespace calls {
namespace {

host::Runtime& runtime() { return host::Runtime::shared(); }

// False where the siblings would meet suites that register classes of their names: in a run of everything in one process.
bool start() {
  const auto& run = *testing::UnitTest::GetInstance();
  if (run.test_to_run_count() == run.total_test_count() || runtime().findClass("NSRangeZKT") != nullptr) return false;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  runtime().loadPlugin(folder / "SiblingsZKT.so");
  if (runtime().findClass("NSAttributedStringZKT") == nullptr) runtime().startPlugin(&REALPluginMain);
  return true;
}

bool startOnce() {
  static const bool started = start();
  return started;
}

Value invoke(const host::Method* method, std::string_view declaration, host::HostObject* object, Arguments& arguments) {
  if (method == nullptr) throw std::invalid_argument("no member " + std::string(declaration));
  return method->invoke(object, arguments);
}

const host::Method* declared(const std::vector<const host::Method*>& overloads, std::string_view declaration) {
  for (const host::Method* overload : overloads) {
    if (overload->text == declaration) return overload;
  }
  return nullptr;
}

const host::HostClass& classOf(const Value& object) {
  if (object.asObject() == nullptr) throw std::invalid_argument("a member of nil");
  return *object.asObject()->type;
}

const host::Property& propertyOf(const Value& object, std::string_view name) {
  const host::Property* found = classOf(object).findProperty(name);
  if (found == nullptr) throw std::invalid_argument("no property " + std::string(name));
  return *found;
}

std::string_view nameIn(std::string_view declaration) { return declaration.substr(0, declaration.find_first_of("( ")); }

// The HTML writer keeps the attributes that it wrote last.
void forgetLastWriting() { htmlOf(text("")); }

}  // namespace

Value make(std::string_view className) { return Value::object(runtime().newInstance(className)); }
Value bytes(std::string_view contents) { return Value::object(host::makeMemoryBlock(contents)); }

Value call(const Value& object, const char* declaration, Arguments& arguments) {
  const auto overloads = classOf(object).findMethods(nameIn(declaration));
  return invoke(declared(overloads, declaration), declaration, object.asObject(), arguments);
}
Value call(const Value& object, const char* declaration, Arguments&& arguments) {
  return call(object, declaration, arguments);
}
Value callShared(const char* className, std::string_view declaration, Arguments& arguments) {
  const auto overloads = runtime().findClass(className)->findSharedMethods(nameIn(declaration));
  return invoke(declared(overloads, declaration), declaration, nullptr, arguments);
}
Value callShared(const char* className, std::string_view declaration, Arguments&& arguments) {
  return callShared(className, declaration, arguments);
}
Value get(const Value& object, std::string_view property) { return propertyOf(object, property).read(object.asObject()); }
void set(const Value& object, std::string_view property, const Value& value) {
  propertyOf(object, property).write(object.asObject(), value);
}

Value text(std::string_view plain, std::string_view className) {
  Value made = make(className);
  EXPECT_TRUE(call(made, "initWithString(text as string) as boolean", {Value::string(plain)}).asBoolean());
  return made;
}
Value html(std::string_view source, std::string_view className) {
  Value made = make(className);
  EXPECT_TRUE(call(made, "initWithHTMLOld(data as string) as boolean", {Value::string(source)}).asBoolean());
  return made;
}
std::string textOf(const Value& object) { return utf8(get(object, "Text")); }
std::string htmlOf(const Value& object) { return utf8(call(object, "htmlString as string")); }
std::string utf8(const Value& string) { return string.isString() ? host::utf8Of(string.asString()) : ""; }

std::string describeRange(const Value& range) {
  if (range.isNil()) return "none";
  return std::to_string(range.asObject()->word<uint64_t>(0)) + "+" + std::to_string(range.asObject()->word<uint64_t>(1));
}

NSObject* handleOf(const Value& object) { return object.asObject()->word<NSObject*>(); }
std::string classNameOf(const Value& object) { return object.asObject() == nullptr ? "" : classOf(object).name(); }

// The registry and the writer's stack, which the first call makes, stay.
void MemberTest::SetUpTestSuite() {
  if (startOnce()) forgetLastWriting();
}

void MemberTest::SetUp() {
  if (!startOnce()) GTEST_SKIP() << "wants a process of its own";
  runtime().faults().clear();
  before_ = runtime().live();
}

void MemberTest::TearDown() {
  if (IsSkipped()) return;
  forgetLastWriting();
  runtime().faults().clear();
  EXPECT_EQ(runtime().live(), before_) << runtime().describeLive();
}

}  // namespace calls
