// Memory blocks.
#include "host/runtime/memory_block.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "host/runtime/classes/classes.hpp"
#include "host/runtime/exception.hpp"

namespace host {
namespace {

int64_t sizeLimit = std::numeric_limits<int64_t>::max();

struct MemoryBlock {
  std::byte* bytes = nullptr;
  int64_t size = 0;
  bool littleEndian = true;

  ~MemoryBlock() { std::free(bytes); }
  // False when the memory cannot be had; the block is then as it was. Zeroed pages come from the system as they are
  // touched, so that a large new block costs nothing before it is used.
  bool resize(int64_t wanted);
};

bool MemoryBlock::resize(int64_t wanted) {
  if (wanted < 0 || wanted > sizeLimit) return false;
  auto* made = static_cast<std::byte*>(std::calloc(static_cast<size_t>(std::max<int64_t>(wanted, 1)), 1));
  if (made == nullptr) return false;
  const int64_t kept = std::min(size, wanted);
  if (kept > 0) std::memcpy(made, bytes, static_cast<size_t>(kept));
  std::free(bytes);
  bytes = made;
  size = wanted;
  return true;
}

MemoryBlock& stateIn(const HostObject* object) { return object->stateAs<MemoryBlock>(); }

void resizeOrThrow(HostObject* self, int64_t size) {
  if (stateIn(self).resize(size)) return;
  throwException("OutOfMemoryException", "There is no memory for " + std::to_string(size) + " bytes.");
}

void construct(HostObject* self, int64_t bytes) { resizeOrThrow(self, bytes); }
void* pointer(HostObject* self) { return stateIn(self).bytes; }
int64_t size(HostObject* self, int64_t) { return stateIn(self).size; }
void setSize(HostObject* self, int64_t, int64_t size) { resizeOrThrow(self, size); }
bool littleEndian(HostObject* self, int64_t) { return stateIn(self).littleEndian; }
void setLittleEndian(HostObject* self, int64_t, bool littleEndian) { stateIn(self).littleEndian = littleEndian; }

// The address of that many bytes, all of them within the block.
std::byte* at(HostObject* self, int64_t offset, int64_t length) {
  const MemoryBlock& block = stateIn(self);
  if (offset < 0 || length < 0 || offset > block.size || length > block.size - offset) {
    throwOutOfBounds(offset < 0 || offset > block.size ? offset : block.size, block.size - 1);
  }
  return block.bytes + offset;
}

template <class Number>
Number reordered(HostObject* self, Number number) {
  if (stateIn(self).littleEndian) return number;
  auto* bytes = reinterpret_cast<std::byte*>(&number);
  std::reverse(bytes, bytes + sizeof number);
  return number;
}

// Stored is the number in the block, Shown the type that the declaration gives it.
template <class Stored, class Shown>
Shown peek(HostObject* self, int64_t offset) {
  Stored number;
  std::memcpy(&number, at(self, offset, sizeof number), sizeof number);
  return static_cast<Shown>(reordered(self, number));
}

template <class Stored, class Shown>
void poke(HostObject* self, int64_t offset, Shown value) {
  const Stored number = reordered(self, static_cast<Stored>(value));
  std::memcpy(at(self, offset, sizeof number), &number, sizeof number);
}

HostString* stringValue(HostObject* self, int64_t offset, int64_t length) {
  const auto* bytes = reinterpret_cast<const char*>(at(self, offset, length));
  return HostString::make({bytes, static_cast<size_t>(length)}, encodingUnknown).detach();
}

// As many bytes as both the string and the given length have.
void setStringValue(HostObject* self, int64_t offset, int64_t length, HostString* value) {
  const std::string_view bytes = bytesOf(value).substr(0, static_cast<size_t>(std::max<int64_t>(length, 0)));
  if (!bytes.empty()) std::memcpy(at(self, offset, static_cast<int64_t>(bytes.size())), bytes.data(), bytes.size());
}

HostString* cString(HostObject* self, int64_t offset) {
  const auto* bytes = reinterpret_cast<const char*>(at(self, offset, 0));
  return HostString::make({bytes, strnlen(bytes, static_cast<size_t>(stateIn(self).size - offset))}, encodingUnknown)
      .detach();
}

HostObject* middle(HostObject* self, int64_t offset, int64_t length) {
  return makeMemoryBlock({reinterpret_cast<const char*>(at(self, offset, length)), static_cast<size_t>(length)}).detach();
}

const BuiltinProperty properties[] = {
    {"Size as Integer", native(size), native(setSize)},
    {"LittleEndian as Boolean", native(littleEndian), native(setLittleEndian)},
};

#define HOST_PEEK_AND_POKE(name, type, Stored, Shown)                                  \
  {name "(offset as Integer) as " type, native(peek<Stored, Shown>)}, {                \
    name "(offset as Integer, Assigns value as " type ")", native(poke<Stored, Shown>) \
  }

const BuiltinMethod methods[] = {
    {"Constructor(bytes as Integer)", native(construct)},
    {"Operator_Convert() As Ptr", native(pointer)},
    HOST_PEEK_AND_POKE("Byte", "Integer", uint8_t, int64_t),
    HOST_PEEK_AND_POKE("Int8Value", "Integer", int8_t, int64_t),
    HOST_PEEK_AND_POKE("UInt8Value", "Integer", uint8_t, int64_t),
    HOST_PEEK_AND_POKE("Int16Value", "Integer", int16_t, int64_t),
    HOST_PEEK_AND_POKE("UInt16Value", "Integer", uint16_t, int64_t),
    HOST_PEEK_AND_POKE("Int32Value", "Integer", int32_t, int64_t),
    HOST_PEEK_AND_POKE("UInt32Value", "Integer", uint32_t, int64_t),
    HOST_PEEK_AND_POKE("Int64Value", "Integer", int64_t, int64_t),
    HOST_PEEK_AND_POKE("UInt64Value", "UInt64", uint64_t, uint64_t),
    HOST_PEEK_AND_POKE("SingleValue", "Single", float, float),
    HOST_PEEK_AND_POKE("DoubleValue", "Double", double, double),
    {"StringValue(offset as Integer, length as Integer) as String", native(stringValue)},
    {"StringValue(offset as Integer, length as Integer, Assigns value as String)", native(setStringValue)},
    {"CString(offset as Integer) as String", native(cString)},
    {"Mid(offset as Integer, length as Integer) as MemoryBlock", native(middle)},
};
#undef HOST_PEEK_AND_POKE

}  // namespace

const BuiltinClass memoryBlockClass{
    .name = "MemoryBlock", .state = stateOf<MemoryBlock>(), .properties = properties, .methods = methods};

HostOwned<HostObject> makeMemoryBlock(int64_t size) {
  HostOwned<HostObject> block = HostObject::make(builtinClass<memoryBlockClass>());
  return stateIn(block).resize(size) ? block : nullptr;
}

HostOwned<HostObject> makeMemoryBlock(std::string_view bytes) {
  HostOwned<HostObject> block = makeMemoryBlock(static_cast<int64_t>(bytes.size()));
  if (!block) throwException("OutOfMemoryException", "There is no memory for " + std::to_string(bytes.size()) + " bytes.");
  if (!bytes.empty()) std::memcpy(stateIn(block).bytes, bytes.data(), bytes.size());
  return block;
}

bool isMemoryBlock(const HostObject* object) { return isInstanceOf<memoryBlockClass>(object); }

std::span<std::byte> memoryOf(const HostObject* block) {
  return {stateIn(block).bytes, static_cast<size_t>(stateIn(block).size)};
}

void setMemoryBlockLimit(int64_t bytes) { sizeLimit = bytes; }

}  // namespace host
