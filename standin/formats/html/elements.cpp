// Lookup by name.
#include "standin/formats/html/elements.hpp"

#include <algorithm>
#include <array>

namespace standin::formats::html {
namespace {

constexpr std::string_view plainName(std::string_view name) {
  return name.back() == '_' ? name.substr(0, name.size() - 1) : name;
}

// clang-format off
constexpr std::string_view elementNames[] = {
    "",
#define STANDIN_HTML_ROW(name, traits) plainName(#name),
    STANDIN_HTML_ELEMENTS(STANDIN_HTML_ROW)
#undef STANDIN_HTML_ROW
};
constexpr std::string_view attributeNames[] = {
    "",
#define STANDIN_HTML_ROW(name) plainName(#name),
    STANDIN_HTML_ATTRIBUTES(STANDIN_HTML_ROW)
#undef STANDIN_HTML_ROW
};
// clang-format on
static_assert(std::is_sorted(std::begin(attributeNames), std::end(attributeNames)));

constexpr size_t slots = 512;

constexpr size_t slotOf(std::string_view name) {
  size_t hash = 0;
  for (const char c : name) hash = hash * 31 + static_cast<unsigned char>(c);
  return (hash ^ (hash >> 9)) % slots;
}

// Open addressing, made when compiling: every start tag of a document is looked up.
constexpr auto elementSlots = [] {
  std::array<Tag, slots> table{};
  for (size_t row = 1; row < std::size(elementNames); ++row) {
    size_t slot = slotOf(elementNames[row]);
    while (table[slot] != Tag::unknown) slot = (slot + 1) % slots;
    table[slot] = static_cast<Tag>(row);
  }
  return table;
}();

}  // namespace

Tag tagNamed(std::string_view name) {
  for (size_t slot = slotOf(name); elementSlots[slot] != Tag::unknown; slot = (slot + 1) % slots) {
    if (elementNames[static_cast<size_t>(elementSlots[slot])] == name) return elementSlots[slot];
  }
  return Tag::unknown;
}

AttributeName attributeNamed(std::string_view name) {
  const auto found = std::lower_bound(std::begin(attributeNames), std::end(attributeNames), name);
  const bool isKnown = found != std::end(attributeNames) && *found == name;
  return isKnown ? static_cast<AttributeName>(found - std::begin(attributeNames)) : AttributeName::unknown;
}

}  // namespace standin::formats::html
