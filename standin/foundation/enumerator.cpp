// NSEnumerator, and the one concrete enumerator over elements.
#include "standin/foundation/enumerator.hpp"

#include "standin/foundation/collections.hpp"
#include "standin/runtime/class_definition.hpp"

namespace standin::foundation {
namespace {

struct ArrayEnumerator : Object {
  Owned<NSArray> array;
  size_t position = 0;
};

NSObject* nextElement(ArrayEnumerator& self) {
  const std::span<NSObject* const> elements = arraySpan(self.array);
  if (self.position < elements.size()) return elements[self.position++];
  self.array = nullptr;
  return nullptr;
}

NSObject* allObjects(NSObject* self) {
  Owned<NSMutableArray> rest = newMutableArray();
  while (NSObject* object = NSEnumerator::nextObject(self)) append(rest, object);
  return rest.autorelease();
}

const ClassDefinition enumeratorClass = defineClass("NSEnumerator", "NSObject").method<allObjects>("allObjects");
const ClassDefinition arrayEnumeratorClass =
    defineClass<ArrayEnumerator>("__NSArrayEnumerator", "NSEnumerator").method<nextElement>("nextObject");

}  // namespace

Owned<NSEnumerator> newArrayEnumerator(NSArray* array) {
  return create<ArrayEnumerator, NSEnumerator>(arrayEnumeratorClass, retain(array));
}

}  // namespace standin::foundation
