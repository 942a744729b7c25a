// The shadow: blur radius, colour and offset.
#include "classes/filling.hpp"
#include "classes/members.hpp"
#include "plugin/class_records.hpp"

namespace classes {
namespace {

constexpr auto shadowBlurRadius = getterOf<NSShadow::shadowBlurRadius>;
constexpr auto setShadowBlurRadius = setterOf<NSShadow::setShadowBlurRadius>;
constexpr auto shadowColor = getterOf<NSShadow::shadowColor>;
constexpr auto setShadowColor = setterOf<NSShadow::setShadowColor>;
constexpr auto shadowOffset = getterOf<NSShadow::shadowOffset>;
constexpr auto setShadowOffset = setterOf<NSShadow::setShadowOffset>;
constexpr auto set = methodOf<NSShadow::set>;

REALobject copyWithZone(REALobject self) {
  return guarded([&] {
    auto copied = adopt(static_cast<NSShadow*>(NSObject::copyWithZone(platformObject(self), nullptr)));
    return NewNSShadowZKT(copied.autorelease());
  });
}

void Constructor(REALobject self) {
  guarded([&] {
    emptyWrapper(self);
    fillWrapper(self, makePlatformObject<NSShadow>());
  });
}

const PropertyRecord properties[] = {
    handleProperty(),
    property<"shadowBlurRadius", "Double", shadowBlurRadius, setShadowBlurRadius>(),
    property<"shadowColor", "NSColorZKT", shadowColor, setShadowColor>(),
    property<"shadowOffset", "NSSizeZKT", shadowOffset, setShadowOffset>(),
};

const MethodRecord methods[] = {
    method<"copy as NSShadowZKT", copyWithZone>(),
    method<"Constructor", Constructor>(),
    method<"set", set>(),
};

}  // namespace
}  // namespace classes

plugin::ClassRecord plugin::NSShadowClass = classRecord({.name = "NSShadowZKT",
                                                         .instanceDataSize = sizeof(NSShadow*),
                                                         .constructor = NSShadowConstructor,
                                                         .destructor = NSShadowDestructor,
                                                         .properties = classes::properties,
                                                         .methods = classes::methods});
