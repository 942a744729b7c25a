// Changes of inputs that keep what wraps the interesting part intact, so that they reach the code behind it.
#pragma once

#include <string>

#include "fuzz/support/choices.hpp"
#include "fuzz/support/fuzzer.hpp"

namespace fuzz {

// Tags and texts moved, repeated, removed, nested and changed inside. The result has at most `room` bytes.
std::string mutatedMarkup(std::string_view markup, size_t room, Choices& choices);
// Any bytes.
std::string mutatedBytes(std::string_view bytes, size_t room);

// The result put in place of the input, when it fits; how many bytes there are then.
size_t put(std::string_view result, uint8_t* bytes, size_t size, size_t room);

}  // namespace fuzz
