// Host dates and platform dates.
#include "bridge/dates.hpp"

#include <array>

#include "platform/owned.h"
#include "plugin/host_owned.hpp"
#include "plugin/services.hpp"

namespace bridge {
namespace {

using plugin::REALobject;

// A date's fields, in the order in which the host's constructor takes them.
struct Field {
  const char* property;
  const Message<NSInteger()>& component;
};
constexpr Field fields[] = {
    {"Year", NSCalendarDate::yearOfCommonEra}, {"Month", NSCalendarDate::monthOfYear},
    {"Day", NSCalendarDate::dayOfMonth},       {"Hour", NSCalendarDate::hourOfDay},
    {"Minute", NSCalendarDate::minuteOfHour},  {"Second", NSCalendarDate::secondOfMinute},
};
using Components = std::array<int64_t, std::size(fields)>;

bool readComponents(REALobject date, Components& components) {
  auto component = components.begin();
  for (const Field& field : fields) {
    if (!plugin::REALGetPropValueInteger(date, field.property, &*component++)) return false;
  }
  return true;
}

Components componentsOf(NSCalendarDate* date) {
  Components components{};
  auto component = components.begin();
  for (const Field& field : fields) *component++ = field.component(date);
  return components;
}

void setComponents(REALobject date, const Components& components) {
  if (const auto construct =
          plugin::loadObjectMethod<void(REALobject, int64_t, int64_t, int64_t, int64_t, int64_t, int64_t)>(
              date,
              "Year as Integer, Month as Integer = 1, Day as Integer = 1, hour as Integer = 0, minute as Integer = 0, "
              "second as Integer = 0")) {
    const auto [year, month, day, hour, minute, second] = components;
    return construct(date, year, month, day, hour, minute, second);
  }
  auto component = components.begin();
  for (const Field& field : fields) plugin::REALSetPropValueInteger(date, field.property, *component++);
}

}  // namespace

NSDate* NewNSDate(plugin::REALdate* date) {
  Components components{};
  if (date == nullptr || !readComponents(date, components)) return nullptr;
  const auto [year, month, day, hour, minute, second] = components;
  const auto natural = [](int64_t component) { return static_cast<NSUInteger>(component); };
  return NSCalendarDate::dateWithYear(classOf<NSCalendarDate>(), year, natural(month), natural(day), natural(hour),
                                      natural(minute), natural(second), NSTimeZone::localTimeZone(classOf<NSTimeZone>()));
}

REALobject hostDate(NSDate* date) {
  NSCalendarDate* const shown = adopt(NSCalendarDate::initWithTimeIntervalSinceReferenceDate(
                                          alloc<NSCalendarDate>(), NSDate::timeIntervalSinceReferenceDate(date)))
                                    .autorelease();
  if (shown == nullptr) return nullptr;
  const Components components = componentsOf(shown);
  auto result = plugin::newInstance("Date");
  if (result) setComponents(result, components);
  return result.detach();
}

}  // namespace bridge
