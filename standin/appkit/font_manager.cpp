// NSFontManager: fonts by family, and conversion of a font to other traits, sizes and families.
#include "platform/appkit.h"
#include "standin/appkit/font.hpp"
#include "standin/appkit/font_conversion.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/text/font_faces.hpp"

using standin::foundation::utf8Of;
using standin::text::Font;

namespace standin::appkit {
namespace {

NSFontManager* shared(Class self) {
  static NSObject* const manager = makeImmortal(NSObject::init(NSObject::alloc(self)));
  return static_cast<NSFontManager*>(manager);
}

NSFont* objectOrNil(const std::optional<Font>& font) { return font ? fontObject(*font).autorelease() : nullptr; }
// A conversion that no face fits leaves the font as it is.
NSFont* objectOr(const std::optional<Font>& font, NSFont* unchanged) { return font ? objectOrNil(font) : unchanged; }

NSFont* fontWithFamily(NSFontManager*, NSString* family, NSFontTraitMask traits, NSInteger weight, CGFloat size) {
  if (family == nullptr) return nullptr;
  return objectOrNil(text::fontInFamily(utf8Of(family), traits, static_cast<int>(weight), size == 0 ? 12 : size));
}

NSFontTraitMask traitsOfFont(NSFontManager*, NSFont* font) { return font != nullptr ? fontOf(font).traits : 0; }
NSInteger weightOfFont(NSFontManager*, NSFont* font) { return font != nullptr ? fontOf(font).weight : 5; }

NSFont* convertToTrait(NSFontManager*, NSFont* font, NSFontTraitMask traits) {
  return font != nullptr ? fontObject(withTraits(fontOf(font), traits)).autorelease() : nullptr;
}

NSFont* convertToNotTrait(NSFontManager*, NSFont* font, NSFontTraitMask traits) {
  return font != nullptr ? fontObject(withoutTraits(fontOf(font), traits)).autorelease() : nullptr;
}

NSFont* convertToSize(NSFontManager*, NSFont* font, CGFloat size) {
  if (font == nullptr) return nullptr;
  Font resized = fontOf(font);
  resized.size = size == 0 ? 12 : size;
  return fontObject(resized).autorelease();
}

NSFont* convertToFamily(NSFontManager*, NSFont* font, NSString* family) {
  if (font == nullptr || family == nullptr) return font;
  const Font& old = fontOf(font);
  return objectOr(
      text::fontInFamily(utf8Of(family), old.traits & (text::boldTrait | text::italicTrait), old.weight, old.size), font);
}

NSArray* availableFontFamilies(NSFontManager*) {
  Owned<NSMutableArray> names = foundation::newMutableArray();
  for (const std::string_view name : text::familyNames()) NSMutableArray::addObject(names, foundation::newString(name));
  return names.autorelease();
}

[[maybe_unused]] const ClassDefinition managers = defineClass<>("NSFontManager", "NSObject")
                                                      .classMethod<shared>("sharedFontManager")
                                                      .method<fontWithFamily>("fontWithFamily:traits:weight:size:")
                                                      .method<traitsOfFont>("traitsOfFont:")
                                                      .method<weightOfFont>("weightOfFont:")
                                                      .method<convertToTrait>("convertFont:toHaveTrait:")
                                                      .method<convertToNotTrait>("convertFont:toNotHaveTrait:")
                                                      .method<convertToSize>("convertFont:toSize:")
                                                      .method<convertToFamily>("convertFont:toFamily:")
                                                      .method<availableFontFamilies>("availableFontFamilies");

}  // namespace
}  // namespace standin::appkit
