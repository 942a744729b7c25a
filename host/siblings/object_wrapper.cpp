// ZKTREALobjectWrapper: the platform class whose instances carry a host object.
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"

namespace siblings {
namespace {

constexpr char variableName[] = "hostObject";

Class wrapperClass = nullptr;
ptrdiff_t variableOffset = 0;
// What the superclass does when an instance goes.
void (*inheritedDealloc)(NSObject*, SEL) = nullptr;

HostObject*& hostObjectIn(NSObject* self) {
  return *reinterpret_cast<HostObject**>(reinterpret_cast<std::byte*>(self) + variableOffset);
}

// Autoreleased; it holds a reference to the host object as long as it lives.
NSObject* wrapHostObject(Class self, SEL, HostObject* object) {
  Owned<NSObject> made = adopt(NSObject::init(NSObject::alloc(self)));
  if (object != nullptr) lockObject(object);
  hostObjectIn(made) = object;
  return made.autorelease();
}

// The host object, one reference the caller's.
HostObject* unwrap(NSObject* self, SEL) {
  HostObject* object = hostObjectIn(self);
  if (object != nullptr) lockObject(object);
  return object;
}

void dealloc(NSObject* self, SEL selector) {
  HostObject* object = std::exchange(hostObjectIn(self), nullptr);
  inheritedDealloc(self, selector);
  if (object != nullptr) unlockObject(object);
}

template <class Function>
void addMethod(Class cls, const char* selector, Function function, const char* types) {
  class_addMethod(cls, sel_registerName(selector), reinterpret_cast<IMP>(function), types);
}

}  // namespace

void registerObjectWrapper() {
  wrapperClass = objc_allocateClassPair(classOf<NSObject>(), ZKTREALobjectWrapper::className_, 0);
  if (wrapperClass == nullptr) return;
  class_addIvar(wrapperClass, variableName, sizeof(HostObject*), 3, "^v");
  addMethod(object_getClass(wrapperClass), "wrap:", wrapHostObject, "@@:^v");
  addMethod(wrapperClass, "unwrap", unwrap, "^v@:");
  inheritedDealloc = reinterpret_cast<void (*)(NSObject*, SEL)>(
      class_getMethodImplementation(classOf<NSObject>(), sel_registerName("dealloc")));
  addMethod(wrapperClass, "dealloc", dealloc, "v@:");
  objc_registerClassPair(wrapperClass);
  variableOffset = ivar_getOffset(class_getInstanceVariable(wrapperClass, variableName));
}

}  // namespace siblings
