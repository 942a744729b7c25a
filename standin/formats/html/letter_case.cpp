// By Unicode's rules, no language's own.
#include "standin/formats/html/letter_case.hpp"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace standin::formats::html {
namespace {

void replaceFrom(std::u16string& text, size_t start, const icu::UnicodeString& mapped) {
  text.resize(start);
  text.append(mapped.getBuffer(), static_cast<size_t>(mapped.length()));
}

icu::UnicodeString tailOf(const std::u16string& text, size_t start) {
  return {text.data() + start, static_cast<int32_t>(text.size() - start)};
}

}  // namespace

void uppercase(std::u16string& text, size_t start) {
  replaceFrom(text, start, tailOf(text, start).toUpper(icu::Locale::getRoot()));
}

void lowercase(std::u16string& text, size_t start) {
  replaceFrom(text, start, tailOf(text, start).toLower(icu::Locale::getRoot()));
}

void capitalize(std::u16string& text, size_t start, bool inWord) {
  for (size_t at = start; at < text.size(); ++at) {
    const char16_t unit = text[at];
    const bool isPart = u_isalnum(unit) != 0 || unit == u'\'' || unit == u'\u2019' || U16_IS_SURROGATE(unit);
    if (isPart && !inWord) {
      const UChar32 title = u_totitle(unit);
      if (title <= 0xFFFF) text[at] = static_cast<char16_t>(title);
    }
    inWord = isPart;
  }
}

}  // namespace standin::formats::html
