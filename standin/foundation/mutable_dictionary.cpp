// NSMutableDictionary, and the dictionaries of bare pointers that CoreFoundation makes.
#include "platform/corefoundation.h"
#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::foundation {
namespace {

const ClassDefinition concreteClass = defineClass<Dictionary>("__NSDictionaryM", "NSMutableDictionary");

NSMutableDictionary* dictionary(NSObject* self) { return static_cast<NSMutableDictionary*>(self); }
OrderedTable& tableOf(NSObject* self) { return stateOf<Dictionary>(self).table; }

NSObject* dictionaryWithCapacity(Class self, NSUInteger) {
  return adopt(NSObject::init(NSObject::alloc(self))).autorelease();
}
NSObject* initWithCapacity(NSObject* self, NSUInteger) { return self; }

void setObject(NSObject* self, NSObject* value, NSObject* key) { set(dictionary(self), key, value); }

void removeObject(NSObject* self, NSObject* key) {
  requireArgument(self, "removeObjectForKey:", key);
  remove(dictionary(self), key);
}

void removeAllObjects(NSObject* self) { tableOf(self).clear(); }

void addEntriesFrom(NSObject* self, NSDictionary* entries) { addEntries(dictionary(self), entries); }

const ClassDefinition mutableDictionaryClass = defineClass<Dictionary>("NSMutableDictionary", "NSDictionary")
                                                   .allocatesAs(concreteClass)
                                                   .classMethod<dictionaryWithCapacity>("dictionaryWithCapacity:")
                                                   .method<initWithCapacity>("initWithCapacity:")
                                                   .method<setObject>("setObject:forKey:")
                                                   .method<removeObject>("removeObjectForKey:")
                                                   .method<removeAllObjects>("removeAllObjects")
                                                   .method<addEntriesFrom>("addEntriesFromDictionary:");

// Bare pointers are no objects that another collection could take over, compare or describe.
NSObject* refuse(NSObject* self) {
  raise(NSInvalidArgumentException, std::string(object_getClassName(self)) + ": the dictionary holds bare pointers");
}
NSObject* refuseCopy(NSObject* self, void*) { return refuse(self); }
BOOL isEqual(NSObject* self, NSObject* other) { return self == other; }
NSString* description(Dictionary& self) {
  return newString("<" + std::to_string(self.table.count()) + " bare pointers>").autorelease();
}

const ClassDefinition pointersClass = defineClass<Dictionary>("__NSCFDictionary", "NSMutableDictionary")
                                          .method<refuse>("allKeys")
                                          .method<refuse>("allValues")
                                          .method<refuse>("keyEnumerator")
                                          .method<refuse>("objectEnumerator")
                                          .method<refuseCopy>("copyWithZone:")
                                          .method<refuseCopy>("mutableCopyWithZone:")
                                          .method<isEqual>("isEqual:")
                                          .method<description>("description");

NSObject* bare(const void* pointer) { return static_cast<NSObject*>(const_cast<void*>(pointer)); }

}  // namespace

Owned<NSMutableDictionary> newMutableDictionary() { return create<Dictionary, NSMutableDictionary>(concreteClass); }

Owned<NSMutableDictionary> newMutableDictionary(NSDictionary* entries) {
  Owned<NSMutableDictionary> made = newMutableDictionary();
  addEntries(made, entries);
  return made;
}

}  // namespace standin::foundation

using namespace standin;
using namespace standin::foundation;

extern "C" {

CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex, const CFDictionaryKeyCallBacks* keys,
                                                 const CFDictionaryValueCallBacks* values) {
  if (keys != nullptr || values != nullptr)
    raise(NSInvalidArgumentException, "CFDictionaryCreateMutable: callbacks other than nil");
  return create<Dictionary, NSMutableDictionary>(pointersClass, Elements::pointers).detach();
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key) { return find(dictionary, bare(key)); }

void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value) {
  OrderedTable& table = stateOf<Dictionary>(dictionary).table;
  if (stateOf<Object>(dictionary).isa == pointersClass.object()) return table.set(bare(key), bare(value));
  set(dictionary, bare(key), bare(value));
}

void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, const void* key) { remove(dictionary, bare(key)); }

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary) { return static_cast<CFIndex>(entryCount(dictionary)); }
}
