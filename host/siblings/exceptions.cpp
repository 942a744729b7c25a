// NSExceptionZKT, and the class methods on NSException through which every library of the family raises it and shares the
// registry of wrappers.
#include <memory>

#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/dictionaries.hpp"
#include "host/siblings/support.hpp"

namespace siblings {
namespace {

constexpr char exceptionClass[] = "NSExceptionZKT";

NSException* exceptionIn(HostObject* self) { return wrapped<NSException>(self); }

HostString* name(HostObject* self, int64_t) { return hostString(NSException::name(exceptionIn(self))); }
HostString* reason(HostObject* self, int64_t) { return hostString(NSException::reason(exceptionIn(self))); }

HostObject* userInfo(HostObject* self, int64_t) { return hostDictionary(NSException::userInfo(exceptionIn(self))); }

// Of what is not handed on when memory runs short.
struct Unlocking {
  void operator()(HostObject* object) const { unlockObject(object); }
  void operator()(HostString* string) const { unlockString(string); }
};

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
  std::unique_ptr<HostObject, Unlocking> object(newInstance(exceptionClass));
  if (object == nullptr) return nullptr;
  object->word<NSObject*>() = retain(static_cast<NSObject*>(exception)).detach();
  NSString* text = NSException::reason(exception);
  const std::unique_ptr<HostString, Unlocking> message(hostString(text != nullptr ? text : NSException::name(exception)));
  setStringProperty(object.get(), "Message", message.get());
  return object.release();
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
