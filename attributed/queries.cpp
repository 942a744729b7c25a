// Reading an attributed string.
#include "attributed/queries.hpp"

#include <optional>

#include "bridge/to_variant.hpp"

namespace attributed {
namespace {

// Where a query looks: at a location, in its run or in the longest range within another that has the same answer.
struct Place {
  NSUInteger location;
  std::optional<NSRange> within = std::nullopt;
};

Place at(uint64_t location) { return {location}; }
Place at(uint64_t location, REALobject inRange) { return {location, rangeOf(inRange)}; }

// `holds` is nil, or gets the range over which the answer holds.
NSObject* valueAt(NSAttributedString* text, NSString* name, const Place& place, NSRange* holds) {
  if (!place.within) return NSAttributedString::attributeAtIndex(text, name, place.location, holds);
  return NSAttributedString::attributeAtIndexLongest(text, name, place.location, holds, *place.within);
}

NSDictionary* attributesAt(NSAttributedString* text, const Place& place, NSRange* holds) {
  if (!place.within) return NSAttributedString::attributesAtIndex(text, place.location, holds);
  return NSAttributedString::attributesAtIndexLongest(text, place.location, holds, *place.within);
}

void log(NSObject* value) {
  NSLog(__CFStringMakeConstantString("value: %@\n"), value);
  NSLog(__CFStringMakeConstantString("value className: %@\n"), NSObject::className(value));
}

// The two kinds of query, each converting its answer for the host. For use within the guard.
auto attribute(REALobject self, REALstring name, const Place& place) {
  return [=](NSRange* holds) -> REALobject {
    NSObject* value = valueAt(platformObject<NSAttributedString>(self), autoreleasedString(name), place, holds);
    log(value);
    return NewVariantFromNSObject(value);
  };
}

auto attributes(REALobject self, const Place& place) {
  return [=](NSRange* holds) -> REALdictionary* {
    return NSDictionaryRB(attributesAt(platformObject<NSAttributedString>(self), place, holds));
  };
}

template <class Query>
auto ask(const Query& query) {
  return guarded([&] { return query(nullptr); });
}

// Keeps the answer when making the range fails; the variable is nil unless all went well.
template <class Query>
auto askWithRange(REALobject* range, const Query& query) {
  clearReference(range);
  return guardedKeeping<std::invoke_result_t<const Query&, NSRange*>>([&](auto& answer) {
    NSRange holds{};
    answer = query(&holds);
    *range = newRange(holds);
  });
}

}  // namespace

REALobject attributeAtIndex1r(REALobject self, REALstring name, uint64_t location) {
  return ask(attribute(self, name, at(location)));
}
REALobject attributeAtIndex2r(REALobject self, REALstring name, uint64_t location, REALobject inRange) {
  return ask(attribute(self, name, at(location, inRange)));
}
REALobject attributeAtIndex1(REALobject self, REALstring name, uint64_t location, REALobject* effectiveRange) {
  return askWithRange(effectiveRange, attribute(self, name, at(location)));
}
REALobject attributeAtIndex2(REALobject self, REALstring name, uint64_t location, REALobject* longestEffectiveRange,
                             REALobject inRange) {
  return askWithRange(longestEffectiveRange, attribute(self, name, at(location, inRange)));
}

REALdictionary* attributesAtIndex1r(REALobject self, uint64_t location) { return ask(attributes(self, at(location))); }
REALdictionary* attributesAtIndex2r(REALobject self, uint64_t location, REALobject inRange) {
  return ask(attributes(self, at(location, inRange)));
}
REALdictionary* attributesAtIndex1(REALobject self, uint64_t location, REALobject* range) {
  return askWithRange(range, attributes(self, at(location)));
}
REALdictionary* attributesAtIndex2(REALobject self, uint64_t location, REALobject* range, REALobject inRange) {
  return askWithRange(range, attributes(self, at(location, inRange)));
}

REALobject copyWithZone(REALobject self) {
  return guarded([&] {
    auto copied = adopt(static_cast<NSAttributedString*>(NSObject::copyWithZone(platformObject(self), nullptr)));
    return HostForm<NSAttributedString*>::result(copied.autorelease());
  });
}

REALobject mutableCopy(REALobject self) {
  return guarded([&] {
    return wrapRegistered(adopt(NSObject::mutableCopy(platformObject(self))).autorelease(), "NSMutableAttributedStringZKT");
  });
}

bool isEqualToAttributedString(REALobject self, REALobject other) {
  const auto text = platformObject<NSAttributedString>(self);
  const auto otherText = platformObject<NSAttributedString>(other);
  if (text == nullptr || otherText == nullptr) return false;
  return guarded([&] { return NSAttributedString::isEqualToAttributedString(text, otherText) != NO; });
}

}  // namespace attributed
