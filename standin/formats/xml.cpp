// Names and their numbers, and text escaped.
#include "standin/formats/xml.hpp"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <numeric>

namespace standin::formats::xml {
namespace {

// What a character becomes in XML; nothing for those that stand for themselves.
std::string_view escapeOf(char32_t character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

bool isAllowed(char32_t character) {
  return character >= 0x20 ? (character & 0xFFFFF800) != 0xD800 && character != 0xFFFE && character != 0xFFFF
                           : character == '\t' || character == '\n' || character == '\r';
}

// By the unit, below U+0080.
constexpr auto standsForItself = [] {
  std::array<bool, 0x80> table{};
  for (size_t unit = 0x20; unit < table.size(); ++unit)
    table[unit] = unit != '&' && unit != '<' && unit != '>' && unit != '"';
  return table;
}();

void appendCharacter(std::string& out, char32_t character) {
  if (!isAllowed(character)) return;
  if (const std::string_view escape = escapeOf(character); !escape.empty()) {
    out += escape;
    return;
  }
  char bytes[4];
  int32_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, character);
  out.append(bytes, static_cast<size_t>(length));
}

}  // namespace

NameTable::NameTable(std::initializer_list<Namespace> namespaces, std::initializer_list<Name> names) {
  for (const Namespace& space : namespaces) prefixes_.emplace(space.uri, space.prefix);
  for (const Name& name : names) numbers_.emplace(name.qualified, name.number);
}

NameNumber NameTable::find(std::string_view uri, std::string_view local) const {
  std::string qualified;
  if (!uri.empty()) {
    const auto prefix = prefixes_.find(uri);
    if (prefix == prefixes_.end()) return unknownName;
    qualified = prefix->second;
    if (!qualified.empty()) qualified += ':';
  }
  const auto found = numbers_.find(qualified += local);
  return found != numbers_.end() ? found->second : unknownName;
}

size_t Element::cost() const {
  return std::accumulate(attributes.begin(), attributes.end(), size_t{0},
                         [](size_t sum, const Attribute& row) { return sum + 4 * row.value.size(); });
}

std::optional<std::string_view> Element::find(NameNumber attribute) const {
  const auto found =
      std::find_if(attributes.begin(), attributes.end(), [&](const Attribute& row) { return row.name == attribute; });
  if (found == attributes.end()) return std::nullopt;
  return found->value;
}

void appendEscaped(std::string& out, std::u16string_view text) {
  for (size_t at = 0; at < text.size();) {
    size_t end = at;
    while (end < text.size() && text[end] < 0x80 && standsForItself[text[end]]) ++end;
    const size_t old = out.size();
    out.resize(old + end - at);
    std::transform(text.begin() + static_cast<std::ptrdiff_t>(at), text.begin() + static_cast<std::ptrdiff_t>(end),
                   out.begin() + static_cast<std::ptrdiff_t>(old), [](char16_t unit) { return static_cast<char>(unit); });
    at = end;
    if (at == text.size()) return;
    UChar32 character;
    U16_NEXT(text.data(), at, text.size(), character);
    appendCharacter(out, static_cast<char32_t>(character));
  }
}

void appendEscapedUTF8(std::string& out, std::string_view text) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
  const auto length = static_cast<int32_t>(text.size());
  for (int32_t at = 0; at < length;) {
    UChar32 character;
    U8_NEXT_OR_FFFD(bytes, at, length, character);
    appendCharacter(out, static_cast<char32_t>(character));
  }
}

}  // namespace standin::formats::xml
