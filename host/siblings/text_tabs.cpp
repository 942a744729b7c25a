// Tab stops.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"
#include "platform/appkit.h"

namespace siblings {
namespace {

int64_t tabStopType(HostObject* self, int64_t) {
  return guarded([self] { return static_cast<int64_t>(NSTextTab::tabStopType(wrapped(self))); });
}
double location(HostObject* self, int64_t) {
  return guarded([self] { return NSTextTab::location(wrapped(self)); });
}

void construct(HostObject* self, int64_t type, double location) {
  guarded([=] {
    empty(self);
    const Owned<NSTextTab> made =
        adopt(NSTextTab::initWithType(alloc<NSTextTab>(), static_cast<NSUInteger>(type), location));
    return fill(self, made), true;
  });
}

}  // namespace

void registerTextTabs() {
  ClassBuilder::registerWithHost(ClassBuilder("NSTextTabZKT")
                                     .wrapper()
                                     .constant("NSLeftTabStopType = 0")
                                     .constant("NSRightTabStopType = 1")
                                     .constant("NSCenterTabStopType = 2")
                                     .constant("NSDecimalTabStopType = 3")
                                     .property("tabStopType", "Integer", tabStopType)
                                     .property("location", "Double", location)
                                     .method("Constructor(type as Integer, location as Double)", construct));
}

}  // namespace siblings
