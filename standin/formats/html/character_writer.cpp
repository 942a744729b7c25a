// Plain stretches in bulk, everything else by a table of what is escaped.
#include "standin/formats/html/character_writer.hpp"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace standin::formats::html {
namespace {

constexpr char16_t noBreakSpace = 0xA0;

constexpr std::string_view escapeOf(char16_t unit) {
  switch (unit) {
    case u'&':
      return "&amp;";
    case u'<':
      return "&lt;";
    case u'>':
      return "&gt;";
    case u'"':
      return "&quot;";
    case noBreakSpace:
      return "&#160;";
    default:
      return {};
  }
}

// Quotes are escaped in attribute values alone.
constexpr auto plainUnits = [] {
  std::array<bool, 128> plain{};
  for (char16_t unit = 0x21; unit < 0x7F; ++unit) plain[unit] = escapeOf(unit).empty() || unit == u'"';
  return plain;
}();

bool isPlain(char16_t unit) { return unit < 128 && plainUnits[unit]; }

// A space between two words, which no reader takes away.
bool isLoneSpace(std::u16string_view paragraph, size_t at) {
  const auto borders = [](char16_t unit) { return isSpace(unit) || unit == lineSeparator; };
  return paragraph[at] == u' ' && at > 0 && at + 1 < paragraph.size() && !borders(paragraph[at - 1]) &&
         !borders(paragraph[at + 1]);
}

// Eight units are looked at together, without a branch a unit.
using Eight = uint16_t __attribute__((vector_size(16)));
constexpr size_t eight = 8;

Eight load(const char16_t* units) {
  Eight loaded;
  std::memcpy(&loaded, units, sizeof loaded);
  return loaded;
}

// Whether the units and the ones beside them are ASCII that is written as it is, their spaces alone between words.
bool isPlainEight(const char16_t* units) {
  constexpr uint16_t space = u' ', last = 0x7E, ampersand = u'&', less = u'<', greater = u'>';
  const Eight before = load(units - 1), here = load(units), after = load(units + 1);
  const auto special = (before < space) | (before > last) | (after < space) | (after > last) | (here == ampersand) |
                       (here == less) | (here == greater) | ((here == space) & ((before == space) | (after == space)));
  uint64_t halves[2];
  std::memcpy(halves, &special, sizeof halves);
  return (halves[0] | halves[1]) == 0;
}

// A lone surrogate becomes U+FFFD. The position behind the character.
size_t appendUTF8(std::string& out, std::u16string_view units, size_t at) {
  UChar32 character;
  U16_NEXT_OR_FFFD(units.data(), at, units.size(), character);
  char bytes[U8_MAX_LENGTH];
  size_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, character);
  out.append(bytes, length);
  return at;
}

bool isControl(char16_t unit) { return unit < 0x20 || unit == 0x7F || unit == 0xFFFE || unit == 0xFFFF; }

}  // namespace

void CharacterWriter::write(std::u16string_view paragraph, size_t from, size_t to) {
  while (from < to) {
    from = writePlain(paragraph, from, to);
    if (from < to) from = writeSpecial(paragraph, from, to);
  }
}

// In pieces, so that room is made for no more than a piece in vain. The last eight may reach beyond the end.
size_t CharacterWriter::writePlain(std::u16string_view paragraph, size_t at, size_t to) {
  constexpr size_t piece = 256;
  for (bool isWhole = true; isWhole && at < to;) {
    const size_t stop = std::min(to, at + piece), old = out_.size();
    out_.resize(old + stop - at + eight);
    char* target = out_.data() + old;
    while (at > 0 && at < stop && at + eight < paragraph.size() && isPlainEight(&paragraph[at])) {
      for (size_t unit = 0; unit < eight; ++unit) target[unit] = static_cast<char>(paragraph[at + unit]);
      const size_t count = std::min(eight, stop - at);
      at += count;
      target += count;
    }
    while (at < stop && (isPlain(paragraph[at]) || isLoneSpace(paragraph, at)))
      *target++ = static_cast<char>(paragraph[at++]);
    isWhole = at == stop;
    out_.resize(static_cast<size_t>(target - out_.data()));
  }
  return at;
}

size_t CharacterWriter::writeSpecial(std::u16string_view paragraph, size_t at, size_t to) {
  const char16_t unit = paragraph[at];
  if (isSpace(unit)) return writeSpaces(paragraph, at, to);
  if (const std::string_view escape = escapeOf(unit); !escape.empty()) {
    out_ += escape;
  } else if (unit == lineSeparator) {
    out_ += lineBreak_;
  } else if (!isControl(unit)) {
    return appendUTF8(out_, paragraph.substr(0, to), at);
  } else if (!isXML_ && unit != 0 && unit < 0x80) {
    out_ += "&#" + std::to_string(static_cast<unsigned>(unit)) + ";";
  }
  return at + 1;
}

size_t CharacterWriter::writeSpaces(std::u16string_view paragraph, size_t at, size_t to) {
  if (!spaceTags_) spaceTags_ = makeSpaceTags_();
  out_ += spaceTags_->open;
  for (; at < to && isSpace(paragraph[at]) && !isLoneSpace(paragraph, at); ++at) {
    if (paragraph[at] != u'\f') {
      out_ += static_cast<char>(paragraph[at]);
    } else if (!isXML_) {
      out_ += "&#12;";
    }
  }
  out_ += spaceTags_->close;
  return at;
}

void appendAttributeValue(std::string& out, std::u16string_view value) {
  for (size_t at = 0; at < value.size();) {
    const char16_t unit = value[at];
    if (const std::string_view escape = escapeOf(unit); !escape.empty()) {
      out += escape;
      ++at;
    } else if (isControl(unit)) {
      if (unit == u'\n' || unit == u'\t' || unit == u'\r') out += ' ';
      ++at;
    } else {
      at = appendUTF8(out, value, at);
    }
  }
}

void appendAttributeValue(std::string& out, std::string_view value) {
  for (const char byte : value) {
    const auto unit = static_cast<unsigned char>(byte);
    const std::string_view escape = unit < 0x80 ? escapeOf(unit) : std::string_view();
    escape.empty() ? void(out += byte) : void(out += escape);
  }
}

}  // namespace standin::formats::html
