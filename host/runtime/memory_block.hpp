// Host memory blocks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "host/runtime/object.hpp"

namespace host {

// Nil when the memory cannot be had, or the size is negative.
HostOwned<HostObject> makeMemoryBlock(int64_t size);
HostOwned<HostObject> makeMemoryBlock(std::string_view bytes);
bool isMemoryBlock(const HostObject* object);
// REQUIRES a memory block. Valid until it is resized.
std::span<std::byte> memoryOf(const HostObject* block);

// Blocks of more bytes than this cannot be made.
void setMemoryBlockLimit(int64_t bytes);

}  // namespace host
