// Faces found through fontconfig.
#include "standin/layout/faces.hpp"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string_view>

#include "standin/text/font_patterns.hpp"

namespace standin::layout {
namespace {

using Pattern = text::FontPattern;
using text::FontSet;

// The platform's weights as fontconfig's, from 0 to 15.
constexpr int weights[] = {0, 0, 40, 50, 55, 80, 100, 150, 180, 200, 205, 210, 210, 215, 215, 215};

int weightOf(const text::Font& font) {
  const int weight = weights[std::clamp<size_t>(static_cast<size_t>(std::max(font.weight, 0)), 0, std::size(weights) - 1)];
  return font.bold() ? std::max(weight, FC_WEIGHT_BOLD) : weight;
}

// What an unknown font is taken for, by the kind that the system's configuration puts it in.
constexpr struct {
  std::string_view kind;
  const char* family;
} standIns[] = {{"sans-serif", "Helvetica"}, {"serif", "Times"}, {"monospace", "Courier"}, {"system-ui", "Helvetica"}};

Pattern request(const char* family, const text::Font& font) {
  Pattern pattern(FcPatternCreate());
  FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, weightOf(font));
  FcPatternAddInteger(pattern.get(), FC_SLANT, font.italic() ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  return pattern;
}

std::string_view stringIn(const FcPattern* pattern, const char* key, int index = 0) {
  FcChar8* value = nullptr;
  if (FcPatternGetString(pattern, key, index, &value) != FcResultMatch) return {};
  return reinterpret_cast<const char*>(value);
}

int integerIn(const FcPattern* pattern, const char* key) {
  int value = 0;
  FcPatternGetInteger(pattern, key, 0, &value);
  return value;
}

// Only these kinds of font files can be read and embedded.
bool isReadable(const FcPattern* font) {
  const std::string_view format = stringIn(font, FC_FONTFORMAT);
  return format == "TrueType" || format == "CFF";
}

// As fontconfig compares the names of families: without spaces, in small letters.
std::string comparable(std::string_view family) {
  std::string name;
  for (const char letter : family) {
    if (letter != ' ') name += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
  }
  return name;
}

std::set<std::string> installedFamilies() {
  std::set<std::string> names;
  const Pattern all(FcPatternCreate());
  const std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)> families(FcObjectSetBuild(FC_FAMILY, nullptr),
                                                                             FcObjectSetDestroy);
  const FontSet fonts(FcFontList(nullptr, all.get(), families.get()));
  for (int font = 0; fonts != nullptr && font < fonts->nfont; ++font) {
    for (int index = 0; !stringIn(fonts->fonts[font], FC_FAMILY, index).empty(); ++index) {
      names.insert(comparable(stringIn(fonts->fonts[font], FC_FAMILY, index)));
    }
  }
  return names;
}

// Whether the configuration names a family that is meant as the one that is wanted or one of the same measures, and not just
// as an example of its kind. Otherwise answers in `standIn` what stands for the kind.
template <class IsMeant>
bool namesFamily(const FcPattern* wanted, std::string_view& standIn, IsMeant&& isMeant) {
  standIn = standIns[0].family;
  FcValue value;
  FcValueBinding binding;
  for (int index = 0; FcPatternGetWithBinding(wanted, FC_FAMILY, index, &value, &binding) == FcResultMatch; ++index) {
    const std::string_view name = stringIn(wanted, FC_FAMILY, index);
    if (binding != FcValueBindingWeak && isMeant(name)) return true;
    const auto* row = std::find_if(std::begin(standIns), std::end(standIns), [&](auto& each) { return each.kind == name; });
    if (row != std::end(standIns)) return standIn = row->family, false;
  }
  return false;
}

Pattern match(FcPattern* wanted) {
  FcResult result;
  return Pattern(FcFontMatch(nullptr, wanted, &result));
}

// Documents have far fewer.
constexpr size_t mostFonts = 2000;

int styleOf(const text::Font& font) { return (font.bold() ? 1 : 0) + (font.italic() ? 2 : 0) + font.weight * 4; }

}  // namespace

Face* Faces::open(const FileIndex& file) {
  return &faces_.try_emplace(file, file.first, static_cast<unsigned>(file.second) & 0xFFFF).first->second;
}

FaceUse Faces::use(const Installed& installed, const text::Font& font) {
  Face* face = open(installed.file);
  const bool isPlain = face->isPictorial();
  return {face, font.bold() && !installed.isBold && !isPlain, font.italic() && !installed.isItalic && !isPlain};
}

namespace {

template <class Installed>
Installed installed(const FcPattern* font) {
  if (font == nullptr || !isReadable(font)) return {{"", 0}, true, true};
  return {{std::string(stringIn(font, FC_FILE)), integerIn(font, FC_INDEX)},
          integerIn(font, FC_WEIGHT) >= FC_WEIGHT_DEMIBOLD,
          integerIn(font, FC_SLANT) != FC_SLANT_ROMAN};
}

}  // namespace

FaceUse Faces::forFont(const text::Font& font) {
  const auto key = std::pair(font.family, styleOf(font));
  if (const auto known = byFont_.find(key); known != byFont_.end()) return known->second;
  if (byFont_.size() > mostFonts) return byFont_.begin()->second;
  return byFont_[key] = use(find(font), font);
}

// Looking through all fonts takes a millisecond, so that it is not done for families that are not there.
Faces::Installed Faces::find(const text::Font& font) {
  if (families_.empty()) families_ = installedFamilies();
  const Pattern wanted = request(font.family.c_str(), font);
  std::string_view standIn;
  const auto isThere = [&](std::string_view name) { return families_.contains(comparable(name)); };
  if (namesFamily(wanted.get(), standIn, isThere)) {
    const Pattern found = match(wanted.get());
    const std::string_view family = found != nullptr ? stringIn(found.get(), FC_FAMILY) : std::string_view();
    const auto isFound = [&](std::string_view name) { return name == family; };
    if (found == nullptr || namesFamily(wanted.get(), standIn, isFound)) return installed<Installed>(found.get());
  }
  const auto [entry, isNew] = standIns_.try_emplace({std::string(standIn), styleOf(font)});
  if (isNew) entry->second = installed<Installed>(match(request(entry->first.first.c_str(), font).get()).get());
  return entry->second;
}

// Those faces that between them have every character, the plainest first.
const std::vector<Faces::Installed>& Faces::substitutes(const text::Font& font, bool asPicture) {
  const auto [entry, isNew] = substitutes_.try_emplace((styleOf(font) << 1) + (asPicture ? 1 : 0));
  if (isNew) {
    FcResult result;
    const FontSet fonts(
        FcFontSort(nullptr, request(asPicture ? "emoji" : "sans-serif", font).get(), FcTrue, nullptr, &result));
    for (int index = 0; fonts != nullptr && index < fonts->nfont; ++index) {
      if (isReadable(fonts->fonts[index])) entry->second.push_back(installed<Installed>(fonts->fonts[index]));
    }
  }
  return entry->second;
}

FaceUse Faces::forCharacter(char32_t character, const text::Font& font, bool asPicture) {
  const FaceUse own = forFont(font);
  if (!asPicture && own.face->has(character)) return own;
  const uint64_t key = (static_cast<uint64_t>(styleOf(font)) << 33) + (uint64_t{asPicture} << 32) + character;
  const auto [entry, isNew] = byCharacter_.try_emplace(key);
  if (!isNew) return entry->second.face != nullptr ? entry->second : own;
  for (const Installed& each : substitutes(font, asPicture)) {
    if (!open(each.file)->has(character)) continue;
    return entry->second = use(each, font);
  }
  return own;
}

FaceUse Faces::forCharacters(std::u32string_view characters, const text::Font& font) {
  for (const Installed& each : substitutes(font, false)) {
    if (open(each.file)->hasAll(characters)) return use(each, font);
  }
  return {};
}

}  // namespace standin::layout
