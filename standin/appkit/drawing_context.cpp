// The drawing context of the process.
#include "standin/appkit/drawing_context.hpp"

namespace standin::appkit {

DrawingContext& currentDrawingContext() {
  static DrawingContext context;
  return context;
}

}  // namespace standin::appkit
