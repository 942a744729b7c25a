// Lookup in the table of font faces.
#include "standin/text/font_faces.hpp"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <span>

namespace standin::text {
namespace {

struct Face {
  std::string_view name;
  uint64_t traits;
  int weight;
};

constexpr uint64_t bold = boldTrait, italic = italicTrait, fixed = fixedPitchTrait;
constexpr int light = 3, regular = 5, medium = 6, heavy = 9;

constexpr Face helvetica[] = {{"Helvetica", 0, regular},       {"Helvetica-Oblique", italic, regular},
                              {"Helvetica-Bold", bold, heavy}, {"Helvetica-BoldOblique", bold | italic, heavy},
                              {"Helvetica-Light", 0, light},   {"Helvetica-LightOblique", italic, light}};
constexpr Face helveticaNeue[] = {{"HelveticaNeue", 0, regular},       {"HelveticaNeue-Italic", italic, regular},
                                  {"HelveticaNeue-Bold", bold, heavy}, {"HelveticaNeue-BoldItalic", bold | italic, heavy},
                                  {"HelveticaNeue-Light", 0, light},   {"HelveticaNeue-LightItalic", italic, light},
                                  {"HelveticaNeue-Medium", 0, medium}};
constexpr Face times[] = {{"Times-Roman", 0, regular},
                          {"Times-Italic", italic, regular},
                          {"Times-Bold", bold, heavy},
                          {"Times-BoldItalic", bold | italic, heavy}};
constexpr Face timesNewRoman[] = {{"TimesNewRomanPSMT", 0, regular},
                                  {"TimesNewRomanPS-ItalicMT", italic, regular},
                                  {"TimesNewRomanPS-BoldMT", bold, heavy},
                                  {"TimesNewRomanPS-BoldItalicMT", bold | italic, heavy}};
constexpr Face courier[] = {{"Courier", fixed, regular},
                            {"Courier-Oblique", italic | fixed, regular},
                            {"Courier-Bold", bold | fixed, heavy},
                            {"Courier-BoldOblique", bold | italic | fixed, heavy}};
constexpr Face courierNew[] = {{"CourierNewPSMT", fixed, regular},
                               {"CourierNewPS-ItalicMT", italic | fixed, regular},
                               {"CourierNewPS-BoldMT", bold | fixed, heavy},
                               {"CourierNewPS-BoldItalicMT", bold | italic | fixed, heavy}};
constexpr Face arial[] = {{"ArialMT", 0, regular},
                          {"Arial-ItalicMT", italic, regular},
                          {"Arial-BoldMT", bold, heavy},
                          {"Arial-BoldItalicMT", bold | italic, heavy}};
constexpr Face georgia[] = {{"Georgia", 0, regular},
                            {"Georgia-Italic", italic, regular},
                            {"Georgia-Bold", bold, heavy},
                            {"Georgia-BoldItalic", bold | italic, heavy}};
constexpr Face verdana[] = {{"Verdana", 0, regular},
                            {"Verdana-Italic", italic, regular},
                            {"Verdana-Bold", bold, heavy},
                            {"Verdana-BoldItalic", bold | italic, heavy}};
constexpr Face trebuchet[] = {{"TrebuchetMS", 0, regular},
                              {"TrebuchetMS-Italic", italic, regular},
                              {"TrebuchetMS-Bold", bold, heavy},
                              {"Trebuchet-BoldItalic", bold | italic, heavy}};
constexpr Face palatino[] = {{"Palatino-Roman", 0, regular},
                             {"Palatino-Italic", italic, regular},
                             {"Palatino-Bold", bold, heavy},
                             {"Palatino-BoldItalic", bold | italic, heavy}};
constexpr Face menlo[] = {{"Menlo-Regular", fixed, regular},
                          {"Menlo-Italic", italic | fixed, regular},
                          {"Menlo-Bold", bold | fixed, heavy},
                          {"Menlo-BoldItalic", bold | italic | fixed, heavy}};
constexpr Face lucidaGrande[] = {{"LucidaGrande", 0, regular}, {"LucidaGrande-Bold", bold, heavy}};
constexpr Face tahoma[] = {{"Tahoma", 0, regular}, {"Tahoma-Bold", bold, heavy}};
constexpr Face monaco[] = {{"Monaco", fixed, regular}};
constexpr Face symbol[] = {{"Symbol", 0, regular}};
constexpr Face dingbats[] = {{"ZapfDingbatsITC", 0, regular}};

struct Family {
  std::string_view name;
  std::span<const Face> faces;
};
constexpr Family families[] = {
    {"Helvetica", helvetica},
    {"Helvetica Neue", helveticaNeue},
    {"Times", times},
    {"Times New Roman", timesNewRoman},
    {"Courier", courier},
    {"Courier New", courierNew},
    {"Arial", arial},
    {"Georgia", georgia},
    {"Verdana", verdana},
    {"Trebuchet MS", trebuchet},
    {"Palatino", palatino},
    {"Menlo", menlo},
    {"Lucida Grande", lucidaGrande},
    {"Tahoma", tahoma},
    {"Monaco", monaco},
    {"Symbol", symbol},
    {"Zapf Dingbats", dingbats},
};

// Family and face names are ASCII.
bool sameName(std::string_view first, std::string_view second) {
  const auto lower = [](char letter) { return letter >= 'A' && letter <= 'Z' ? letter + ('a' - 'A') : +letter; };
  return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                    [&](char left, char right) { return lower(left) == lower(right); });
}

const Family* findFamily(std::string_view name) {
  const auto found = std::find_if(std::begin(families), std::end(families),
                                  [&](const Family& family) { return sameName(family.name, name); });
  return found != std::end(families) ? found : nullptr;
}

Font font(const Family& family, const Face& face, double size) {
  return {std::string(family.name), std::string(face.name), face.traits, face.weight, size};
}

Font unlistedFace(std::string_view family, uint64_t traits, double size) {
  std::string name;
  std::copy_if(family.begin(), family.end(), std::back_inserter(name), [](char letter) { return letter != ' '; });
  if (traits != 0) name += '-';
  if ((traits & boldTrait) != 0) name += "Bold";
  if ((traits & italicTrait) != 0) name += "Italic";
  return {std::string(family), name, traits, (traits & boldTrait) != 0 ? heavy : regular, size};
}

}  // namespace

std::optional<Font> fontNamed(std::string_view name, double size) {
  for (const Family& family : families) {
    for (const Face& face : family.faces) {
      if (sameName(face.name, name)) return font(family, face, size);
    }
  }
  return std::nullopt;
}

std::optional<Font> fontInFamily(std::string_view familyName, uint64_t traits, int weight, double size) {
  constexpr uint64_t decisive = boldTrait | italicTrait;
  constexpr uint64_t required = decisive | fixedPitchTrait | narrowTrait | expandedTrait | condensedTrait | smallCapsTrait;
  const Family* family = findFamily(familyName);
  if (family == nullptr) return std::nullopt;
  // A bold face is asked for by its trait; the weight then only has to be the bold one's.
  const int wanted = (traits & boldTrait) != 0 ? std::max(weight, heavy) : weight;
  const Face* best = nullptr;
  for (const Face& face : family->faces) {
    if (((face.traits ^ traits) & decisive) != 0 || (traits & required & ~face.traits) != 0) continue;
    if (best == nullptr || std::abs(face.weight - wanted) < std::abs(best->weight - wanted)) best = &face;
  }
  if (best == nullptr) return std::nullopt;
  return font(*family, *best, size);
}

std::optional<std::string_view> familyNamed(std::string_view name) {
  if (const Family* family = findFamily(name)) return family->name;
  for (const Family& family : families) {
    for (const Face& face : family.faces) {
      if (sameName(face.name, name)) return family.name;
    }
  }
  return std::nullopt;
}

Font fontMeant(std::string_view name, uint64_t traits, double size) {
  const auto named = fontNamed(name, size);
  if (named) traits |= named->traits & (bold | italic);
  const int weight = named ? named->weight : regular;
  const auto family = familyNamed(name);
  if (!family) return unlistedFace(name, traits, size);
  for (const uint64_t wanted : {traits, traits & bold, uint64_t{0}}) {
    if (const auto face = fontInFamily(*family, wanted, weight, size)) return *face;
  }
  return unlistedFace(name, traits, size);
}

std::vector<std::string_view> familyNames() {
  std::vector<std::string_view> names;
  for (const Family& family : families) names.push_back(family.name);
  return names;
}

}  // namespace standin::text
