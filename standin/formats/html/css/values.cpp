// Lengths, colours and strings.
#include "standin/formats/html/css/values.hpp"

#include <unicode/utf8.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "standin/formats/colors.hpp"
#include "standin/formats/html/ascii.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::html::css {
namespace {

struct Unit {
  std::string_view name;
  double points;
};
constexpr Unit absoluteUnits[] = {{"px", 1},           {"pt", 1},  {"in", pointsPerInch},       {"cm", pointsPerInch / 2.54},
                                  {"mm", 72.0 / 25.4}, {"pc", 12}, {"q", pointsPerInch / 101.6}};
// In sizes of the font.
constexpr Unit fontUnits[] = {{"em", 1}, {"ex", 0.5}, {"ch", 0.5}};

template <size_t count>
const Unit* find(const Unit (&units)[count], std::string_view name) {
  const auto found =
      std::find_if(units, units + count, [&](const Unit& unit) { return equalIgnoringCase(unit.name, name); });
  return found != units + count ? found : nullptr;
}

// "rgb(" to ")": what is between, when the text is a call of one of the names.
std::optional<std::string_view> argumentsOf(std::string_view text, std::initializer_list<std::string_view> names) {
  const size_t open = text.find('(');
  if (open == std::string_view::npos || !text.ends_with(')')) return std::nullopt;
  for (const std::string_view name : names) {
    if (equalIgnoringCase(text.substr(0, open), name)) return text.substr(open + 1, text.size() - open - 2);
  }
  return std::nullopt;
}

// Between commas, or between spaces with a slash before the opacity.
std::vector<std::string_view> argumentsIn(std::string_view text) {
  if (text.find(',') != std::string_view::npos) return partsOf(text, ',');
  std::vector<std::string_view> arguments = wordsOf(text);
  std::erase(arguments, "/");
  return arguments;
}

// From 0 to 1; `whole` is what a plain number is a part of.
double fractionOf(std::string_view text, double whole) {
  const double value = percentageOf(text).value_or(numberOf(text).value_or(0) / whole);
  return std::clamp(value, 0.0, 1.0);
}

double opacityIn(const std::vector<std::string_view>& arguments) {
  return arguments.size() > 3 ? fractionOf(arguments[3], 1) : 1;
}

text::Color colorOfHue(double degrees, double saturation, double lightness) {
  const double amplitude = saturation * std::min(lightness, 1 - lightness);
  const auto component = [&](double offset) {
    const double place = std::fmod(std::fmod(offset + degrees / 30, 12) + 12, 12);
    const double value = lightness - amplitude * std::max(-1.0, std::min({place - 3, 9 - place, 1.0}));
    return static_cast<uint8_t>(std::lrint(std::clamp(value, 0.0, 1.0) * 255));
  };
  return formats::colorOf(component(0), component(8), component(4));
}

std::optional<text::Color> colorOfFunction(std::string_view text) {
  std::optional<text::Color> color;
  if (const auto rgb = argumentsOf(text, {"rgb", "rgba"})) {
    const auto arguments = argumentsIn(*rgb);
    if (arguments.size() < 3) return std::nullopt;
    const auto byte = [&](size_t index) {
      return static_cast<uint8_t>(std::lrint(fractionOf(arguments[index], 255) * 255));
    };
    color = formats::colorOf(byte(0), byte(1), byte(2));
    color->alpha = opacityIn(arguments);
  } else if (const auto hsl = argumentsOf(text, {"hsl", "hsla"})) {
    const auto arguments = argumentsIn(*hsl);
    if (arguments.size() < 3) return std::nullopt;
    color = colorOfHue(numberOf(arguments[0]).value_or(0), fractionOf(arguments[1], 100), fractionOf(arguments[2], 100));
    color->alpha = opacityIn(arguments);
  }
  return color && color->alpha > 0 ? color : std::nullopt;
}

// "#rgba" and "#rrggbbaa".
std::optional<text::Color> colorWithOpacity(std::string_view text) {
  if (text.size() != 5 && text.size() != 9) return std::nullopt;
  const size_t digits = (text.size() - 1) / 4;
  auto color = colorNamed(text.substr(0, text.size() - digits));
  const std::string_view opacity = text.substr(text.size() - digits);
  unsigned value = 0;
  if (!color || std::from_chars(opacity.data(), opacity.data() + digits, value, 16).ptr != text.data() + text.size()) {
    return std::nullopt;
  }
  color->alpha = value / (digits == 1 ? 15.0 : 255.0);
  return color->alpha > 0 ? color : std::nullopt;
}

// The position behind an escape, whose character is appended.
size_t appendEscape(std::string& out, std::string_view text, size_t at) {
  uint32_t code = 0;
  const char* const begin = text.data() + at;
  const char* const end = std::from_chars(begin, begin + std::min<size_t>(6, text.size() - at), code, 16).ptr;
  if (end == begin) {
    if (at < text.size() && text[at] != '\n') out += text[at];
    return std::min(at + 1, text.size());
  }
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) code = 0xFFFD;
  uint8_t bytes[4];
  int32_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, code);
  out.append(reinterpret_cast<const char*>(bytes), static_cast<size_t>(length));
  at += static_cast<size_t>(end - begin);
  return at < text.size() && isASCIISpace(text[at]) ? at + 1 : at;
}

}  // namespace

std::optional<double> lengthOf(std::string_view text, const FontSizes& sizes) {
  std::string_view unit;
  const auto number = numberOf(text, &unit);
  if (!number) return std::nullopt;
  if (unit.empty()) return *number == 0 ? number : std::nullopt;
  // To a thousandth, so that 0.67 times 24 is 16.08.
  const auto times = [&](double factor) { return std::round(*number * factor * 1000) / 1000; };
  if (const Unit* absolute = find(absoluteUnits, unit)) return times(absolute->points);
  if (const Unit* relative = find(fontUnits, unit)) return times(relative->points * sizes.own);
  return equalIgnoringCase(unit, "rem") ? std::optional(times(sizes.root)) : std::nullopt;
}

std::optional<double> percentageOf(std::string_view text) {
  std::string_view unit;
  const auto number = numberOf(text, &unit);
  return number && unit == "%" ? std::optional(*number / 100) : std::nullopt;
}

std::optional<double> plainNumberOf(std::string_view text) {
  std::string_view rest;
  const auto number = numberOf(text, &rest);
  return rest.empty() ? number : std::nullopt;
}

std::optional<text::Color> colorOf(std::string_view text) {
  if (text.find('(') != std::string_view::npos) return colorOfFunction(text);
  if (text.starts_with('#') && (text.size() == 5 || text.size() == 9)) return colorWithOpacity(text);
  const bool isName = text.starts_with('#') || (!text.empty() && isASCIILetter(text.front()));
  return isName ? colorNamed(text) : std::nullopt;
}

size_t findOutside(std::string_view text, std::string_view wanted, size_t from) {
  int depth = 0;
  for (size_t at = from; at < text.size(); ++at) {
    const char c = text[at];
    if (depth == 0 && wanted.find(c) != std::string_view::npos) return at;
    if (c == '\\') {
      ++at;
    } else if (c == '"' || c == '\'') {
      // A string ends with its line at the latest.
      for (++at; at < text.size() && text[at] != c && text[at] != '\n'; ++at) at += text[at] == '\\' ? 1 : 0;
    } else if (c == '(' || c == '[' || c == '{') {
      ++depth;
    } else if ((c == ')' || c == ']' || c == '}') && depth > 0) {
      --depth;
    }
  }
  return text.size();
}

std::vector<std::string_view> partsOf(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (size_t start = 0; start <= text.size();) {
    const size_t end = findOutside(text, {&separator, 1}, start);
    parts.push_back(trimmed(text.substr(start, end - start)));
    start = end + 1;
  }
  return parts;
}

std::vector<std::string_view> wordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  for (size_t start = 0; start < text.size();) {
    const size_t end = findOutside(text, " \t\n\r\f", start);
    if (end > start) words.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return words;
}

std::string stringOf(std::string_view text) {
  text = trimmed(text);
  const bool isQuoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
  if (isQuoted) text = text.substr(1, text.size() - 2);
  std::string result;
  for (size_t at = 0; at < text.size();) {
    if (text[at] == '\\') {
      at = appendEscape(result, text, at + 1);
    } else {
      result += text[at++];
    }
  }
  return result;
}

}  // namespace standin::formats::html::css
