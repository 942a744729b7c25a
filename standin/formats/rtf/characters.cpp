// Each unit by a table for ASCII, by number for everything else.
#include "standin/formats/rtf/characters.hpp"

#include <array>
#include <charconv>
#include <span>

namespace standin::formats::rtf {
namespace {

// A paragraph break ends the line in the file too, so that a person can read it. The other units that end paragraphs go as
// they are, to come back as they went.
struct Escape {
  char16_t unit;
  std::string_view written;
};
constexpr Escape escapes[] = {
    {u'\\', "\\\\"},    {u'{', "\\{"}, {u'}', "\\}"}, {u'\n', "\\par\n"}, {u'\t', "\\tab "},
    {u'\f', "\\page "}, {0xA0, "\\~"}, {0xAD, "\\-"}, {0x2011, "\\_"},    {0x2028, "\\line "},
};

constexpr auto asciiEscapes = [] {
  std::array<std::string_view, 128> table{};
  for (const Escape& escape : escapes) {
    if (escape.unit < 128) table[escape.unit] = escape.written;
  }
  return table;
}();

bool isPlain(char16_t unit) { return unit >= 0x20 && unit < 0x7F && asciiEscapes[unit].empty(); }

void appendHex(std::string& out, unsigned value) {
  constexpr char digits[] = "0123456789abcdef";
  out += "\\'";
  out += digits[value >> 4 & 15];
  out += digits[value & 15];
}

// \u takes a signed 16-bit number; the question mark is what a reader without Unicode shows.
void appendUnicode(std::string& out, char16_t unit) {
  char number[8];
  const auto end = std::to_chars(number, number + sizeof number, static_cast<int>(static_cast<int16_t>(unit))).ptr;
  out += "\\u";
  out.append(number, end);
  out += '?';
}

void appendSpecial(std::string& out, char16_t unit) {
  for (const Escape& escape : escapes) {
    if (escape.unit == unit) {
      out += escape.written;
      return;
    }
  }
  if (unit < 0x80) {
    appendHex(out, unit);
  } else {
    appendUnicode(out, unit);
  }
}

template <class Unit>
void appendUnits(std::string& out, std::span<const Unit> units) {
  size_t start = 0;
  for (size_t index = 0; index <= units.size(); ++index) {
    if (index < units.size() && isPlain(units[index])) continue;
    const size_t old = out.size();
    out.resize(old + index - start);
    for (size_t plain = start; plain < index; ++plain) out[old + plain - start] = static_cast<char>(units[plain]);
    if (index < units.size()) appendSpecial(out, units[index]);
    start = index + 1;
  }
}

}  // namespace

void appendCharacters(std::string& out, const text::Text& text, uint32_t from, uint32_t count) {
  text.visitChunks(from, count, [&](auto units) { appendUnits(out, units); });
}

}  // namespace standin::formats::rtf
