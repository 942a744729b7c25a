// NSTextTab: a place in the line and how text stands at it.
#include <functional>

#include "standin/appkit/paragraph_style.hpp"
#include "standin/runtime/class_definition.hpp"

namespace standin::appkit {
namespace {

struct TextTab : Object {
  text::TabStop stop;
};

// Alignments have the numbers of the kinds; a decimal tab counts as right aligned.
constexpr text::TabKind kindOfAlignment(NSUInteger alignment) {
  constexpr text::TabKind kinds[] = {text::TabKind::left, text::TabKind::right, text::TabKind::center};
  return alignment < std::size(kinds) ? kinds[alignment] : text::TabKind::left;
}

NSTextTab* initWithType(NSTextTab* self, NSUInteger type, CGFloat location) {
  stateOf<TextTab>(self).stop = {location, type <= 3 ? static_cast<text::TabKind>(type) : text::TabKind::left};
  return self;
}

NSTextTab* initWithAlignment(NSTextTab* self, NSUInteger alignment, CGFloat location, NSDictionary*) {
  stateOf<TextTab>(self).stop = {location, kindOfAlignment(alignment)};
  return self;
}

CGFloat location(TextTab& self) { return self.stop.position; }
NSUInteger tabStopType(TextTab& self) { return static_cast<NSUInteger>(self.stop.kind); }
NSUInteger alignment(TextTab& self) {
  constexpr NSUInteger alignments[] = {0, 1, 2, 1};
  return alignments[static_cast<size_t>(self.stop.kind)];
}

BOOL isEqual(NSTextTab* self, NSObject* other) {
  static ClassObject* const tabs = reinterpret_cast<ClassObject*>(classOf<NSTextTab>());
  return isKindOf(other, tabs) && tabStopOf(self) == tabStopOf(static_cast<NSTextTab*>(other));
}
NSUInteger hash(TextTab& self) { return std::hash<double>()(self.stop.position); }
NSObject* copyWithZone(NSTextTab* self, void*) { return retainObject(self); }

const ClassDefinition tabs = defineClass<TextTab>("NSTextTab", "NSObject")
                                 .method<initWithType>("initWithType:location:")
                                 .method<initWithAlignment>("initWithTextAlignment:location:options:")
                                 .method<location>("location")
                                 .method<tabStopType>("tabStopType")
                                 .method<alignment>("alignment")
                                 .method<isEqual>("isEqual:")
                                 .method<hash>("hash")
                                 .method<copyWithZone>("copyWithZone:");

}  // namespace

Owned<NSTextTab> newTextTab(const text::TabStop& tab) { return create<TextTab, NSTextTab>(tabs, tab); }

const text::TabStop& tabStopOf(NSTextTab* tab) { return stateOf<TextTab>(tab).stop; }

}  // namespace standin::appkit
