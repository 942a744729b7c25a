// The wrappers of CoreFoundation, CoreText and CoreGraphics objects: CFObjectZKT and a subclass for each type.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"

namespace siblings {
namespace {

constexpr char rootClass[] = "CFObjectZKT";

// Instance data: the object, a word of no use here, and the tag by which such a wrapper is known.
constexpr size_t tagWord = 2;
constexpr uint64_t tag = 0x52424346;

constexpr struct {
  const char* name;
  const char* superclass = rootClass;
} classes[] = {
    {"CFURLZKT"},
    {"CFDictionaryZKT"},
    {"CFMutableDictionaryZKT", "CFDictionaryZKT"},
    {"CFStringZKT"},
    {"CFMutableStringZKT", "CFStringZKT"},
    {"CFNumberZKT"},
    {"CFArrayZKT"},
    {"CFMutableArrayZKT", "CFArrayZKT"},
    {"CFBooleanZKT"},
    {"CFBinaryDataZKT"},
    {"CFCharacterSetZKT"},
    {"CFBundleZKT"},
    {"CFSetZKT"},
    {"CFBagZKT"},
    {"CFUUIDZKT"},
    {"CFTimeZoneZKT"},
    {"CFDateZKT"},
    {"CFAttributedStringZKT"},
    {"CFMutableAttributedStringZKT", "CFAttributedStringZKT"},
    {"CFErrorZKT"},
    {"CTFontZKT"},
    {"CTFontCollectionZKT"},
    {"CTFrameZKT"},
    {"CTFramesetterZKT"},
    {"CTGlyphInfoZKT"},
    {"CTLineZKT"},
    {"CTParagraphStyleZKT"},
    {"CTRunZKT"},
    {"CTTypesetterZKT"},
    {"CTRunDelegateZKT"},
    {"CGColorZKT"},
    {"CGFontZKT"},
    {"CGImageZKT"},
    {"CGColorSpaceZKT"},
    {"CGPathZKT"},
    {"CGContextZKT"},
    {"CGLayerZKT"},
};

void construct(HostObject* self) { self->word<uint64_t>(tagWord) = tag; }

void destroy(HostObject* self) {
  NSObject* object = std::exchange(self->word<NSObject*>(), nullptr);
  if (object == nullptr) return;
  guarded([object] { return CFRelease(object), true; });
}

HostString* description(HostObject* self, int64_t) {
  return guarded([self] { return hostString(NSObject::description(wrapped(self))); });
}

}  // namespace

void registerCoreFoundation() {
  ClassBuilder::registerWithHost(ClassBuilder(rootClass)
                                     .data((tagWord + 1) * sizeof(uint64_t), construct, destroy)
                                     .field("Handle", "Integer", 0)
                                     .property("description", "String", description));
  for (const auto& row : classes) ClassBuilder::registerWithHost(ClassBuilder(row.name, row.superclass));
}

}  // namespace siblings
