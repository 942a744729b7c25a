// Texts of documents in capitals and without.
#pragma once

#include <string>

namespace standin::formats::html {

// Of the units from `start` on.
void uppercase(std::u16string& text, size_t start);
void lowercase(std::u16string& text, size_t start);
// The first letter of each word; `inWord`: whether a word goes on at `start`.
void capitalize(std::u16string& text, size_t start, bool inWord);

}  // namespace standin::formats::html
