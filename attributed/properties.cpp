// The attributed string's platform object handed to the siblings' CoreFoundation classes.
#include "attributed/properties.hpp"

namespace attributed {
namespace {

REALobject shareWith(const char* hostClass, REALobject self) {
  const auto shared = platformObject(self);
  if (shared == nullptr) return nullptr;
  auto wrapper = newInstance(hostClass);
  if (wrapper) setPlatformObject(wrapper, CFRetain(shared));
  return wrapper.detach();
}

}  // namespace

REALobject AsCFAttributedString(REALobject self) { return shareWith("CFAttributedStringZKT", self); }
REALobject AsCFMutableAttributedString(REALobject self) { return shareWith("CFMutableAttributedStringZKT", self); }

}  // namespace attributed
