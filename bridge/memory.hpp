// Host memory blocks and platform data, in both directions. Bytes are always copied.
#pragma once

#include "platform/foundation.h"
#include "plugin/host_types.hpp"
#include "plugin/service.hpp"

namespace bridge {

// The memory block's own conversion to an address, kept once found.
inline constinit plugin::Function<void*(plugin::REALobject)>* myMemoryBlockGetPtr = nullptr;

// The address of the block's buffer; nil for a nil block or when the host cannot tell.
void* MyREALMemoryBlockGetPtr(plugin::REALmemoryBlock block);

// Autoreleased data with the block's bytes; nil for a nil or empty block.
NSData* NewNSData(plugin::REALmemoryBlock block);

// A memory block with the data's bytes and one reference for the caller; nil for nil or empty data. Raises
// "OutOfMemoryException" when there is no such block to be had.
plugin::REALmemoryBlock NSDataRB(NSData* data);

// The constructor of large blocks. Looked up once, when the first is asked for; kept as it was found, nil included.
inline constinit plugin::Function<void(plugin::REALobject, int64_t)>* memoryBlockConstructor = nullptr;
inline constinit bool memoryBlockConstructorSought = false;

// Work for the host's exception handler: makes the block that the request asks for.
struct MemoryBlockRequest {
  int64_t size;
  plugin::REALmemoryBlock block;
};
void REALNewMemoryBlockWork(void* request);

}  // namespace bridge
