// Values parsed.
#include "standin/formats/word_xml/values.hpp"

#include <algorithm>

#include "standin/formats/units.hpp"

namespace standin::formats::word_xml {
namespace {

// The next letter that counts, in lower case; 0 at the end.
char nextLetter(std::string_view& text) {
  while (text.starts_with('-')) text.remove_prefix(1);
  if (text.empty()) return 0;
  const char letter = text.front();
  text.remove_prefix(1);
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

}  // namespace

bool isOn(const xml::Element& element, Name attribute) {
  const auto value = find(element, attribute);
  return !value || !(*value == "0" || *value == "false" || *value == "off" || *value == "none");
}

std::optional<double> pointsOf(std::string_view value, double partsPerPoint) {
  std::string_view unit;
  const auto number = numberOf(value, &unit);
  if (!number) return std::nullopt;
  return unit.empty() ? *number / partsPerPoint : formats::pointsOf(value);
}

std::optional<double> pointsOf(const xml::Element& element, Name attribute, double partsPerPoint) {
  return pointsOf(valueOf(element, attribute), partsPerPoint);
}

std::optional<int> wholeNumberOf(std::string_view value) {
  const auto number = numberOf(value);
  if (!number) return std::nullopt;
  return static_cast<int>(std::clamp(*number, -1e9, 1e9));
}

bool isSameValue(std::string_view left, std::string_view right) {
  for (char letter = nextLetter(left);; letter = nextLetter(left)) {
    if (letter != nextLetter(right)) return false;
    if (letter == 0) return true;
  }
}

}  // namespace standin::formats::word_xml
