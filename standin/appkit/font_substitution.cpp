// Font substitution by the glyphs that installed fonts have.
#include "standin/appkit/font_substitution.hpp"

#include <unicode/uchar.h>

#include <map>

#include "standin/text/font_patterns.hpp"

namespace standin::appkit {
namespace {

using Pattern = text::FontPattern;
using text::FontSet;

// What is looked for: a family, by the name that documents use.
Pattern request(const char* family) {
  Pattern pattern(FcPatternCreate());
  FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
  FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  return pattern;
}

// Nil fonts, and those that do not tell, have every glyph.
bool hasGlyph(const FcPattern* font, UChar32 character) {
  FcCharSet* characters = nullptr;
  if (font == nullptr || FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) != FcResultMatch) return true;
  return FcCharSetHasChar(characters, static_cast<FcChar32>(character));
}

const char* familyOf(const FcPattern* font) {
  FcChar8* name = nullptr;
  FcPatternGetString(font, FC_FAMILY, 0, &name);
  return reinterpret_cast<const char*>(name);
}

// Far more than are used; finding one takes a part of a millisecond, and what is found is kept.
constexpr size_t mostFamilies = 2000;

// The installed font that stands for the family; it may have another name. That of any other when there are too many.
const FcPattern* installedFont(const std::string& family) {
  static auto* const known = new std::map<std::string, Pattern>;
  if (known->size() > mostFamilies && !known->contains(family)) return known->begin()->second.get();
  const auto [entry, isNew] = known->try_emplace(family);
  FcResult result;
  if (isNew) entry->second.reset(FcFontMatch(nullptr, request(family.c_str()).get(), &result));
  return entry->second.get();
}

// Those fonts that between them have every glyph that the system has, the plainest first.
const FcFontSet* allFonts() {
  FcResult result;
  static const FontSet fonts(FcFontSort(nullptr, request("sans-serif").get(), FcTrue, nullptr, &result));
  return fonts.get();
}

// Nil when no font has the character.
const char* familyWith(UChar32 character) {
  const FcFontSet* fonts = allFonts();
  for (int index = 0; fonts != nullptr && index < fonts->nfont; ++index) {
    if (hasGlyph(fonts->fonts[index], character)) return familyOf(fonts->fonts[index]);
  }
  return nullptr;
}

// Separators, marks, controls, the unassigned and attachments: they have no glyphs, or join those of other characters.
bool followsOthers(UChar32 character) {
  return character == text::attachmentCharacter ||
         (U_GET_GC_MASK(character) & (U_GC_Z_MASK | U_GC_M_MASK | U_GC_C_MASK)) != 0;
}

bool isSpace(UChar32 character) { return (U_GET_GC_MASK(character) & U_GC_Z_MASK) != 0; }

// Takes characters in order and gathers the stretches that the font lacks.
class Finder {
 public:
  Finder(const std::string& family, uint32_t start) : font_(installedFont(family)), end_(start) {}

  void add(UChar32 character, uint32_t units) {
    const bool isOwnSpace = isSpace(character) && hasGlyph(font_, character);
    if (isOwnSpace) family_ = nullptr;
    if (!followsOthers(character)) family_ = hasGlyph(font_, character) ? nullptr : familyWith(character);
    if (family_ != nullptr) extend(units);
    end_ += units;
  }
  std::vector<Substitution> found;

 private:
  void extend(uint32_t units) {
    if (!found.empty() && found.back().range.end() == end_ && found.back().family == family_) {
      found.back().range.length += units;
    } else {
      found.push_back({{end_, units}, family_});
    }
  }

  const FcPattern* font_;
  const char* family_ = nullptr;  // of the last character that has a glyph of its own; nil: the font's own
  uint32_t end_;
};

}  // namespace

std::vector<Substitution> substitutions(const text::Text& text, text::UnitRange range, const std::string& family) {
  Finder finder(family, range.start);
  char16_t high = 0;
  text.visitChunks(range.start, range.length, [&](auto units) {
    for (const char16_t unit : units) {
      if (high != 0 && U16_IS_TRAIL(unit)) {
        finder.add(U16_GET_SUPPLEMENTARY(high, unit), 2);
        high = 0;
        continue;
      }
      if (high != 0) finder.add(high, 1);
      high = U16_IS_LEAD(unit) ? unit : u'\0';
      if (high == 0) finder.add(unit, 1);
    }
  });
  if (high != 0) finder.add(high, 1);
  return std::move(finder.found);
}

}  // namespace standin::appkit
