// NSObject: what every object and every class answers.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/foundation.h"
#include "standin/runtime/class_object.hpp"
#include "standin/runtime/exception.hpp"

namespace standin {
namespace {

ClassObject* classObject(Class cls) { return reinterpret_cast<ClassObject*>(cls); }
ClassObject* isaOf(NSObject* self) { return reinterpret_cast<Object*>(self)->isa; }

NSObject* alloc(Class self) {
  ClassObject* cls = classObject(self);
  if (cls->allocatesAs != nullptr) cls = cls->allocatesAs;
  if (cls->layout.construct == nullptr)
    raise(NSInvalidArgumentException, describeMethod(self, "alloc") + ": abstract class");
  Object* memory = allocate(cls);
  const Object head = *memory;
  try {
    cls->layout.construct(memory);
  } catch (...) {
    *memory = head;
    abandon(memory);
    throw;
  }
  *memory = head;
  return platformObject(*memory);
}

NSObject* allocWithZone(Class self, void*) { return NSObject::alloc(self); }
NSObject* newObject(Class self) { return NSObject::init(NSObject::alloc(self)); }
NSObject* initialised(NSObject* self) { return self; }

void deallocate(NSObject* self) {
  auto* object = reinterpret_cast<Object*>(self);
  ClassObject* cls = object->isa;
  cls->layout.destroy(object);
  object->isa = cls;
  abandon(object);
}

NSObject* retainMethod(NSObject* self) { return retainObject(self); }
void releaseMethod(NSObject* self) { releaseObject(self); }
NSObject* autoreleaseMethod(NSObject* self) { return autoreleaseObject(self); }

NSUInteger retainCount(NSObject* self) {
  const int64_t count = reinterpret_cast<Object*>(self)->references;
  return count < 0 ? UINT64_MAX : static_cast<NSUInteger>(count);
}

Class classOfInstance(NSObject* self) { return reinterpret_cast<Class>(isaOf(self)); }
Class classOfClass(Class self) { return self; }
Class superclassOfInstance(NSObject* self) { return class_getSuperclass(classOfInstance(self)); }
Class superclassOfClass(Class self) { return class_getSuperclass(self); }
NSObject* itself(NSObject* self) { return self; }

BOOL isEqual(NSObject* self, NSObject* other) { return self == other; }
NSUInteger hash(NSObject* self) { return reinterpret_cast<NSUInteger>(self) >> 4; }
BOOL isKind(NSObject* self, Class cls) { return isKindOf(self, classObject(cls)); }
BOOL isMember(NSObject* self, Class cls) { return isaOf(self) == classObject(cls); }

BOOL isSubclass(Class self, Class cls) {
  for (Class step = self; step != nullptr; step = class_getSuperclass(step)) {
    if (step == cls) return YES;
  }
  return NO;
}

BOOL responds(NSObject* self, SEL selector) { return selector != nullptr && findMethod(isaOf(self), selector) != nullptr; }
BOOL instancesRespond(Class self, SEL selector) {
  return selector != nullptr && findMethod(classObject(self), selector) != nullptr;
}

NSString* className(NSObject* self) {
  return NSString::stringWithUTF8String(classOf<NSString>(), object_getClassName(self));
}

NSString* describeInstance(NSObject* self) {
  char text[256];
  std::snprintf(text, sizeof text, "<%.200s: %p>", object_getClassName(self), static_cast<void*>(self));
  return NSString::stringWithUTF8String(classOf<NSString>(), text);
}
NSString* describeClass(Class self) { return NSString::stringWithUTF8String(classOf<NSString>(), class_getName(self)); }

// `copy` and `mutableCopy` are the zone messages with a nil zone, which each class that can be copied answers.
NSObject* copy(NSObject* self) { return NSObject::copyWithZone(self, nullptr); }
NSObject* mutableCopy(NSObject* self) { return NSObject::mutableCopyWithZone(self, nullptr); }

[[maybe_unused]] const ClassDefinition root = defineClass("NSObject", nullptr)
                                                  .classMethod<alloc>("alloc")
                                                  .classMethod<allocWithZone>("allocWithZone:")
                                                  .classMethod<newObject>("new")
                                                  .classMethod<classOfClass>("class")
                                                  .classMethod<superclassOfClass>("superclass")
                                                  .classMethod<isSubclass>("isSubclassOfClass:")
                                                  .classMethod<instancesRespond>("instancesRespondToSelector:")
                                                  .classMethod<describeClass>("description")
                                                  .method<initialised>("init")
                                                  .method<deallocate>("dealloc")
                                                  .method<retainMethod>("retain")
                                                  .method<releaseMethod>("release")
                                                  .method<autoreleaseMethod>("autorelease")
                                                  .method<retainCount>("retainCount")
                                                  .method<classOfInstance>("class")
                                                  .method<superclassOfInstance>("superclass")
                                                  .method<itself>("self")
                                                  .method<isEqual>("isEqual:")
                                                  .method<hash>("hash")
                                                  .method<isKind>("isKindOfClass:")
                                                  .method<isMember>("isMemberOfClass:")
                                                  .method<responds>("respondsToSelector:")
                                                  .method<className>("className")
                                                  .method<describeInstance>("description")
                                                  .method<copy>("copy")
                                                  .method<mutableCopy>("mutableCopy");

}  // namespace
}  // namespace standin
