// Adds this folder's methods to the platform's classes when the library is loaded.
#include "html/attributes.hpp"
#include "html/color_palette.hpp"
#include "html/entities.hpp"
#include "html/escape.hpp"
#include "html/messages.hpp"
#include "html/reader.hpp"
#include "html/text.hpp"
#include "html/writer.hpp"

namespace html {

namespace {

NSMutableString* autoreleasedString(const std::u16string& units) {
  return static_cast<NSMutableString*>(
      NSString::stringWithCharacters(classOf<NSMutableString>(), units.data(), units.size()));
}

// NSAttributedString. An initialiser takes over the reference to its receiver, also when it raises.
NSAttributedString* initWithHTML(NSAttributedString* self, SEL, NSString* source) {
  Owned<NSAttributedString> receiver = adopt(self);
  const auto styled = read(source);
  return NSAttributedString::initWithAttributedString(receiver.detach(), styled);
}

void reset(NSObject*, SEL) { resetStyle(); }
void bold(NSObject*, SEL, BOOL on) { setTrait(NSBoldFontMask, on != NO); }
void italic(NSObject*, SEL, BOOL on) { setTrait(NSItalicFontMask, on != NO); }
void underline(NSObject*, SEL, BOOL on) { underlineFlag = on != NO; }

void applyCurrentAttributes(NSObject*, SEL, NSMutableAttributedString* text) {
  NSMutableAttributedString::addAttributes(text, currentAttributes(), {0, NSAttributedString::length(text)});
}

void push(NSObject*, SEL, NSObject* directive) { NSMutableArray::addObject(fontDirectiveStack, directive); }
void pop(NSObject*, SEL) {
  if (NSArray::count(fontDirectiveStack) > 0) NSMutableArray::removeLastObject(fontDirectiveStack);
}

NSString* document(NSAttributedString* self, SEL) { return autoreleasedString(write(self)); }
NSString* closing(NSObject*, SEL) { return autoreleasedString(closingTags()); }

NSData* richText(NSAttributedString* self, SEL) {
  const NSRange whole{0, NSAttributedString::length(self)};
  return NSAttributedString::RTFFromRange(self, whole, NSDictionary::dictionary(classOf<NSDictionary>()));
}

Owned<NSDictionary> newKeywordDictionary() {
  auto* table = NSMutableDictionary::dictionaryWithCapacity(classOf<NSMutableDictionary>(), std::size(entities));
  for (const Entity& entity : entities) {
    const char replacement[] = {entity.replacement, '\0'};
    NSMutableDictionary::setObject(table, literal(replacement), literal(entity.name.data()));
  }
  return retain<NSDictionary>(table);
}

void fillTables(Class, SEL) {
  if (keywordDictionary != nullptr) return;
  hold(keywordDictionary, newKeywordDictionary());
  NSColor* black = NSColor::blackColor(classOf<NSColor>());
  hold(blackColorString, retain(ColorPaletteZKT::stringForColor(classOf<ColorPaletteZKT>(), black)));
}

// NSString.
NSString* escaped(NSString* self, SEL) {
  const Units text(self);
  if (isEscaped(text)) return NSString::stringWithString(classOf<NSMutableString>(), self);
  std::u16string output;
  output.reserve(text.view().size());
  appendEscaped(text, output);
  return autoreleasedString(output);
}

// ColorPaletteZKT.
NSString* textForColorGamma(Class, SEL, NSColor* color, double gamma) {
  if (color == nullptr) return nullptr;
  return NSString::stringWithUTF8String(classOf<NSString>(), colorText(color, gamma).c_str());
}
NSString* textForColor(Class cls, SEL, NSColor* color) { return ColorPaletteZKT::stringForColorGamma(cls, color, 1.0); }
NSObject* sharedCopy(NSObject* self, SEL, void*) { return retain(self).detach(); }

template <class Signature, class Result, class... Arguments>
void add(Class cls, const Message<Signature>& message, Result (*function)(Arguments...), const char* types) {
  class_addMethod(cls, message.selector(), reinterpret_cast<IMP>(function), types);
}

void extendAttributedString() {
  const Class cls = classOf<NSAttributedString>();
  add(cls, initWithHTML_ZKT, initWithHTML, "@@:@");
  add(cls, resetAttributes, reset, "v@:");
  add(cls, setBold, bold, "v@:c");
  add(cls, setItalic, italic, "v@:c");
  add(cls, setUnderline, underline, "v@:c");
  add(cls, setCurrentAttributes, applyCurrentAttributes, "v@:@");
  add(cls, pushFontDirective, push, "v@:@");
  add(cls, popFontDirective, pop, "v@:");
  add(cls, htmlString_ZKT, document, "@@:");
  add(cls, closeTags, closing, "@@:");
  add(cls, rtf_ZKT, richText, "@@:");
  add(object_getClass(cls), didLoad, fillTables, "v@:");
}

void extendString() { add(classOf<NSString>(), htmlString_ZKT, escaped, "@@:"); }

void declareColorPalette() {
  const Class cls = objc_allocateClassPair(classOf<NSObject>(), ColorPaletteZKT::className_, 0);
  if (cls == nullptr) return;
  add(object_getClass(cls), ColorPaletteZKT::stringForColor, textForColor, "@@:@");
  add(object_getClass(cls), ColorPaletteZKT::stringForColorGamma, textForColorGamma, "@@:@d");
  add(cls, NSObject::copyWithZone, sharedCopy, "@@:^v");
  objc_registerClassPair(cls);
}

// As the image is loaded, before the host calls its entry point.
[[maybe_unused]] const bool extended = [] {
  extendAttributedString();
  extendString();
  declareColorPalette();
  return true;
}();

}  // namespace

}  // namespace html
