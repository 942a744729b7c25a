// Services of memory blocks.
#include "host/runtime/memory_block.hpp"

#include "host/runtime/service.hpp"

namespace host {
namespace {

HostObject* newBlock(int32_t size) { return makeMemoryBlock(static_cast<int64_t>(size)).detach(); }
void* address(HostObject* block) { return isMemoryBlock(block) ? memoryOf(block).data() : nullptr; }
int64_t size(HostObject* block) { return isMemoryBlock(block) ? static_cast<int64_t>(memoryOf(block).size()) : 0; }

}  // namespace

std::span<const Service> memoryBlockServices() {
  static const Service list[] = {
      service<newBlock>("newMemoryBlock"),
      service<address>("memoryBlockGetPtr"),
      service<size>("memoryBlockGetSize"),
  };
  return list;
}

}  // namespace host
