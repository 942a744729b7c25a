// Copies host memory blocks into platform data and back.
#include "bridge/memory.hpp"

#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

#include "plugin/exceptions.hpp"
#include "plugin/host_owned.hpp"

namespace bridge {

using plugin::adoptHost;
using plugin::HostOwned;
using plugin::REALmemoryBlock;
using plugin::REALmemoryBlockStruct;
using plugin::REALobject;

namespace {

using OwnedBlock = HostOwned<REALmemoryBlockStruct>;

// The method is the same for every block, so an empty probe answers for all; without one the block itself is asked.
void findAddressMethod(REALmemoryBlock block) {
  constexpr int32_t probeSize = 4;
  const OwnedBlock probe = adoptHost(plugin::REALNewMemoryBlockOriginal(probeSize));
  myMemoryBlockGetPtr =
      plugin::loadObjectMethod<void*(REALobject)>(probe ? probe.get() : block, "Operator_Convert() As Ptr");
}

int64_t sizeOf(REALmemoryBlock block) {
  int64_t size = 0;
  return plugin::REALGetPropValueInteger(block, "Size", &size) ? size : plugin::REALMemoryBlockGetSize(block);
}

}  // namespace

void* MyREALMemoryBlockGetPtr(REALmemoryBlock block) {
  if (block == nullptr) return nullptr;
  if (myMemoryBlockGetPtr == nullptr) findAddressMethod(block);
  return myMemoryBlockGetPtr != nullptr ? myMemoryBlockGetPtr(block) : plugin::REALMemoryBlockGetPtr(block);
}

NSData* NewNSData(REALmemoryBlock block) {
  if (block == nullptr) return nullptr;
  const OwnedBlock locked = plugin::lockHost(block);
  const int64_t size = sizeOf(block);
  const void* bytes = MyREALMemoryBlockGetPtr(block);
  if (bytes == nullptr || size <= 0) return nullptr;
  return NSData::dataWithBytes(classOf<NSData>(), bytes, static_cast<NSUInteger>(size));
}

namespace {

// Sizes from this one on go through the block class's constructor, which takes 64 bits.
constexpr NSUInteger largeSize = 0x7FFFFFFF;

OwnedBlock newLargeBlock(int64_t size) {
  MemoryBlockRequest request{size, nullptr};
  const auto caught = adoptHost(plugin::REALCallFunctionWithExceptionHandler(&REALNewMemoryBlockWork, &request));
  return adoptHost(request.block);
}

OwnedBlock newBlock(NSUInteger size) {
  if (size >= largeSize) return newLargeBlock(static_cast<int64_t>(size));
  return adoptHost(plugin::REALNewMemoryBlockOriginal(static_cast<int32_t>(size)));
}

OwnedBlock copyToBlock(const void* bytes, NSUInteger size) try {
  OwnedBlock block = newBlock(size);
  void* address = MyREALMemoryBlockGetPtr(block);
  if (address == nullptr) return nullptr;
  std::memcpy(address, bytes, size);
  return block;
} catch (const std::bad_alloc&) {
  return nullptr;
}

void raiseAllocationFailure(NSUInteger size) {
  char message[200];
  std::snprintf(message, sizeof message, "Failed to allocate a memoryblock with %lld bytes in size.",
                static_cast<long long>(size));
  plugin::RaiseException("OutOfMemoryException", message);
}

}  // namespace

REALmemoryBlock NSDataRB(NSData* data) {
  const void* bytes = NSData::bytes(data);
  const NSUInteger size = NSData::length(data);
  if (bytes == nullptr || static_cast<NSInteger>(size) < 1) return nullptr;
  OwnedBlock block = copyToBlock(bytes, size);
  if (!block) raiseAllocationFailure(size);
  return block.detach();
}

namespace {

void seekConstructor(REALobject block) {
  if (std::exchange(memoryBlockConstructorSought, true)) return;
  memoryBlockConstructor = plugin::loadObjectMethod<void(REALobject, int64_t)>(block, "Constructor(bytes as Integer)");
}

}  // namespace

void REALNewMemoryBlockWork(void* argument) {
  MemoryBlockRequest& request = *static_cast<MemoryBlockRequest*>(argument);
  OwnedBlock block = plugin::newInstance<REALmemoryBlockStruct>("MemoryBlock");
  if (!block) return;
  seekConstructor(block);
  if (memoryBlockConstructor == nullptr) return;
  memoryBlockConstructor(block, request.size);
  if (sizeOf(block) >= request.size) request.block = block.detach();
}

}  // namespace bridge
