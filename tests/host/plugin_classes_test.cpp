// Classes that a plug-in declares by records: layout, calls in both directions, exceptions, and records that are wrong.
#include "host/runtime/array.hpp"
#include "host/runtime/record.hpp"
#include "platform/foundation.h"
#include "platform/owned.h"
#include "tests/host/runtime_support.hpp"

namespace host_test {
namespace {

std::string events;

void constructBase(HostObject* self) { self->word<int64_t>(0) = 41, events += "+base "; }
void destroyBase(HostObject*) { events += "-base "; }
void constructDerived(HostObject* self) { self->word<int64_t>(2) = 7, events += "+derived "; }
// A destructor may hold on to its object for a moment.
void destroyDerived(HostObject* self) {
  self->lock();
  self->unlock();
  events += "-derived ";
}

int64_t answer(HostObject* self, int64_t parameter) { return self->word<int64_t>() + parameter; }
void setAnswer(HostObject* self, int64_t parameter, int64_t value) { self->word<int64_t>() = value - parameter; }

HostString* mixed(HostObject*, int64_t a, uint64_t b, double c, bool d, HostString* e, HostObject* variant) {
  return HostString::make(std::to_string(a) + " " + std::to_string(b) + " " + numberText(c) + " " + (d ? "yes" : "no") +
                          " " + utf8Of(e) + " " + (variant != nullptr ? variant->type->name() : "nil"))
      .detach();
}

// Releases the old values and stores new ones, as functions with parameters by reference do.
void swapIn(HostObject*, HostObject** object, HostString** string, int64_t* number) {
  const HostOwned<HostObject> oldObject = adopt(*object);
  const HostOwned<HostString> oldString = adopt(*string);
  *object = HostObject::make(*Runtime::shared().findClass("TestBase")).detach();
  *string = HostString::make("new").detach();
  ++*number;
}

HostString* raisesAndReturns() {
  const HostOwned<HostObject> first = makeException("OutOfBoundsException", "first");
  const HostOwned<HostObject> second = makeException("IOException", "second");
  service<void(HostObject*)>("RuntimeRaiseException")(first);
  service<void(HostObject*)>("RuntimeRaiseException")(second);
  return HostString::make("dropped").detach();
}

void storesAndRaises(HostString** string) {
  *string = HostString::make("stored").detach();
  const HostOwned<HostObject> exception = makeException("IOException", "late");
  service<void(HostObject*)>("RuntimeRaiseException")(exception);
}

void throwsPlatformException() {
  NSObject* none = nullptr;
  NSArray::objectAtIndex(static_cast<NSArray*>(NSArray::arrayWithObjects(classOf<NSArray>(), &none, 0)), 3);
}

HostObject* itself(HostObject* variant) { return retain(variant).detach(); }
int32_t narrow(int32_t a, uint32_t b, float c) { return a - static_cast<int32_t>(b) + static_cast<int32_t>(c); }

template <class Function>
MethodRecord method(const char* declaration, Function function) {
  MethodRecord record;
  record.function = reinterpret_cast<void*>(function);
  record.declaration = declaration;
  return record;
}

PropertyRecord property(const char* name, const char* type, void* getter, void* setter, int64_t parameter) {
  PropertyRecord record;
  record.name = name;
  record.type = type;
  record.getter = getter;
  record.setter = setter;
  record.parameter = parameter;
  return record;
}

void testPluginMain(Resolver resolver) {
  static const PropertyRecord properties[] = {
      property("Handle", "Integer", directField, directField, 0),
      property("Answer", "Integer", reinterpret_cast<void*>(answer), reinterpret_cast<void*>(setAnswer), 1),
      property("Fixed", "Integer", reinterpret_cast<void*>(answer), nullptr, 0),
      property("Caption", "String", directField, directField, 8),
  };
  static const MethodRecord methods[] = {
      method("Mixed(a as Integer, b as UInt64, c as Double, d as Boolean, e as String, f as Variant) as String", mixed),
      method("SwapIn(byref o as TestBase, byref s as String, byref n as Integer)", swapIn),
  };
  static const MethodRecord sharedMethods[] = {
      method("RaisesAndReturns as String", raisesAndReturns),
      method("StoresAndRaises(byref s as String)", storesAndRaises),
      method("ThrowsPlatformException", throwsPlatformException),
      method("Itself(v as Variant) as Variant", itself),
      method("Narrow(a as Int32, b as UInt32, c as Single) as Int32", narrow),
  };
  static const ConstantRecord constants[] = {{"Limit = &h10", {}}};
  static ClassRecord base{.name = "TestBase",
                          .instanceSize = 16,
                          .constructor = constructBase,
                          .destructor = destroyBase,
                          .properties = properties,
                          .propertyCount = 4,
                          .methods = methods,
                          .methodCount = 2,
                          .constants = constants,
                          .constantCount = 1,
                          .sharedMethods = sharedMethods,
                          .sharedMethodCount = 5};
  static ClassRecord derived{.name = "TestDerived",
                             .superclass = "testbase",
                             .instanceSize = 8,
                             .constructor = constructDerived,
                             .destructor = destroyDerived};
  const auto registerClass = reinterpret_cast<void (*)(ClassRecord*)>(resolver("PluginRegisterClass"));
  registerClass(&base);
  registerClass(&derived);
}

class PluginClassesTest : public RuntimeTest {
 protected:
  static void SetUpTestSuite() {
    if (Runtime::shared().findClass("TestBase") == nullptr) Runtime::shared().startPlugin(testPluginMain);
  }
  Value shared(const char* name, std::vector<Value> arguments = {}) {
    return runtime.findClass("TestBase")->findSharedMethods(name).front()->invoke(nullptr, arguments);
  }
};

TEST_F(PluginClassesTest, ConstructorsAndDestructorsRunInOrder) {
  events.clear();
  {
    const HostOwned<HostObject> object = runtime.newInstance("TESTDERIVED");
    EXPECT_EQ(object->word<int64_t>(0), 41);
    EXPECT_EQ(object->word<int64_t>(2), 7);
    const HostOwned<HostObject> second = object;
    EXPECT_EQ(object->references, 2);
  }
  EXPECT_EQ(events, "+base +derived -derived -base ");
  EXPECT_FALSE(runtime.newInstance("TestNobody"));
}

TEST_F(PluginClassesTest, PropertiesReadAndWriteFieldsAndFunctions) {
  const HostOwned<HostObject> object = runtime.newInstance("TestDerived");
  EXPECT_EQ(toInteger(read(object, "handle")), 41);
  EXPECT_EQ(toInteger(read(object, "Answer")), 42);
  object->type->findProperty("Answer")->write(object, Value::string("51"));
  EXPECT_EQ(toInteger(read(object, "Handle")), 50);
  object->type->findProperty("Handle")->write(object, Value::integer(9));
  EXPECT_EQ(toInteger(read(object, "Fixed")), 9);
  EXPECT_TRUE(object->type->findProperty("Fixed")->isReadOnly());
  EXPECT_EQ(object->type->findProperty("Nothing"), nullptr);
  EXPECT_EQ(toInteger(object->type->findConstant("LIMIT")->value), 16);
  object->word<int64_t>() = 0;
}

TEST_F(PluginClassesTest, CallsConvertTheirArguments) {
  const HostOwned<HostObject> object = runtime.newInstance("TestBase");
  const Value result = call(object, "mixed",
                            {Value::string("-3"), Value::integer(4), Value::integer(5), Value::boolean(true),
                             Value::number(1.5), Value::integer(6)});
  EXPECT_EQ(toUtf8(result), "-3 4 5 yes 1.5 Variant");
  EXPECT_EQ(toInteger(shared("Narrow", {Value::integer(-10), Value::integer(5), Value::number(2.5)})), -13);
  EXPECT_EQ(thrownBy([&] {
              call(object, "mixed", {Value::object(object), Value(), Value(), Value(), Value(), Value()});
            }),
            "TypeMismatchException: A TestBase is no Integer.");
  for (const Value& value : {Value(), Value::string("x"), Value::number(0.5), Value::object(object)}) {
    EXPECT_TRUE(equalValues(shared("Itself", {value}), value)) << show(value);
  }
}

TEST_F(PluginClassesTest, ParametersByReferenceComeBack) {
  const HostOwned<HostObject> object = runtime.newInstance("TestBase");
  Value arguments[] = {Value::object(runtime.newInstance("TestDerived")), Value::string("old"), Value::integer(4)};
  object->type->findMethods("SwapIn").front()->invoke(object, arguments);
  EXPECT_EQ(show(arguments[0]) + ", " + show(arguments[1]) + ", " + show(arguments[2]), "a TestBase, String new, Integer 5");
  Value stored[] = {Value()};
  const Method* raising = object->type->findSharedMethods("StoresAndRaises").front();
  EXPECT_EQ(thrownBy([&] { raising->invoke(nullptr, stored); }), "IOException: late");
  EXPECT_EQ(show(stored[0]), "String stored");
}

TEST_F(PluginClassesTest, ExceptionsReachTheCaller) {
  EXPECT_EQ(thrownBy([&] { shared("RaisesAndReturns"); }), "OutOfBoundsException: first");
  EXPECT_EQ(thrownBy([&] { shared("Itself", {Value()}); }), "");
  EXPECT_EQ(thrownBy([&] { shared("ThrowsPlatformException"); }).substr(0, 34), "RuntimeException: NSRangeException");
}

TEST_F(PluginClassesTest, WrongRecordsAreRefusedWithAReason) {
  static int64_t function = 0;
  const MethodRecord twice[] = {method("f as Integer", &function), method("F as integer", &function)};
  const MethodRecord unreadable[] = {method("f(a)", &function)};
  const MethodRecord noFunction[] = {{}};
  const PropertyRecord noGetter[] = {property("p", "Integer", nullptr, nullptr, 0)};
  const struct {
    ClassRecord record;
    const char* reason;
  } cases[] = {
      {{}, "a class record has no name"},
      {{.name = "testbase"}, "the class testbase is there already"},
      {{.name = "TestA", .superclass = "TestNobody"}, "TestA: there is no superclass TestNobody"},
      {{.name = "TestA", .methods = twice, .methodCount = 2}, "TestA: \"F as integer\": the method is declared twice"},
      {{.name = "TestA", .methods = unreadable, .methodCount = 1},
       "TestA: \"f(a)\": \"as\" and a type are missing (at character 4)"},
      {{.name = "TestA", .methods = noFunction, .methodCount = 1}, "TestA: \"\": the method has no function"},
      {{.name = "TestA", .properties = noGetter, .propertyCount = 1}, "TestA: \"p\": the property has no getter"},
  };
  for (const auto& each : cases) {
    try {
      runtime.registerClass(each.record);
      ADD_FAILURE() << each.reason;
    } catch (const PluginError& error) {
      EXPECT_EQ(error.message, each.reason);
    }
  }
  EXPECT_EQ(runtime.findClass("TestA"), nullptr);
}

TEST_F(PluginClassesTest, LibrariesThatCannotBeLoadedSaySo) {
  EXPECT_THROW(runtime.loadPlugin("/nowhere/Nothing.so"), PluginError);
  EXPECT_THROW(runtime.loadPlugin("libm.so.6"), PluginError);
}

}  // namespace
}  // namespace host_test
