// Strings as the language sees them: sequences of characters, which are Unicode code points.
#pragma once

#include <string>
#include <string_view>

#include "host/language/value.hpp"

namespace language {

using Characters = std::u32string;

// Bytes that are no UTF-8 become U+FFFD.
Characters charactersOf(std::string_view utf8);
std::string utf8Of(const Characters& characters);

// A string, or a text where the model is one.
Value stringLike(const Value& model, std::string_view utf8);

// Both as strings, one after the other. Two strings of the same encoding keep it; else the result is UTF-8.
Value joined(const Value& left, const Value& right);

enum class CaseRule { Ignored, Respected };
// Negative, 0 or positive.
int orderStrings(const Value& left, const Value& right, CaseRule rule);

// With every character in its folded case, one for one.
Characters folded(Characters characters);

}  // namespace language
