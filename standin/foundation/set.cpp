// NSSet and NSMutableSet, which keep the order in which their members came.
#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/enumerator.hpp"
#include "standin/foundation/property_list_text.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_object.hpp"

namespace standin::foundation {
namespace {

const ClassDefinition immutableSetClass = defineClass<Dictionary>("__NSSetI", "NSSet");
const ClassDefinition mutableConcreteClass = defineClass<Dictionary>("__NSSetM", "NSMutableSet");

OrderedTable& tableOf(NSObject* set) { return stateOf<Dictionary>(set).table; }

bool isSet(NSObject* object) {
  static const ClassObject* const setClass = findClass("NSSet");
  return isKindOf(object, setClass);
}

// Of equal members the first stays.
void add(NSObject* set, NSObject* member, const char* selector) {
  requireArgument(set, selector, member);
  tableOf(set).set(member, nullptr);
}

void addAll(NSObject* set, std::span<NSObject* const> members, const char* selector) {
  for (NSObject* member : members) add(set, member, selector);
}

Owned<NSArray> newMembers(Dictionary& self) {
  Owned<NSMutableArray> members = newMutableArray();
  self.table.forEach([&](NSObject* member, NSObject*) { append(members, member); });
  return members;
}

NSObject* set(Class self) { return adopt(NSObject::init(NSObject::alloc(self))).autorelease(); }

NSObject* initWithArray(NSObject* self, NSArray* members) {
  addAll(self, arraySpan(members), "initWithArray:");
  return self;
}
NSObject* setWithArray(Class self, NSArray* members) {
  return adopt(initWithArray(NSObject::alloc(self), members)).autorelease();
}

NSObject* setWithObjects(Class self, NSObject* const* members, NSUInteger count) {
  Owned<NSObject> made = adopt(NSObject::alloc(self));
  addAll(made, {members, count}, "setWithObjects:count:");
  return made.autorelease();
}

NSUInteger count(Dictionary& self) { return self.table.count(); }
NSObject* allObjects(Dictionary& self) { return newMembers(self).autorelease(); }
NSEnumerator* objectEnumerator(Dictionary& self) { return newArrayEnumerator(newMembers(self)).autorelease(); }

NSObject* member(Dictionary& self, NSObject* object) {
  const OrderedTable::Entry* entry = self.table.find(object);
  return entry != nullptr ? entry->key : nullptr;
}
BOOL containsObject(Dictionary& self, NSObject* object) { return member(self, object) != nullptr; }

NSObject* anyObject(Dictionary& self) {
  size_t position = 0;
  const OrderedTable::Entry* entry = self.table.next(position);
  return entry != nullptr ? entry->key : nullptr;
}

BOOL isEqualToSet(Dictionary& self, NSSet* other) {
  if (other == nullptr || self.table.count() != tableOf(other).count()) return NO;
  size_t position = 0;
  while (const OrderedTable::Entry* entry = self.table.next(position)) {
    if (tableOf(other).find(entry->key) == nullptr) return NO;
  }
  return YES;
}

BOOL isEqual(NSObject* self, NSObject* other) {
  return self == other || (isSet(other) && isEqualToSet(stateOf<Dictionary>(self), static_cast<NSSet*>(other)));
}

NSUInteger hash(Dictionary& self) { return self.table.count(); }
NSString* description(NSObject* self) { return newString(propertyListText(self)).autorelease(); }

NSObject* copyAs(const ClassDefinition& definition, NSObject* self) {
  Owned<NSObject> copied = create<Dictionary>(definition);
  tableOf(self).forEach([&](NSObject* member, NSObject*) { tableOf(copied).set(member, nullptr); });
  return copied.detach();
}
NSObject* copy(NSObject* self, void*) {
  if (stateOf<Object>(self).isa == immutableSetClass.object()) return retainObject(self);
  return copyAs(immutableSetClass, self);
}
NSObject* mutableCopy(NSObject* self, void*) { return copyAs(mutableConcreteClass, self); }

void addObject(NSObject* self, NSObject* object) { add(self, object, "addObject:"); }
void removeObject(Dictionary& self, NSObject* object) { self.table.remove(object); }
void removeAllObjects(Dictionary& self) { self.table.clear(); }

const ClassDefinition setClass = defineClass<Dictionary>("NSSet", "NSObject")
                                     .allocatesAs(immutableSetClass)
                                     .classMethod<set>("set")
                                     .classMethod<setWithArray>("setWithArray:")
                                     .classMethod<setWithObjects>("setWithObjects:count:")
                                     .method<initWithArray>("initWithArray:")
                                     .method<count>("count")
                                     .method<allObjects>("allObjects")
                                     .method<objectEnumerator>("objectEnumerator")
                                     .method<member>("member:")
                                     .method<containsObject>("containsObject:")
                                     .method<anyObject>("anyObject")
                                     .method<isEqualToSet>("isEqualToSet:")
                                     .method<isEqual>("isEqual:")
                                     .method<hash>("hash")
                                     .method<description>("description")
                                     .method<copy>("copyWithZone:")
                                     .method<mutableCopy>("mutableCopyWithZone:");

const ClassDefinition mutableSetClass = defineClass<Dictionary>("NSMutableSet", "NSSet")
                                            .allocatesAs(mutableConcreteClass)
                                            .method<addObject>("addObject:")
                                            .method<removeObject>("removeObject:")
                                            .method<removeAllObjects>("removeAllObjects");

}  // namespace

Owned<NSSet> newSet(std::span<NSObject* const> members) {
  Owned<NSSet> made = create<Dictionary, NSSet>(immutableSetClass);
  addAll(made, members, "initWithArray:");
  return made;
}

}  // namespace standin::foundation
