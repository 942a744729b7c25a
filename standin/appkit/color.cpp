// NSColor: one private class a colour space, named colours, conversion by space name.
#include "standin/appkit/color.hpp"

#include <cmath>
#include <cstdio>
#include <functional>
#include <string>

#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/runtime/exception.hpp"

using standin::foundation::constantString;
using standin::foundation::newString;
using standin::text::Color;
using standin::text::ColorSpace;

extern "C" {
NSString* const NSCalibratedRGBColorSpace = constantString("NSCalibratedRGBColorSpace");
NSString* const NSCalibratedWhiteColorSpace = constantString("NSCalibratedWhiteColorSpace");
NSString* const NSDeviceRGBColorSpace = constantString("NSDeviceRGBColorSpace");
NSString* const NSDeviceWhiteColorSpace = constantString("NSDeviceWhiteColorSpace");
NSString* const NSDeviceCMYKColorSpace = constantString("NSDeviceCMYKColorSpace");
}

namespace standin::appkit {
namespace {

struct ColorState : Object {
  Color color;
};

const ClassDefinition calibratedRGB = defineClass<ColorState>("NSCalibratedRGBColor", "NSColor");
const ClassDefinition deviceRGB = defineClass<ColorState>("NSDeviceRGBColor", "NSColor");
const ClassDefinition calibratedWhite = defineClass<ColorState>("NSCalibratedWhiteColor", "NSColor");
const ClassDefinition deviceWhite = defineClass<ColorState>("NSDeviceWhiteColor", "NSColor");
const ClassDefinition deviceCMYK = defineClass<ColorState>("NSDeviceCMYKColor", "NSColor");

struct SpaceRow {
  ColorSpace space;
  NSString* const* name;
  const ClassDefinition* definition;
  size_t components;
};
const SpaceRow spaces[] = {
    {ColorSpace::calibratedRGB, &NSCalibratedRGBColorSpace, &calibratedRGB, 3},
    {ColorSpace::deviceRGB, &NSDeviceRGBColorSpace, &deviceRGB, 3},
    {ColorSpace::calibratedWhite, &NSCalibratedWhiteColorSpace, &calibratedWhite, 1},
    {ColorSpace::deviceWhite, &NSDeviceWhiteColorSpace, &deviceWhite, 1},
    {ColorSpace::deviceCMYK, &NSDeviceCMYKColorSpace, &deviceCMYK, 4},
};

const SpaceRow& rowOf(ColorSpace space) {
  for (const SpaceRow& row : spaces) {
    if (row.space == space) return row;
  }
  return spaces[0];
}

NSColor* rgb(ColorSpace space, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return newColor({space, {red, green, blue, 0}, alpha}).autorelease();
}
NSColor* white(ColorSpace space, CGFloat value, CGFloat alpha) {
  return newColor({space, {value, 0, 0, 0}, alpha}).autorelease();
}

NSColor* colorWithCalibratedRGB(Class, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return rgb(ColorSpace::calibratedRGB, red, green, blue, alpha);
}
NSColor* colorWithDeviceRGB(Class, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return rgb(ColorSpace::deviceRGB, red, green, blue, alpha);
}
NSColor* colorWithCalibratedWhite(Class, CGFloat value, CGFloat alpha) {
  return white(ColorSpace::calibratedWhite, value, alpha);
}
NSColor* colorWithDeviceWhite(Class, CGFloat value, CGFloat alpha) { return white(ColorSpace::deviceWhite, value, alpha); }
NSColor* colorWithDeviceCMYK(Class, CGFloat cyan, CGFloat magenta, CGFloat yellow, CGFloat black, CGFloat alpha) {
  return newColor({ColorSpace::deviceCMYK, {cyan, magenta, yellow, black}, alpha}).autorelease();
}

// The colours that have a message of their own. Each is one object for the life of the process.
constexpr Color grey(double value, double alpha = 1) { return {ColorSpace::calibratedWhite, {value, 0, 0, 0}, alpha}; }
constexpr Color solid(double red, double green, double blue) {
  return {ColorSpace::calibratedRGB, {red, green, blue, 0}, 1};
}

template <const Color& color>
NSColor* named(Class) {
  static NSColor* const made = static_cast<NSColor*>(makeImmortal(newColor(color).detach()));
  return made;
}

constexpr Color black = grey(0), darkGray = grey(1 / 3.0), lightGray = grey(2 / 3.0), gray = grey(0.5), whiteColor = grey(1),
                clear = grey(0, 0), red = solid(1, 0, 0), green = solid(0, 1, 0), blue = solid(0, 0, 1),
                cyan = solid(0, 1, 1), yellow = solid(1, 1, 0), magenta = solid(1, 0, 1), orange = solid(1, 0.5, 0),
                purple = solid(0.5, 0, 0.5), brown = solid(0.6, 0.4, 0.2);

NSColor* converted(NSColor* self, NSString* name) {
  if (name == nullptr) return nullptr;
  for (const SpaceRow& row : spaces) {
    if (!NSString::isEqualToString(name, *row.name)) continue;
    if (row.space == colorOf(self).space) return self;
    return newColor(convert(colorOf(self), row.space)).autorelease();
  }
  return nullptr;
}

NSString* colorSpaceName(NSColor* self) { return *rowOf(colorOf(self).space).name; }

// The colour, when its space has such components; reading others is the caller's mistake.
const Color& requireComponents(NSColor* self, size_t components, const char* selector) {
  const Color& color = colorOf(self);
  if (rowOf(color.space).components == components) return color;
  raise(NSInvalidArgumentException, describeMethod(self, selector) + ": not valid for a colour of the space " +
                                        NSString::UTF8String(colorSpaceName(self)) + "; convert it first");
}

void getRGBA(NSColor* self, CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) {
  const Color& color = requireComponents(self, 3, "getRed:green:blue:alpha:");
  CGFloat* const wanted[] = {red, green, blue};
  for (size_t index = 0; index < 3; ++index) {
    if (wanted[index] != nullptr) *wanted[index] = color.components[index];
  }
  if (alpha != nullptr) *alpha = color.alpha;
}

CGFloat redComponent(NSColor* self) { return requireComponents(self, 3, "redComponent").components[0]; }
CGFloat greenComponent(NSColor* self) { return requireComponents(self, 3, "greenComponent").components[1]; }
CGFloat blueComponent(NSColor* self) { return requireComponents(self, 3, "blueComponent").components[2]; }
CGFloat whiteComponent(NSColor* self) { return requireComponents(self, 1, "whiteComponent").components[0]; }
CGFloat cyanComponent(NSColor* self) { return requireComponents(self, 4, "cyanComponent").components[0]; }
CGFloat magentaComponent(NSColor* self) { return requireComponents(self, 4, "magentaComponent").components[1]; }
CGFloat yellowComponent(NSColor* self) { return requireComponents(self, 4, "yellowComponent").components[2]; }
CGFloat blackComponent(NSColor* self) { return requireComponents(self, 4, "blackComponent").components[3]; }
CGFloat alphaComponent(NSColor* self) { return colorOf(self).alpha; }

NSInteger numberOfComponents(NSColor* self) { return static_cast<NSInteger>(rowOf(colorOf(self).space).components) + 1; }

BOOL isEqual(NSColor* self, NSObject* other) {
  static ClassObject* const colors = reinterpret_cast<ClassObject*>(classOf<NSColor>());
  return self == other || (isKindOf(other, colors) && colorOf(self) == colorOf(static_cast<NSColor*>(other)));
}

NSUInteger hash(NSColor* self) {
  const Color& color = colorOf(self);
  size_t mixed = std::hash<double>()(color.alpha);
  for (const double component : color.components) mixed = mixed * 31 + std::hash<double>()(component);
  return mixed;
}

NSString* description(NSColor* self) {
  const Color& color = colorOf(self);
  std::string text = NSString::UTF8String(colorSpaceName(self));
  char number[32];
  for (size_t index = 0; index < rowOf(color.space).components; ++index) {
    std::snprintf(number, sizeof number, " %g", color.components[index]);
    text += number;
  }
  std::snprintf(number, sizeof number, " %g", color.alpha);
  return newString(text + number).autorelease();
}

NSObject* copyWithZone(NSColor* self, void*) { return retainObject(self); }

[[maybe_unused]] const ClassDefinition colors =
    defineClass<ColorState>("NSColor", "NSObject")
        .classMethod<colorWithCalibratedRGB>("colorWithCalibratedRed:green:blue:alpha:")
        .classMethod<colorWithDeviceRGB>("colorWithDeviceRed:green:blue:alpha:")
        .classMethod<colorWithCalibratedWhite>("colorWithCalibratedWhite:alpha:")
        .classMethod<colorWithDeviceWhite>("colorWithDeviceWhite:alpha:")
        .classMethod<colorWithDeviceCMYK>("colorWithDeviceCyan:magenta:yellow:black:alpha:")
        .classMethod<named<black>>("blackColor")
        .classMethod<named<darkGray>>("darkGrayColor")
        .classMethod<named<lightGray>>("lightGrayColor")
        .classMethod<named<gray>>("grayColor")
        .classMethod<named<whiteColor>>("whiteColor")
        .classMethod<named<clear>>("clearColor")
        .classMethod<named<red>>("redColor")
        .classMethod<named<green>>("greenColor")
        .classMethod<named<blue>>("blueColor")
        .classMethod<named<cyan>>("cyanColor")
        .classMethod<named<yellow>>("yellowColor")
        .classMethod<named<magenta>>("magentaColor")
        .classMethod<named<orange>>("orangeColor")
        .classMethod<named<purple>>("purpleColor")
        .classMethod<named<brown>>("brownColor")
        .method<converted>("colorUsingColorSpaceName:")
        .method<colorSpaceName>("colorSpaceName")
        .method<getRGBA>("getRed:green:blue:alpha:")
        .method<redComponent>("redComponent")
        .method<greenComponent>("greenComponent")
        .method<blueComponent>("blueComponent")
        .method<whiteComponent>("whiteComponent")
        .method<cyanComponent>("cyanComponent")
        .method<magentaComponent>("magentaComponent")
        .method<yellowComponent>("yellowComponent")
        .method<blackComponent>("blackComponent")
        .method<alphaComponent>("alphaComponent")
        .method<numberOfComponents>("numberOfComponents")
        .method<isEqual>("isEqual:")
        .method<hash>("hash")
        .method<description>("description")
        .method<copyWithZone>("copyWithZone:");

}  // namespace

Owned<NSColor> newColor(const Color& color) { return create<ColorState, NSColor>(*rowOf(color.space).definition, color); }

const Color& colorOf(NSColor* color) { return stateOf<ColorState>(color).color; }

}  // namespace standin::appkit
