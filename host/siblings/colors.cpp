// Colours.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"
#include "platform/appkit.h"

namespace siblings {
namespace {

constexpr char colorClass[] = "NSColorZKT";

// The platform's ready-made colours.
#define NAMED_COLORS(X) \
  X(blackColor)         \
  X(darkGrayColor)      \
  X(grayColor)          \
  X(lightGrayColor)     \
  X(whiteColor)         \
  X(clearColor)         \
  X(redColor)           \
  X(greenColor)         \
  X(blueColor)          \
  X(cyanColor)          \
  X(yellowColor)        \
  X(magentaColor)       \
  X(orangeColor)        \
  X(purpleColor)        \
  X(brownColor)
#define DEFINE_MESSAGE(name) constinit Message<NSColor*()> name{#name};
NAMED_COLORS(DEFINE_MESSAGE)
#undef DEFINE_MESSAGE

constinit Message<CGFloat()> cyanComponent{"cyanComponent"}, magentaComponent{"magentaComponent"},
    yellowComponent{"yellowComponent"}, blackComponent{"blackComponent"};

NSColor* colorIn(HostObject* self) { return wrapped<NSColor>(self); }

template <const auto& message, class... Components>
HostObject* make(Components... components) {
  return guarded([=] { return wrap(message(classOf<NSColor>(), components...), colorClass); });
}

template <const Message<CGFloat()>& message>
double component(HostObject* self, int64_t) {
  return guarded([self] { return message(colorIn(self)); });
}

HostString* colorSpaceName(HostObject* self, int64_t) { return hostString(NSColor::colorSpaceName(colorIn(self))); }

// Nil when the colour has no form in that space.
HostObject* usingColorSpace(HostObject* self, HostString* name) {
  return guarded([=] { return wrap(NSColor::colorUsingColorSpaceName(colorIn(self), platformString(name)), colorClass); });
}

bool isEqual(HostObject* self, HostObject* other) {
  return guarded([=] { return NSObject::isEqual(colorIn(self), colorIn(other)) != NO; });
}

}  // namespace

void registerColors() {
  ClassBuilder builder(colorClass);
  builder.wrapper()
      .property("redComponent", "Double", component<NSColor::redComponent>)
      .property("greenComponent", "Double", component<NSColor::greenComponent>)
      .property("blueComponent", "Double", component<NSColor::blueComponent>)
      .property("whiteComponent", "Double", component<NSColor::whiteComponent>)
      .property("cyanComponent", "Double", component<cyanComponent>)
      .property("magentaComponent", "Double", component<magentaComponent>)
      .property("yellowComponent", "Double", component<yellowComponent>)
      .property("blackComponent", "Double", component<blackComponent>)
      .property("alphaComponent", "Double", component<NSColor::alphaComponent>)
      .property("colorSpaceName", "String", colorSpaceName)
      .method("colorUsingColorSpaceName(name as String) as NSColorZKT", usingColorSpace)
      .method("isEqual(other as NSColorZKT) as Boolean", isEqual)
      .shared("colorWithCalibratedWhite(white as Double, alpha as Double = 1.0) as NSColorZKT",
              make<NSColor::colorWithCalibratedWhite, double, double>)
      .shared("colorWithDeviceWhite(white as Double, alpha as Double = 1.0) as NSColorZKT",
              make<NSColor::colorWithDeviceWhite, double, double>)
      .shared("colorWithCalibratedRGB(red as Double, green as Double, blue as Double, alpha as Double = 1.0) as NSColorZKT",
              make<NSColor::colorWithCalibratedRGB, double, double, double, double>)
      .shared("colorWithDeviceRGB(red as Double, green as Double, blue as Double, alpha as Double = 1.0) as NSColorZKT",
              make<NSColor::colorWithDeviceRGB, double, double, double, double>)
      .shared(
          "colorWithDeviceCMYK(cyan as Double, magenta as Double, yellow as Double, black as Double, "
          "alpha as Double = 1.0) as NSColorZKT",
          make<NSColor::colorWithDeviceCMYK, double, double, double, double, double>);
#define ADD_NAMED(name) builder.shared(#name " as NSColorZKT", make<name>);
  NAMED_COLORS(ADD_NAMED)
#undef ADD_NAMED
  ClassBuilder::registerWithHost(builder);
}

}  // namespace siblings
