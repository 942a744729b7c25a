// Arrays: elements side by side in one stretch of memory, which plug-ins may be shown.
#include "host/runtime/array.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "host/runtime/classes/classes.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/variant.hpp"

namespace host {
namespace {

bool directStorage = true;

// The word of the instance data where plug-ins look for the elements.
constexpr size_t storageWord = 1;

class Array {
 public:
  Array() = default;
  Array(const Array&) = delete;
  Array& operator=(const Array&) = delete;
  ~Array() {
    while (count > 0) Value::adoptWord(kind(), takeWord(--count));
    std::free(storage);
  }

  Kind kind() const { return type.array ? Kind::Object : type.kind; }
  size_t width() const { return elementSize(kind()); }
  std::byte* place(int64_t index) const { return storage + static_cast<size_t>(index) * width(); }

  // The element's word; its reference becomes the caller's.
  uint64_t takeWord(int64_t index) const {
    uint64_t word = 0;
    std::memcpy(&word, place(index), width());
    return word;
  }
  // Takes over the word's reference; the element that was there is the caller's to drop.
  void putWord(int64_t index, uint64_t word) const { std::memcpy(place(index), &word, width()); }
  void reserve(int64_t wanted);

  Type type;
  int64_t count = 0, capacity = 0;
  std::byte* storage = nullptr;
  bool direct = false;
};

void Array::reserve(int64_t wanted) {
  if (wanted <= capacity) return;
  wanted = std::max<int64_t>(wanted, capacity + capacity / 2 + 4);
  const bool tooMany = wanted > std::numeric_limits<int64_t>::max() / 8;
  void* grown = tooMany ? nullptr : std::realloc(storage, static_cast<size_t>(wanted) * width());
  if (grown == nullptr) throwException("OutOfMemoryException", "There is no memory for the array.");
  storage = static_cast<std::byte*>(grown);
  capacity = wanted;
}

Array& stateIn(const HostObject* array) { return array->stateAs<Array>(); }

void reserve(HostObject* array, int64_t count) {
  Array& state = stateIn(array);
  state.reserve(count);
  if (state.direct) array->word<void*>(storageWord) = state.storage;
}

// The word to store for a value.
uint64_t wordFor(const Array& state, const Value& value) {
  if (state.type.isVariant() && !state.type.array) return reinterpret_cast<uint64_t>(boxed(value).detach());
  return convert(value, state.type).detachWord();
}

void checkIndex(const Array& state, int64_t index, int64_t last) {
  if (index < 0 || index > last) throwOutOfBounds(index, state.count - 1);
}

}  // namespace

const BuiltinClass arrayClass{.name = "Array", .state = stateOf<Array>(), .instanceSize = 16};

HostOwned<HostObject> makeArray(const Type& elementType, int64_t upperBound) {
  HostOwned<HostObject> array = HostObject::make(builtinClass<arrayClass>());
  stateIn(array).type = elementType;
  stateIn(array).direct = directStorage;
  resizeArray(array, upperBound);
  return array;
}

bool isArray(const HostObject* object) { return isInstanceOf<arrayClass>(object); }
const Type& elementType(const HostObject* array) { return stateIn(array).type; }
int64_t upperBound(const HostObject* array) { return stateIn(array).count - 1; }

Value element(const HostObject* array, int64_t index) {
  const Array& state = stateIn(array);
  checkIndex(state, index, state.count - 1);
  Value borrowed = Value::adoptWord(state.kind(), state.takeWord(index));
  Value copy = state.type.isVariant() && borrowed.isObject() ? unboxed(borrowed.asObject()) : borrowed;
  (void)borrowed.detachWord();
  return copy;
}

void setElement(HostObject* array, int64_t index, const Value& value) {
  const Array& state = stateIn(array);
  checkIndex(state, index, state.count - 1);
  const uint64_t word = wordFor(state, value);
  const Value old = Value::adoptWord(state.kind(), state.takeWord(index));
  state.putWord(index, word);
}

void insertElement(HostObject* array, int64_t index, const Value& value) {
  Array& state = stateIn(array);
  checkIndex(state, index, state.count);
  reserve(array, state.count + 1);
  const uint64_t word = wordFor(state, value);
  std::memmove(state.place(index + 1), state.place(index), static_cast<size_t>(state.count - index) * state.width());
  ++state.count;
  state.putWord(index, word);
}

void appendElement(HostObject* array, const Value& value) { insertElement(array, stateIn(array).count, value); }

void removeElement(HostObject* array, int64_t index) {
  Array& state = stateIn(array);
  checkIndex(state, index, state.count - 1);
  const Value old = Value::adoptWord(state.kind(), state.takeWord(index));
  --state.count;
  std::memmove(state.place(index), state.place(index + 1), static_cast<size_t>(state.count - index) * state.width());
}

void resizeArray(HostObject* array, int64_t upperBound) {
  Array& state = stateIn(array);
  constexpr int64_t greatest = std::numeric_limits<int64_t>::max();
  const int64_t wanted = upperBound < greatest ? std::max<int64_t>(upperBound + 1, 0) : greatest;
  while (state.count > wanted) removeElement(array, state.count - 1);
  if (wanted == state.count) return;
  reserve(array, wanted);
  std::memset(state.place(state.count), 0, static_cast<size_t>(wanted - state.count) * state.width());
  state.count = wanted;
}

void setDirectArrayStorage(bool direct) { directStorage = direct; }

}  // namespace host
