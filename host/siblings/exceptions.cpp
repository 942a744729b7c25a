// NSExceptionZKT, and the class methods on NSException through which every library of the family raises it and shares the
// registry of wrappers.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"

namespace siblings {
namespace {

constexpr char exceptionClass[] = "NSExceptionZKT";
constexpr char setterDeclaration[] = "Value(key As Variant, Assigns _value As Variant)";

NSException* exceptionIn(HostObject* self) { return wrapped<NSException>(self); }

HostString* name(HostObject* self, int64_t) { return hostString(NSException::name(exceptionIn(self))); }
HostString* reason(HostObject* self, int64_t) { return hostString(NSException::reason(exceptionIn(self))); }

// Numbers stay numbers; everything else shows its description.
HostObject* variantOf(NSObject* object) {
  if (object == nullptr) return nullptr;
  if (NSObject::isKindOfClass(object, classOf<NSNumber>()) != NO) {
    auto* number = static_cast<NSNumber*>(object);
    const char type = *NSValue::objCType(number);
    return type == 'd' || type == 'f' ? variantOfDouble(NSNumber::doubleValue(number))
                                      : variantOfInteger(NSNumber::longLongValue(number));
  }
  HostString* text = hostString(NSObject::description(object));
  HostObject* variant = variantOfString(text);
  if (text != nullptr) unlockString(text);
  return variant;
}

void drop(HostObject* object) {
  if (object != nullptr) unlockObject(object);
}

HostObject* userInfo(HostObject* self, int64_t) {
  NSDictionary* info = NSException::userInfo(exceptionIn(self));
  HostObject* dictionary = info != nullptr ? newInstance("Dictionary") : nullptr;
  if (dictionary == nullptr) return nullptr;
  using Setter = void (*)(HostObject*, HostObject*, HostObject*);
  const auto set = reinterpret_cast<Setter>(loadObjectMethod(dictionary, setterDeclaration));
  NSArray* keys = NSDictionary::allKeys(info);
  for (NSUInteger index = 0; set != nullptr && index < NSArray::count(keys); ++index) {
    NSObject* key = NSArray::objectAtIndex(keys, index);
    HostObject *hostKey = variantOf(key), *hostValue = variantOf(NSDictionary::objectForKey(info, key));
    set(dictionary, hostKey, hostValue);
    drop(hostKey);
    drop(hostValue);
  }
  return dictionary;
}

// The methods on NSException.
NSObject* getInstancesDictionary(Class, SEL) { return registry(); }

// The exception class is registered when this library starts, so nothing is left to prepare.
void prepareException(Class, SEL) {}

HostObject* newException(Class, SEL, NSException* exception) { return exceptionObject(exception); }

template <class Function>
void addClassMethod(Class metaclass, const char* selector, Function function, const char* types) {
  class_addMethod(metaclass, sel_registerName(selector), reinterpret_cast<IMP>(function), types);
}

}  // namespace

HostObject* exceptionObject(NSException* exception) {
  if (exception == nullptr) return nullptr;
  HostObject* object = newInstance(exceptionClass);
  if (object == nullptr) return nullptr;
  object->word<NSObject*>() = retain(static_cast<NSObject*>(exception)).detach();
  NSString* text = NSException::reason(exception);
  HostString* message = hostString(text != nullptr ? text : NSException::name(exception));
  setStringProperty(object, "Message", message);
  if (message != nullptr) unlockString(message);
  return object;
}

void registerExceptionSupport() {
  const Class metaclass = object_getClass(classOf<NSException>());
  registry();
  addClassMethod(metaclass, "GetInstancesDictionaryZKT", getInstancesDictionary, "@@:");
  addClassMethod(metaclass, "PrepareNSExceptionZKT", prepareException, "v@:");
  addClassMethod(metaclass, "NewNSExceptionZKT:", newException, "^v@:@");
  ClassBuilder::registerWithHost(ClassBuilder(exceptionClass, "RuntimeException")
                                     .wrapper()
                                     .property("Name", "String", name)
                                     .property("Reason", "String", reason)
                                     .property("UserInfo", "Dictionary", userInfo));
}

}  // namespace siblings
