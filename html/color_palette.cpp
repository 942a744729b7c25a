// Writes a colour's calibrated components in hexadecimal.
#include "html/color_palette.hpp"

#include <cmath>
#include <cstdint>
#include <cstdio>

#include "html/state.hpp"

namespace html {

namespace {

unsigned scaled(double component, double gamma) {
  if (gamma != 1.0) component = std::pow(component, 1.0 / gamma);
  return static_cast<unsigned>(std::lrint(component * 255.0));
}

}  // namespace

std::string colorText(NSColor* color, double gamma) {
  CGFloat red = 0.0, green = 0.0, blue = 0.0, alpha = 0.0;
  NSColor* calibrated = NSColor::colorUsingColorSpaceName(color, NSCalibratedRGBColorSpace);
  NSColor::getRGBA(calibrated, &red, &green, &blue, &alpha);
  char text[32];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", scaled(red, gamma), scaled(green, gamma), scaled(blue, gamma));
  return text;
}

bool isBlackText(const std::string& text) {
  return blackColorString != nullptr && text == NSString::UTF8String(blackColorString);
}

}  // namespace html
