// Attribute dictionaries and attribute sets, and how sets treat the objects in them.
#include "standin/appkit/attributes.hpp"

#include <functional>
#include <unordered_map>
#include <vector>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_object.hpp"

namespace standin::appkit {
namespace {

using foundation::isNumber;
using foundation::isString;
using text::Attribute;
using text::AttributeObject;
using text::AttributeSet;

NSObject* objectOf(AttributeObject object) { return static_cast<NSObject*>(object); }
NSString* stringOf(AttributeObject object) { return static_cast<NSString*>(object); }

AttributeObject retainAttribute(AttributeObject object) { return retainObject(objectOf(object)); }
void releaseAttribute(AttributeObject object) { releaseObject(objectOf(object)); }
AttributeObject copyKey(AttributeObject key) { return NSObject::copyWithZone(objectOf(key), nullptr); }
size_t hashKey(AttributeObject key) { return NSObject::hash(objectOf(key)); }

bool keysEqual(AttributeObject left, AttributeObject right) {
  if (isString(objectOf(left)) && isString(objectOf(right))) return foundation::equal(stringOf(left), stringOf(right));
  return NSObject::isEqual(objectOf(left), objectOf(right)) != NO;
}

// Strings by their units, and before all other keys; those by their addresses.
bool keyBefore(AttributeObject left, AttributeObject right) {
  const bool leftIsString = isString(objectOf(left)), rightIsString = isString(objectOf(right));
  if (!leftIsString || !rightIsString) return leftIsString || (!rightIsString && left < right);
  const text::Text &first = foundation::textOf(stringOf(left)), &second = foundation::textOf(stringOf(right));
  const uint32_t common = std::min(first.size(), second.size());
  for (uint32_t index = 0; index < common; ++index) {
    if (first[index] != second[index]) return first[index] < second[index];
  }
  return first.size() < second.size();
}

// A dictionary of bare pointers would refuse to be copied.
bool copiesToItself(NSObject* object) {
  static const Message<NSObject*(void*)>& copyMessage = NSObject::copyWithZone;
  static ClassObject* const changingDictionaries = reinterpret_cast<ClassObject*>(classOf<NSMutableDictionary>());
  if (isKindOf(object, changingDictionaries)) return false;
  if (!NSObject::respondsToSelector(object, copyMessage.selector())) return false;
  const Owned<NSObject> copy = adopt(copyMessage(object, nullptr));
  return copy == object;
}

// An object whose copy is itself, as all of its class are or none.
bool cannotChange(NSObject* object) {
  static std::unordered_map<Class, bool> known;
  const auto [entry, isNew] = known.try_emplace(object_getClass(object), false);
  if (isNew) entry->second = copiesToItself(object);
  return entry->second;
}

// Of what can change, that of its address: it equals nothing else for good, and thousands of such values may look alike.
size_t hashValue(AttributeObject object) {
  return cannotChange(objectOf(object)) ? NSObject::hash(objectOf(object)) : std::hash<AttributeObject>()(object);
}

// Equal, no matter when and by whom it is asked: objects that can change stay apart, and so do numbers whose types differ,
// since the type is something that programs see.
bool interchangeable(AttributeObject left, AttributeObject right) {
  NSObject *first = objectOf(left), *second = objectOf(right);
  if (!cannotChange(first) || !cannotChange(second) || !NSObject::isEqual(first, second)) return false;
  if (!isNumber(first) && !isNumber(second)) return true;
  return isNumber(first) && isNumber(second) &&
         stateOf<foundation::Number>(first).kind == stateOf<foundation::Number>(second).kind;
}

[[maybe_unused]] const bool installed = [] {
  text::installAttributeFunctions(
      {retainAttribute, releaseAttribute, copyKey, hashKey, hashValue, keysEqual, keyBefore, interchangeable});
  return true;
}();

// Kept for good, and not one of the objects that are counted as alive.
NSDictionary* emptyDictionary() {
  static foundation::Dictionary empty;
  if (empty.isa == nullptr) {
    empty.isa = findClass("__NSDictionaryI");
    empty.references = -1;
  }
  return platformObject<NSDictionary>(empty);
}

}  // namespace

AttributeSet attributeSetOf(NSDictionary* attributes) {
  if (attributes == nullptr) return {};
  auto& dictionary = stateOf<foundation::Dictionary>(attributes);
  if (AttributeSet known = AttributeSet::ofTicket(dictionary.knownAs); !known.empty()) return known;
  std::vector<Attribute> list;
  foundation::forEachEntry(attributes, [&](NSObject* key, NSObject* value) { list.push_back({key, value}); });
  AttributeSet made = AttributeSet::of(list);
  if (foundation::keepsEntries(attributes)) dictionary.knownAs = made.ticket();
  return made;
}

NSDictionary* dictionaryOf(text::AttributeHandle attributes) {
  if (attributes == 0) return emptyDictionary();
  const AttributeSet set(attributes);
  if (AttributeObject made = set.companion()) return static_cast<NSDictionary*>(made);
  std::vector<NSObject*> keys, values;
  for (const Attribute& attribute : set.attributes()) {
    keys.push_back(objectOf(attribute.key));
    values.push_back(objectOf(attribute.value));
  }
  NSDictionary* dictionary = foundation::newDictionary(keys, values).detach();
  stateOf<foundation::Dictionary>(dictionary).knownAs = set.ticket();
  set.setCompanion(dictionary);
  return dictionary;
}

NSObject* attributeIn(text::AttributeHandle attributes, NSString* key) {
  return key != nullptr ? objectOf(AttributeSet(attributes).find(key)) : nullptr;
}

bool equalValues(NSObject* left, NSObject* right) {
  return left == right || (left != nullptr && right != nullptr && NSObject::isEqual(left, right) != NO);
}

// Both are in the order of their keys.
bool equalAttributes(text::AttributeHandle left, text::AttributeHandle right) {
  if (left == right) return true;
  const AttributeSet first(left), second(right);
  const auto own = first.attributes(), others = second.attributes();
  return std::equal(own.begin(), own.end(), others.begin(), others.end(), [](const Attribute& a, const Attribute& b) {
    return keysEqual(a.key, b.key) && equalValues(objectOf(a.value), objectOf(b.value));
  });
}

}  // namespace standin::appkit
