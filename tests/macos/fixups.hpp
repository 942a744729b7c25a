// What must be relocated in an image, read from its opcodes.
#pragma once

#include <functional>
#include <string>

#include "tests/macos/image.hpp"

namespace macos {

// A pointer in the image that takes the address of an import.
struct Binding {
  uint64_t address;
  std::string symbol;
  int64_t addend;
  bool weakImport;  // nil when there is no such symbol
};

// The address of every pointer into the image itself.
void forEachRebase(const Image& image, const std::function<void(uint64_t address)>& visit);
// Every import, those included that the platform binds by their first call.
void forEachBinding(const Image& image, const std::function<void(const Binding&)>& visit);

}  // namespace macos
