// Data: the state behind every NSData.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/foundation.h"
#include "standin/runtime/class_definition.hpp"

namespace standin::foundation {

// Every NSData. `bytes` changes in mutable data alone.
struct Data : Object {
  Data() = default;
  explicit Data(std::string content) : bytes(std::move(content)) {}

  std::string bytes;
};

// New data, owned by the caller.
Owned<NSData> newData(std::string bytes);
Owned<NSData> newData(std::span<const uint8_t> bytes);
Owned<NSData> newMutableData(std::string bytes = {});

bool isData(NSObject* object);
// The bytes stay valid while the data lives and is not changed. Empty for nil.
std::span<const uint8_t> bytesOf(NSData* data);

// Nothing, with `errno` set, when the file cannot be read.
std::optional<std::string> readFile(const char* path);
// Atomically: through a file beside it that takes its place. False, with `errno` set, when it cannot be written.
bool writeFile(const char* path, std::span<const uint8_t> bytes, bool atomically);

}  // namespace standin::foundation
