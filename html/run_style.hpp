// What the writer reads of a run's attributes.
#pragma once

#include <array>

#include "html/state.hpp"

namespace html {

struct FontStyle {
  bool bold = false;
  bool italic = false;
  float size = defaultFontSize;

  bool operator==(const FontStyle&) const = default;
};

// Everything is borrowed from the run's attributes; nil attributes have nothing.
struct RunStyle {
  NSObject* link = nullptr;
  NSFont* font = nullptr;
  FontStyle fontStyle{false, false, 0.0F};  // a missing font has size 0 and no traits
  bool underline = false;
  NSColor* color = nullptr;

  RunStyle() = default;
  explicit RunStyle(NSDictionary* attributes);

  // False only when the attributes behind the two cannot be equal.
  bool canEqual(const RunStyle& other) const {
    return underline == other.underline && fontStyle == other.fontStyle && !font == !other.font && !link == !other.link &&
           !color == !other.color;
  }
};

// The styles of the attributes asked for last: most documents go back and forth between a few. The attributes must not
// change meanwhile.
class RunStyles {
 public:
  // Valid until the next call.
  const RunStyle& of(NSDictionary* attributes);

 private:
  struct Slot {
    Owned<NSDictionary> attributes;
    RunStyle style;
  };
  std::array<Slot, 64> slots_;
};

}  // namespace html
