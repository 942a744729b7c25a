// What the current drawing context draws with.
#pragma once

#include <optional>

#include "standin/text/style.hpp"

namespace standin::appkit {

struct DrawingContext {
  std::optional<text::Shadow> shadow;  // under everything drawn from now on
};

// The one of the process: objects that are told to set themselves do it here, and what draws looks here.
DrawingContext& currentDrawingContext();

}  // namespace standin::appkit
