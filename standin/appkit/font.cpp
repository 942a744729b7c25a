// NSFont: a face in a size; equal fonts are one object.
#include "standin/appkit/font.hpp"

#include <bit>
#include <cstdio>
#include <map>
#include <utility>

#include "standin/appkit/attributes.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/runtime/exception.hpp"
#include "standin/text/font_faces.hpp"

using standin::foundation::newString;
using standin::foundation::utf8Of;
using standin::text::Font;

namespace standin::appkit {
namespace {

using FontKey = std::pair<std::string, uint64_t>;

// By bits, because a size may be any number.
FontKey keyOf(const Font& font) { return {font.name, std::bit_cast<uint64_t>(font.size)}; }

// The fonts alive. It owns none of them: each takes itself out when it goes.
std::map<FontKey, NSFont*>& fontsAlive() {
  static auto* const fonts = new std::map<FontKey, NSFont*>;
  return *fonts;
}

struct FontState : Object {
  explicit FontState(Font value) : font(std::move(value)) {}
  ~FontState() { fontsAlive().erase(keyOf(font)); }

  Font font;
};

// The platform's size for fonts of which none is asked.
constexpr double defaultSize = 12;
double sizeOrDefault(CGFloat size) { return size == 0 ? defaultSize : size; }

NSFont* fontWithName(Class, NSString* name, CGFloat size) {
  if (name == nullptr) return nullptr;
  const auto font = text::fontNamed(utf8Of(name), sizeOrDefault(size));
  return font ? fontObject(*font).autorelease() : nullptr;
}

template <const char* const& face>
NSFont* systemFace(Class, CGFloat size) {
  return fontObject(*text::fontNamed(face, sizeOrDefault(size))).autorelease();
}
constexpr const char* const regularFace = "Helvetica";
constexpr const char* const boldFace = "Helvetica-Bold";
constexpr const char* const fixedFace = "Monaco";

CGFloat pointSize(NSFont* self) { return fontOf(self).size; }
NSString* familyName(NSFont* self) { return newString(fontOf(self).family).autorelease(); }
NSString* fontName(NSFont* self) { return newString(fontOf(self).name).autorelease(); }
BOOL isFixedPitch(NSFont* self) { return (fontOf(self).traits & text::fixedPitchTrait) != 0; }

NSString* description(NSFont* self) {
  char text[256];
  std::snprintf(text, sizeof text, "\"%.200s %.2f pt.\"", fontOf(self).name.c_str(), fontOf(self).size);
  return newString(text).autorelease();
}

NSObject* copyWithZone(NSFont* self, void*) { return retainObject(self); }

const ClassDefinition fonts = defineClass<FontState>("NSFont", "NSObject")
                                  .classMethod<fontWithName>("fontWithName:size:")
                                  .classMethod<systemFace<regularFace>>("systemFontOfSize:")
                                  .classMethod<systemFace<regularFace>>("userFontOfSize:")
                                  .classMethod<systemFace<boldFace>>("boldSystemFontOfSize:")
                                  .classMethod<systemFace<fixedFace>>("userFixedPitchFontOfSize:")
                                  .method<pointSize>("pointSize")
                                  .method<familyName>("familyName")
                                  .method<fontName>("fontName")
                                  .method<fontName>("displayName")
                                  .method<isFixedPitch>("isFixedPitch")
                                  .method<description>("description")
                                  .method<copyWithZone>("copyWithZone:");

}  // namespace

Owned<NSFont> fontObject(const Font& font) {
  NSFont*& alive = fontsAlive()[keyOf(font)];
  if (alive != nullptr) return retain(alive);
  Owned<NSFont> made = create<FontState, NSFont>(fonts, font);
  alive = made;
  return made;
}

namespace {

bool isFont(NSObject* object) { return isKindOf(object, fonts.object()); }

}  // namespace

Font fontIn(text::AttributeHandle attributes) {
  NSObject* font = attributeIn(attributes, NSFontAttributeName);
  return isFont(font) ? fontOf(static_cast<NSFont*>(font)) : *text::fontNamed(regularFace, defaultSize);
}

// Attributes can hold any object where a font is expected.
const Font& fontOf(NSFont* font) {
  if (!isFont(font)) raise(NSInvalidArgumentException, describeMethod(font, "fontDescriptor") + ": unrecognized selector");
  return stateOf<FontState>(font).font;
}

}  // namespace standin::appkit
