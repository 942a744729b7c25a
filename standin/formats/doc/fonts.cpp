// Fonts, each with its size before it, its character set and its name.
#include "standin/formats/doc/fonts.hpp"

#include <unicode/unistr.h>

#include "standin/formats/code_pages.hpp"

namespace standin::formats::doc {
namespace {

constexpr size_t charsetPlace = 3, oldNamePlace = 5, namePlace = 39;  // behind the size
constexpr int defaultCodePage = 1252;

std::string oldName(Bytes bytes) {
  const std::string_view all = bytes.characters();
  std::string name;
  for (const char byte : all.substr(0, std::min(all.find('\0'), all.size()))) {
    name += static_cast<uint8_t>(byte) < 0x80 ? byte : '?';
  }
  return name;
}

std::string newName(Bytes bytes) {
  icu::UnicodeString name;
  for (size_t place = 0; bytes.read16(place) != 0; place += 2) name += static_cast<char16_t>(bytes.read16(place));
  std::string text;
  return name.toUTF8String(text);
}

}  // namespace

Fonts::Fonts(const Source& source) {
  const Bytes table = source.part(Part::fonts);
  for (Bytes rest = table.part(source.isOld ? 2 : 4); !rest.empty(); rest = rest.part(size_t{1} + rest.read8(0))) {
    addFont(rest.part(1, rest.read8(0)), source.isOld);
  }
}

void Fonts::addFont(Bytes description, bool isOld) {
  const int codePage = codePageOfCharset(description.read8(charsetPlace));
  fonts_.push_back({isOld ? oldName(description.part(oldNamePlace)) : newName(description.part(namePlace)),
                    codePage != 0 ? codePage : defaultCodePage});
}

const std::string& Fonts::nameOf(uint16_t font) const {
  static const std::string none;
  return font < fonts_.size() ? fonts_[font].name : none;
}

int Fonts::codePageOf(uint16_t font) const { return font < fonts_.size() ? fonts_[font].codePage : defaultCodePage; }

}  // namespace standin::formats::doc
