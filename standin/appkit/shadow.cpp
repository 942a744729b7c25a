// NSShadow: offset, blur and colour, and making it the shadow of what is drawn.
#include "standin/appkit/shadow.hpp"

#include <cstdio>
#include <functional>

#include "standin/appkit/color.hpp"
#include "standin/appkit/drawing_context.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"

namespace standin::appkit {
namespace {

// The colour is held as the object that was set, so that whoever asks gets that one back.
struct ShadowState : Object {
  NSSize offset{};
  CGFloat blurRadius = 0;
  Owned<NSColor> color = newColor({text::ColorSpace::calibratedWhite, {0, 0, 0, 0}, 1 / 3.0});
};

CGFloat shadowBlurRadius(ShadowState& self) { return self.blurRadius; }
void setShadowBlurRadius(ShadowState& self, CGFloat radius) { self.blurRadius = radius; }
NSSize shadowOffset(ShadowState& self) { return self.offset; }
void setShadowOffset(ShadowState& self, NSSize offset) { self.offset = offset; }
NSColor* shadowColor(ShadowState& self) { return Owned<NSColor>(self.color).autorelease(); }
void setShadowColor(ShadowState& self, NSColor* color) { self.color = retain(color); }

// A shadow without a colour takes the shadow away.
void set(NSShadow* self) {
  const text::Shadow shadow = shadowOf(self);
  currentDrawingContext().shadow = shadow.color ? std::optional(shadow) : std::nullopt;
}

BOOL isEqual(NSShadow* self, NSObject* other) {
  static ClassObject* const shadows = reinterpret_cast<ClassObject*>(classOf<NSShadow>());
  return self == other || (isKindOf(other, shadows) && shadowOf(self) == shadowOf(static_cast<NSShadow*>(other)));
}

NSUInteger hash(ShadowState& self) {
  const std::hash<double> hashed;
  const size_t mixed = (hashed(self.offset.width) * 31 + hashed(self.offset.height)) * 31 + hashed(self.blurRadius);
  return mixed * 31 + (self.color ? NSObject::hash(self.color) : 0);
}

NSString* description(ShadowState& self) {
  char values[128];
  std::snprintf(values, sizeof values, "NSShadow {%g, %g} blur = %g color = {", self.offset.width, self.offset.height,
                self.blurRadius);
  return foundation::newString(values + foundation::describe(self.color) + "}").autorelease();
}

NSObject* copyWithZone(ShadowState& self, void*);

const ClassDefinition shadows = defineClass<ShadowState>("NSShadow", "NSObject")
                                    .method<shadowBlurRadius>("shadowBlurRadius")
                                    .method<setShadowBlurRadius>("setShadowBlurRadius:")
                                    .method<shadowOffset>("shadowOffset")
                                    .method<setShadowOffset>("setShadowOffset:")
                                    .method<shadowColor>("shadowColor")
                                    .method<setShadowColor>("setShadowColor:")
                                    .method<set>("set")
                                    .method<isEqual>("isEqual:")
                                    .method<hash>("hash")
                                    .method<description>("description")
                                    .method<copyWithZone>("copyWithZone:");

Owned<NSShadow> newShadow(NSSize offset, CGFloat blurRadius, Owned<NSColor> color) {
  Owned<NSShadow> made = create<ShadowState, NSShadow>(shadows);
  ShadowState& state = stateOf<ShadowState>(made);
  state.offset = offset;
  state.blurRadius = blurRadius;
  state.color = std::move(color);
  return made;
}

NSObject* copyWithZone(ShadowState& self, void*) { return newShadow(self.offset, self.blurRadius, self.color).detach(); }

}  // namespace

Owned<NSShadow> newShadow(const text::Shadow& shadow) {
  return newShadow({shadow.offsetX, shadow.offsetY}, shadow.blurRadius, shadow.color ? newColor(*shadow.color) : nullptr);
}

text::Shadow shadowOf(NSShadow* shadow) {
  const ShadowState& state = stateOf<ShadowState>(shadow);
  text::Shadow value{state.offset.width, state.offset.height, state.blurRadius, {}};
  if (state.color) value.color = colorOf(state.color);
  return value;
}

}  // namespace standin::appkit
