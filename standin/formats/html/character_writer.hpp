// Characters as the content of HTML elements and as attribute values, in UTF-8.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace standin::formats::html {

// What stands before and behind a stretch of text.
struct Tags {
  std::string open, close;
};

// The break of lines inside a paragraph.
inline constexpr char16_t lineSeparator = 0x2028;

// Space that reads as a space where it stands alone between words, and is lost elsewhere.
constexpr bool isSpace(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\f'; }

// Writes stretches of a paragraph. Spaces that would be lost go between tags; control characters go as references, which XML
// lacks: there they are left out.
class CharacterWriter {
 public:
  // The tags around spaces are asked for when they are first needed.
  CharacterWriter(std::string& out, std::function<Tags()> spaceTags, std::string_view lineBreak, bool isXML)
      : out_(out), makeSpaceTags_(std::move(spaceTags)), lineBreak_(lineBreak), isXML_(isXML) {}

  // Units from `from` to `to` of the paragraph, which ends before its break.
  void write(std::u16string_view paragraph, size_t from, size_t to);

 private:
  // These give the position behind what was written, which may be nothing where it is plain.
  size_t writePlain(std::u16string_view paragraph, size_t at, size_t to);
  size_t writeSpecial(std::u16string_view paragraph, size_t at, size_t to);
  size_t writeSpaces(std::u16string_view paragraph, size_t at, size_t to);

  std::string& out_;
  const std::function<Tags()> makeSpaceTags_;
  std::optional<Tags> spaceTags_;
  const std::string lineBreak_;
  const bool isXML_;
};

void appendAttributeValue(std::string& out, std::u16string_view value);
// The same of UTF-8.
void appendAttributeValue(std::string& out, std::string_view value);

}  // namespace standin::formats::html
