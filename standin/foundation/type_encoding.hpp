// The size of a C type from its Objective-C encoding.
#pragma once

#include <cstddef>
#include <optional>

namespace standin::foundation {

// In bytes, with the padding that C adds; nothing when the text is no encoding of one complete type with a size.
std::optional<size_t> encodedSize(const char* encoding);

}  // namespace standin::foundation
