// NSMutableArray: the messages that change an array.
#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/runtime/class_definition.hpp"

namespace standin::foundation {
namespace {

const ClassDefinition concreteClass = defineClass<Array>("__NSArrayM", "NSMutableArray");

std::vector<NSObject*>& elementsOf(NSObject* array) { return stateOf<Array>(array).elements; }

void insert(NSObject* self, NSObject* object, NSUInteger index, const char* selector) {
  requireArgument(self, selector, object);
  std::vector<NSObject*>& elements = elementsOf(self);
  requireElement(self, selector, index, elements.size() + 1);
  elements.insert(elements.begin() + static_cast<ptrdiff_t>(index), object);
  retainObject(object);
}

// The element leaves the array before it is released, as its end may come back here.
void removeAt(NSObject* self, NSUInteger index, const char* selector) {
  std::vector<NSObject*>& elements = elementsOf(self);
  requireElement(self, selector, index, elements.size());
  NSObject* const removed = elements[index];
  elements.erase(elements.begin() + static_cast<ptrdiff_t>(index));
  releaseElement(removed);
}

NSObject* arrayWithCapacity(Class self, NSUInteger) { return adopt(NSObject::init(NSObject::alloc(self))).autorelease(); }
NSObject* initWithCapacity(NSObject* self, NSUInteger) { return self; }

void addObject(NSObject* self, NSObject* object) { insert(self, object, elementsOf(self).size(), "addObject:"); }
void insertObject(NSObject* self, NSObject* object, NSUInteger index) {
  insert(self, object, index, "insertObject:atIndex:");
}

void addObjectsFromArray(NSObject* self, NSArray* others) {
  const std::span<NSObject* const> span = arraySpan(others);
  for (NSObject* object : std::vector<NSObject*>(span.begin(), span.end())) addObject(self, object);
}

void removeObjectAtIndex(NSObject* self, NSUInteger index) { removeAt(self, index, "removeObjectAtIndex:"); }
// An empty array stays as it is.
void removeLastObject(NSObject* self) {
  if (!elementsOf(self).empty()) removeAt(self, elementsOf(self).size() - 1, "removeLastObject");
}

void removeAllObjects(NSObject* self) {
  for (NSObject* object : std::exchange(elementsOf(self), {})) releaseElement(object);
}

void removeObject(NSObject* self, NSObject* object) {
  const Owned<NSObject> kept = retain(object);
  for (size_t index = elementsOf(self).size(); index-- > 0;) {
    NSObject* const element = elementsOf(self)[index];
    if (element == object || NSObject::isEqual(element, object)) removeAt(self, index, "removeObject:");
  }
}

void replaceObject(NSObject* self, NSUInteger index, NSObject* object) {
  static const char* const selector = "replaceObjectAtIndex:withObject:";
  requireArgument(self, selector, object);
  requireElement(self, selector, index, elementsOf(self).size());
  releaseElement(std::exchange(elementsOf(self)[index], retainObject(object)));
}

const ClassDefinition mutableArrayClass = defineClass<Array>("NSMutableArray", "NSArray")
                                              .allocatesAs(concreteClass)
                                              .classMethod<arrayWithCapacity>("arrayWithCapacity:")
                                              .method<initWithCapacity>("initWithCapacity:")
                                              .method<addObject>("addObject:")
                                              .method<insertObject>("insertObject:atIndex:")
                                              .method<addObjectsFromArray>("addObjectsFromArray:")
                                              .method<removeObjectAtIndex>("removeObjectAtIndex:")
                                              .method<removeLastObject>("removeLastObject")
                                              .method<removeAllObjects>("removeAllObjects")
                                              .method<removeObject>("removeObject:")
                                              .method<replaceObject>("replaceObjectAtIndex:withObject:");

}  // namespace

Owned<NSMutableArray> newMutableArray(std::span<NSObject* const> elements) {
  Owned<NSMutableArray> array = create<Array, NSMutableArray>(concreteClass);
  elementsOf(array).reserve(elements.size());
  for (NSObject* element : elements) append(array, element);
  return array;
}

void append(NSMutableArray* array, NSObject* element) { addObject(array, element); }

}  // namespace standin::foundation
