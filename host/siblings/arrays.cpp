// Arrays across the boundary.
#include "host/siblings/arrays.hpp"

#include <string>

namespace siblings {

HostObject* wrapElements(NSArray* elements, const char* className) {
  constexpr int32_t variants = 4;
  HostObject* array = createArray(variants, -1);
  if (array == nullptr) return nullptr;
  const NSUInteger count = NSArray::count(elements);
  for (NSUInteger index = 0; index < count; ++index) {
    HostObject* wrapper = wrap(NSArray::objectAtIndex(elements, index), className);
    insertElement(array, static_cast<int64_t>(index), wrapper);
    if (wrapper != nullptr) unlockObject(wrapper);
  }
  return array;
}

NSArray* wrappedElements(HostObject* array, const char* className) {
  Owned<NSMutableArray> elements = adopt(static_cast<NSMutableArray*>(NSObject::init(alloc<NSMutableArray>())));
  const ElementGetter getter = array != nullptr ? elementGetter(array) : nullptr;
  if (getter == nullptr) return elements.autorelease();
  void* const type = classReference(className);
  const int64_t last = upperBound(array);
  for (int64_t index = 0; index <= last; ++index) {
    HostObject* element = getter(array, index);
    const bool fits = element != nullptr && isInstance(element, type) && wrapped(element) != nullptr;
    if (fits) NSMutableArray::addObject(elements, wrapped(element));
    if (element != nullptr) unlockObject(element);
    if (!fits) return raise("TypeMismatchException", ("every element must be a " + std::string(className)).c_str()), nullptr;
  }
  return elements.autorelease();
}

}  // namespace siblings
