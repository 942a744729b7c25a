// Fonts and the font manager.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"
#include "platform/appkit.h"

namespace siblings {
namespace {

constexpr char fontClass[] = "NSFontZKT";
constexpr char managerClass[] = "NSFontManagerZKT";

NSFontManager* sharedPlatformManager() { return NSFontManager::sharedFontManager(classOf<NSFontManager>()); }
NSFont* fontIn(HostObject* self) { return wrapped<NSFont>(self); }

template <const Message<NSString*()>& message>
HostString* text(HostObject* self, int64_t) {
  return guarded([self] { return hostString(message(fontIn(self))); });
}

double pointSize(HostObject* self, int64_t) { return NSFont::pointSize(fontIn(self)); }

int64_t traits(HostObject* self, int64_t) {
  NSFont* font = fontIn(self);
  if (font == nullptr) return 0;
  return guarded([font] { return static_cast<int64_t>(NSFontManager::traitsOfFont(sharedPlatformManager(), font)); });
}

template <NSFontTraitMask mask>
bool hasTrait(HostObject* self, int64_t parameter) {
  return (static_cast<NSFontTraitMask>(traits(self, parameter)) & mask) != 0;
}

int64_t weight(HostObject* self, int64_t) {
  NSFont* font = fontIn(self);
  if (font == nullptr) return 0;
  return guarded([font] { return static_cast<int64_t>(NSFontManager::weightOfFont(sharedPlatformManager(), font)); });
}

HostObject* fontWithName(HostString* name, double size) {
  return guarded([=] { return wrap(NSFont::fontWithName(classOf<NSFont>(), platformString(name), size), fontClass); });
}

HostObject* sharedManager() { return wrap(sharedPlatformManager(), managerClass); }

HostObject* fontWithFamily(HostObject* self, HostString* family, int64_t traits, int64_t weight, double size) {
  return guarded([=] {
    NSFont* font = NSFontManager::fontWithFamily(wrapped<NSFontManager>(self), platformString(family),
                                                 static_cast<NSFontTraitMask>(traits), weight, size);
    return wrap(font, fontClass);
  });
}

int64_t traitsOfFont(HostObject*, HostObject* font) { return traits(font, 0); }
int64_t weightOfFont(HostObject*, HostObject* font) { return weight(font, 0); }

}  // namespace

void registerFonts() {
  ClassBuilder::registerWithHost(ClassBuilder(fontClass)
                                     .wrapper()
                                     .property("fontName", "String", text<NSFont::fontName>)
                                     .property("familyName", "String", text<NSFont::familyName>)
                                     .property("pointSize", "Double", pointSize)
                                     .property("traits", "Integer", traits)
                                     .property("isBold", "Boolean", hasTrait<NSBoldFontMask>)
                                     .property("isItalic", "Boolean", hasTrait<NSItalicFontMask>)
                                     .property("weight", "Integer", weight)
                                     .shared("fontWithName(name as String, size as Double) as NSFontZKT", fontWithName));
  ClassBuilder::registerWithHost(
      ClassBuilder(managerClass)
          .wrapper()
          .constant("NSItalicFontMask = 1")
          .constant("NSBoldFontMask = 2")
          .constant("NSUnboldFontMask = 4")
          .constant("NSExpandedFontMask = 32")
          .constant("NSCondensedFontMask = 64")
          .constant("NSSmallCapsFontMask = 128")
          .constant("NSFixedPitchFontMask = 1024")
          .constant("NSUnitalicFontMask = 16777216")
          .method("fontWithFamily(family as String, traits as Integer, weight as Integer, size as Double) as NSFontZKT",
                  fontWithFamily)
          .method("traitsOfFont(font as NSFontZKT) as Integer", traitsOfFont)
          .method("weightOfFont(font as NSFontZKT) as Integer", weightOfFont)
          .shared("sharedFontManager as NSFontManagerZKT", sharedManager));
}

}  // namespace siblings
