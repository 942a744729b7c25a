// The part that holds the theme, and the look-ups in it.
#include "standin/formats/word_xml/theme.hpp"

#include <charconv>

#include "standin/formats/colors.hpp"

namespace standin::formats::word_xml {
namespace {

constexpr size_t mostColors = 100;  // a scheme has twelve

struct Alias {
  std::string_view name, entry;
};
constexpr Alias colorAliases[] = {
    {"text1", "dk1"},       {"background1", "lt1"},
    {"text2", "dk2"},       {"background2", "lt2"},
    {"dark1", "dk1"},       {"light1", "lt1"},
    {"dark2", "dk2"},       {"light2", "lt2"},
    {"tx1", "dk1"},         {"bg1", "lt1"},
    {"hyperlink", "hlink"}, {"tx2", "dk2"},
    {"bg2", "lt2"},         {"followedHyperlink", "folHlink"},
};

std::string_view entryOf(std::string_view name) {
  for (const Alias& alias : colorAliases) {
    if (alias.name == name) return alias.entry;
  }
  return name;
}

// From 0 to 1; 1 when there is none.
double portionOf(std::string_view hexadecimal) {
  unsigned value = 255;
  std::from_chars(hexadecimal.data(), hexadecimal.data() + hexadecimal.size(), value, 16);
  return value <= 255 ? value / 255.0 : 1;
}

}  // namespace

std::optional<text::Color> Theme::color(std::string_view name, std::string_view tint, std::string_view shade) const {
  const auto found = colors.find(entryOf(name));
  if (found == colors.end()) return std::nullopt;
  text::Color color = found->second;
  for (size_t index = 0; index < 3; ++index) {
    double& component = color.components[index];
    component = (1 - (1 - component) * portionOf(tint)) * portionOf(shade);
  }
  return color;
}

// High characters have no font of their own in themes.
std::string_view Theme::font(std::string_view name) const {
  const std::string key(name.ends_with("HAnsi") ? std::string(name.substr(0, name.size() - 5)) + "Ascii" : name);
  const auto found = fonts.find(key);
  return found != fonts.end() ? std::string_view(found->second) : std::string_view();
}

void ThemeHandler::startElement(const xml::Element& element) {
  switch (nameOf(element)) {
    case Name::colorScheme:
      inColors_ = true;
      break;
    case Name::majorFont:
      series_ = "major";
      break;
    case Name::minorFont:
      series_ = "minor";
      break;
    case Name::latinTypeface:
      takeTypeface("Ascii", element);
      break;
    case Name::eastAsianTypeface:
      takeTypeface("EastAsia", element);
      break;
    case Name::complexTypeface:
      takeTypeface("Bidi", element);
      break;
    case Name::rgbColor:
    case Name::systemColor: {
      const bool isSystem = nameOf(element) == Name::systemColor;
      const auto color = colorNamed(valueOf(element, isSystem ? Name::lastColor : Name::unqualifiedValue));
      if (inColors_ && color && theme_.colors.size() < mostColors) theme_.colors.emplace(entry_, *color);
      break;
    }
    default:
      if (inColors_) entry_ = element.local;
      break;
  }
}

void ThemeHandler::endElement(xml::NameNumber name) {
  if (nameOf(name) == Name::colorScheme) inColors_ = false;
  if (nameOf(name) == Name::majorFont || nameOf(name) == Name::minorFont) series_ = {};
}

void ThemeHandler::takeTypeface(std::string_view script, const xml::Element& element) {
  const std::string_view typeface = valueOf(element, Name::typeface);
  if (!series_.empty() && !typeface.empty()) theme_.fonts.emplace(std::string(series_) += script, typeface);
}

}  // namespace standin::formats::word_xml
