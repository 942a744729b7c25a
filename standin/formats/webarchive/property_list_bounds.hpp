// Property lists from anywhere: whether reading one ends in bounded time and memory.
#pragma once

#include <cstdint>
#include <span>

namespace standin::formats::webarchive {

// False for a list nested deeper than 256 values, for a binary one whose values refer to themselves, lie outside the bytes
// or would, each taken as often as it is referred to, take more than 50 times the bytes and 64 MB, and for what is neither a
// binary nor an XML list. Nothing is said of whether the list is sound otherwise.
bool isBoundedPropertyList(std::span<const uint8_t> bytes);

}  // namespace standin::formats::webarchive
