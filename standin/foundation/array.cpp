// NSArray: the class cluster's public class, its immutable class, and what all arrays answer.
#include <algorithm>

#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/enumerator.hpp"
#include "standin/foundation/property_list_text.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_object.hpp"

namespace standin::foundation {
namespace {

const ClassDefinition immutableArrayClass = defineClass<Array>("__NSArrayI", "NSArray");

Array& elementsOf(NSObject* array) { return stateOf<Array>(array); }

bool isArray(NSObject* object) {
  static const ClassObject* const arrayClass = findClass("NSArray");
  return isKindOf(object, arrayClass);
}

void fill(NSObject* array, std::span<NSObject* const> elements, const char* selector) {
  for (NSObject* element : elements) requireArgument(array, selector, element);
  std::vector<NSObject*>& own = elementsOf(array).elements;
  own.assign(elements.begin(), elements.end());
  for (NSObject* element : own) retainObject(element);
}

// alloc on the receiving class makes a mutable array when that is what it is.
NSObject* made(Class self, std::span<NSObject* const> elements, const char* selector) {
  Owned<NSObject> array = adopt(NSObject::alloc(self));
  fill(array, elements, selector);
  return array.autorelease();
}

NSObject* array(Class self) { return made(self, {}, "array"); }
NSObject* arrayWithObjects(Class self, NSObject* const* objects, NSUInteger count) {
  return made(self, {objects, count}, "arrayWithObjects:count:");
}
NSObject* arrayWithObject(Class self, NSObject* object) { return made(self, {&object, 1}, "arrayWithObject:"); }
NSObject* arrayWithArray(Class self, NSArray* other) { return made(self, arraySpan(other), "arrayWithArray:"); }

// An init message that raises gives up the receiver, as its sender never gets it back.
NSObject* filled(NSObject* self, std::span<NSObject* const> elements, const char* selector) {
  Owned<NSObject> array = adopt(self);
  fill(array, elements, selector);
  return array.detach();
}

NSObject* initWithObjects(NSObject* self, NSObject* const* objects, NSUInteger count) {
  return filled(self, {objects, count}, "initWithObjects:count:");
}
NSObject* initWithArray(NSObject* self, NSArray* other) { return filled(self, arraySpan(other), "initWithArray:"); }

NSUInteger count(Array& self) { return self.elements.size(); }

NSObject* objectAtIndex(NSObject* self, NSUInteger index) {
  const Array& state = elementsOf(self);
  requireElement(self, "objectAtIndex:", index, state.elements.size());
  return state.elements[index];
}

NSObject* firstObject(Array& self) { return self.elements.empty() ? nullptr : self.elements.front(); }
NSObject* lastObject(Array& self) { return self.elements.empty() ? nullptr : self.elements.back(); }

NSUInteger indexOfObject(Array& self, NSObject* object) {
  for (size_t index = 0; object != nullptr && index < self.elements.size(); ++index) {
    if (self.elements[index] == object || NSObject::isEqual(self.elements[index], object)) return index;
  }
  return NSNotFound;
}

BOOL containsObject(Array& self, NSObject* object) { return indexOfObject(self, object) != NSNotFound; }

bool sameElement(NSObject* left, NSObject* right) { return left == right || NSObject::isEqual(left, right); }

BOOL isEqualToArray(Array& self, NSArray* other) {
  if (other == nullptr) return NO;
  const std::span<NSObject* const> others = arraySpan(other);
  return std::equal(self.elements.begin(), self.elements.end(), others.begin(), others.end(), sameElement);
}

BOOL isEqual(NSObject* self, NSObject* other) {
  return self == other || (isArray(other) && isEqualToArray(elementsOf(self), static_cast<NSArray*>(other)));
}

// The count is all that equal arrays of changing elements are sure to share.
NSUInteger hash(Array& self) { return self.elements.size(); }

NSString* description(NSObject* self) { return newString(propertyListText(self)).autorelease(); }

NSEnumerator* objectEnumerator(NSObject* self) { return newArrayEnumerator(static_cast<NSArray*>(self)).autorelease(); }

NSObject* componentsJoined(Array& self, NSString* separator) {
  Owned<NSMutableString> joined = newMutableString();
  text::Text& text = stateOf<String>(joined.get()).text;
  for (size_t index = 0; index < self.elements.size(); ++index) {
    if (index > 0 && separator != nullptr) text.append(textOf(separator));
    if (NSString* piece = NSObject::description(self.elements[index])) text.append(textOf(piece));
  }
  return joined.autorelease();
}

NSObject* arrayByAddingObject(NSObject* self, NSObject* object) {
  requireArgument(self, "arrayByAddingObject:", object);
  std::vector<NSObject*> elements = elementsOf(self).elements;
  elements.push_back(object);
  return newArray(elements).autorelease();
}

NSObject* subarrayWithRange(NSObject* self, NSRange range) {
  const std::vector<NSObject*>& elements = elementsOf(self).elements;
  requireRange(self, "subarrayWithRange:", range, "array", elements.size());
  return newArray(std::span(elements).subspan(range.location, range.length)).autorelease();
}

NSObject* copy(NSObject* self, void*) {
  if (stateOf<Object>(self).isa == immutableArrayClass.object()) return retainObject(self);
  return newArray(elementsOf(self).elements).detach();
}
NSObject* mutableCopy(Array& self, void*) { return newMutableArray(self.elements).detach(); }

const ClassDefinition arrayClass = defineClass<Array>("NSArray", "NSObject")
                                       .allocatesAs(immutableArrayClass)
                                       .classMethod<array>("array")
                                       .classMethod<arrayWithObjects>("arrayWithObjects:count:")
                                       .classMethod<arrayWithObject>("arrayWithObject:")
                                       .classMethod<arrayWithArray>("arrayWithArray:")
                                       .method<initWithObjects>("initWithObjects:count:")
                                       .method<initWithArray>("initWithArray:")
                                       .method<count>("count")
                                       .method<objectAtIndex>("objectAtIndex:")
                                       .method<firstObject>("firstObject")
                                       .method<lastObject>("lastObject")
                                       .method<indexOfObject>("indexOfObject:")
                                       .method<containsObject>("containsObject:")
                                       .method<isEqualToArray>("isEqualToArray:")
                                       .method<isEqual>("isEqual:")
                                       .method<hash>("hash")
                                       .method<description>("description")
                                       .method<objectEnumerator>("objectEnumerator")
                                       .method<componentsJoined>("componentsJoinedByString:")
                                       .method<arrayByAddingObject>("arrayByAddingObject:")
                                       .method<subarrayWithRange>("subarrayWithRange:")
                                       .method<copy>("copyWithZone:")
                                       .method<mutableCopy>("mutableCopyWithZone:");

}  // namespace

Array::~Array() {
  for (NSObject* element : std::exchange(elements, {})) releaseElement(element);
}

Owned<NSArray> newArray(std::span<NSObject* const> elements) {
  Owned<NSArray> array = create<Array, NSArray>(immutableArrayClass);
  fill(array, elements, "initWithObjects:count:");
  return array;
}

Owned<NSArray> newArray(std::initializer_list<NSObject*> elements) {
  return newArray(std::span(elements.begin(), elements.size()));
}

std::span<NSObject* const> arraySpan(NSArray* array) {
  if (array == nullptr) return {};
  return elementsOf(array).elements;
}

}  // namespace standin::foundation
