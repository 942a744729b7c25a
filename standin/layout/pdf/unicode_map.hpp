// The part of a font that tells which text its codes stand for.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace standin::layout::pdf {

// The stream's data; codes are one byte long or two. Texts may be empty.
std::string unicodeMap(const std::map<uint32_t, std::u16string>& texts, bool hasTwoBytes);

}  // namespace standin::layout::pdf
