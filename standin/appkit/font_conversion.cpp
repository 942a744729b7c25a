// Conversion of fonts to other traits: what each trait adds and takes away.
#include "standin/appkit/font_conversion.hpp"

#include "standin/text/font_faces.hpp"

namespace standin::appkit {
namespace {

using text::Font;

constexpr uint64_t widths = text::narrowTrait | text::expandedTrait | text::condensedTrait | text::compressedTrait;

// The traits, one bit each, in the order in which they are taken on. A face has one width at most.
constexpr struct {
  uint64_t asked, added, removed;
} changes[] = {
    {text::italicTrait, text::italicTrait, 0},
    {text::boldTrait, text::boldTrait, 0},
    {text::unboldTrait, 0, text::boldTrait},
    {text::narrowTrait, text::narrowTrait, widths},
    {text::expandedTrait, text::expandedTrait, widths},
    {text::condensedTrait, text::condensedTrait, widths},
    {text::smallCapsTrait, text::smallCapsTrait, 0},
    {text::posterTrait, text::posterTrait, 0},
    {text::compressedTrait, text::compressedTrait, widths},
    {text::fixedPitchTrait, text::fixedPitchTrait, 0},
    {text::unitalicTrait, 0, text::italicTrait},
};

// The weight stays, unless the change is one of boldness.
Font withExactTraits(const Font& font, uint64_t traits) {
  const bool boldChanges = ((traits ^ font.traits) & text::boldTrait) != 0;
  return text::fontInFamily(font.family, traits, boldChanges ? 5 : font.weight, font.size).value_or(font);
}

}  // namespace

Font withTraits(const Font& font, uint64_t traits) {
  Font converted = font;
  for (const auto& change : changes) {
    if ((traits & change.asked) == 0) continue;
    converted = withExactTraits(converted, (converted.traits & ~change.removed) | change.added);
  }
  return converted;
}

Font withoutTraits(const Font& font, uint64_t traits) { return withExactTraits(font, font.traits & ~traits); }

}  // namespace standin::appkit
