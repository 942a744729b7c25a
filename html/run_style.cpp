// Asks the platform about fonts once for each set of attributes.
#include "html/run_style.hpp"

#include <cstdint>

namespace html {

namespace {

FontStyle styleOf(NSFont* font) {
  if (font == nullptr) return {false, false, 0.0F};
  NSFontManager* manager = NSFontManager::sharedFontManager(classOf<NSFontManager>());
  const NSFontTraitMask traits = NSFontManager::traitsOfFont(manager, font);
  return {(traits & NSBoldFontMask) != 0, (traits & NSItalicFontMask) != 0, static_cast<float>(NSFont::pointSize(font))};
}

}  // namespace

RunStyle::RunStyle(NSDictionary* attributes)
    : link(NSDictionary::objectForKey(attributes, NSLinkAttributeName)),
      font(static_cast<NSFont*>(NSDictionary::objectForKey(attributes, NSFontAttributeName))),
      fontStyle(styleOf(font)),
      underline(NSNumber::boolValue(NSDictionary::objectForKey(attributes, NSUnderlineStyleAttributeName)) != NO),
      color(static_cast<NSColor*>(NSDictionary::objectForKey(attributes, NSForegroundColorAttributeName))) {}

const RunStyle& RunStyles::of(NSDictionary* attributes) {
  Slot& slot = slots_[(reinterpret_cast<uintptr_t>(attributes) >> 5) % slots_.size()];
  if (slot.attributes != attributes) slot = {retain(attributes), RunStyle(attributes)};
  return slot.style;
}

}  // namespace html
