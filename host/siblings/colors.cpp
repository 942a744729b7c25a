// Colours.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"
#include "platform/appkit.h"

namespace siblings {
namespace {

constexpr char colorClass[] = "NSColorZKT";

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
  ClassBuilder::registerWithHost(
      ClassBuilder(colorClass)
          .wrapper()
          .property("redComponent", "Double", component<NSColor::redComponent>)
          .property("greenComponent", "Double", component<NSColor::greenComponent>)
          .property("blueComponent", "Double", component<NSColor::blueComponent>)
          .property("whiteComponent", "Double", component<NSColor::whiteComponent>)
          .property("alphaComponent", "Double", component<NSColor::alphaComponent>)
          .property("colorSpaceName", "String", colorSpaceName)
          .method("colorUsingColorSpaceName(name as String) as NSColorZKT", usingColorSpace)
          .method("isEqual(other as NSColorZKT) as Boolean", isEqual)
          .shared("blackColor as NSColorZKT", make<NSColor::blackColor>)
          .shared("colorWithCalibratedWhite(white as Double, alpha as Double = 1.0) as NSColorZKT",
                  make<NSColor::colorWithCalibratedWhite, double, double>)
          .shared("colorWithDeviceWhite(white as Double, alpha as Double = 1.0) as NSColorZKT",
                  make<NSColor::colorWithDeviceWhite, double, double>)
          .shared(
              "colorWithCalibratedRGB(red as Double, green as Double, blue as Double, alpha as Double = 1.0) as NSColorZKT",
              make<NSColor::colorWithCalibratedRGB, double, double, double, double>)
          .shared("colorWithDeviceRGB(red as Double, green as Double, blue as Double, alpha as Double = 1.0) as NSColorZKT",
                  make<NSColor::colorWithDeviceRGB, double, double, double, double>)
          .shared("colorWithDeviceCMYK(cyan as Double, magenta as Double, yellow as Double, black as Double, "
                  "alpha as Double = 1.0) as NSColorZKT",
                  make<NSColor::colorWithDeviceCMYK, double, double, double, double, double>));
}

}  // namespace siblings
