// NSCalendarDate: a date that knows its time zone and shows its calendar fields there.
#include "standin/foundation/calendar.hpp"
#include "standin/foundation/date.hpp"
#include "standin/foundation/time_zone.hpp"
#include "standin/runtime/class_definition.hpp"

namespace standin::foundation {
namespace {

struct CalendarDate : Date {
  Owned<NSTimeZone> zone;
};

// A clock time that the zone skips lies after the gap by as much as it was past its start; of a clock time that comes
// twice the second is meant. So the zone's offset is asked for where the standard offset leads.
int64_t instantOf(const CivilTime& time, NSTimeZone* zone) {
  const int64_t asGMT = secondsSinceReference(time);
  return asGMT - secondsFromGMT(zone, asGMT - secondsFromGMT(zone, asGMT));
}

CivilTime fieldsOf(const CalendarDate& date) {
  const int64_t seconds = wholeSeconds(date.interval);
  return civilTime(seconds + secondsFromGMT(date.zone, seconds));
}

NSObject* initWithReference(NSObject* self, double interval) {
  stateOf<CalendarDate>(self).interval = interval;
  stateOf<CalendarDate>(self).zone = retain(localTimeZone());
  return self;
}

// The fields are unsigned by declaration; what was negative before it came here is negative again.
NSObject* initWithYear(NSObject* self, NSInteger year, NSUInteger month, NSUInteger day, NSUInteger hour, NSUInteger minute,
                       NSUInteger second, NSTimeZone* zone) {
  const auto field = [](NSUInteger value) { return static_cast<int64_t>(value); };
  const CivilTime time{year, field(month), field(day), field(hour), field(minute), field(second)};
  CalendarDate& state = stateOf<CalendarDate>(self);
  state.zone = retain(zone != nullptr ? zone : localTimeZone());
  state.interval = static_cast<double>(instantOf(time, state.zone));
  return self;
}

NSObject* dateWithYear(Class self, NSInteger year, NSUInteger month, NSUInteger day, NSUInteger hour, NSUInteger minute,
                       NSUInteger second, NSTimeZone* zone) {
  return adopt(initWithYear(NSObject::alloc(self), year, month, day, hour, minute, second, zone)).autorelease();
}

template <int64_t CivilTime::*field>
NSInteger read(CalendarDate& self) {
  return fieldsOf(self).*field;
}

NSInteger weekday(CalendarDate& self) {
  const int64_t seconds = wholeSeconds(self.interval);
  return dayOfWeek(seconds + secondsFromGMT(self.zone, seconds));
}

NSObject* timeZone(CalendarDate& self) { return self.zone; }
void setTimeZone(CalendarDate& self, NSTimeZone* zone) { self.zone = retain(zone != nullptr ? zone : localTimeZone()); }
NSString* description(CalendarDate& self) { return describeDate(self, self.zone); }

// The zone can be set: copies are their own objects.
NSObject* copy(NSObject* self, void*) {
  const CalendarDate& state = stateOf<CalendarDate>(self);
  NSObject* const copied = initWithReference(NSObject::alloc(NSObject::class_(self)), state.interval);
  stateOf<CalendarDate>(copied).zone = state.zone;
  return copied;
}

const ClassDefinition calendarDateClass =
    defineClass<CalendarDate>("NSCalendarDate", "NSDate")
        .classMethod<dateWithYear>("dateWithYear:month:day:hour:minute:second:timeZone:")
        .method<initWithReference>("initWithTimeIntervalSinceReferenceDate:")
        .method<initWithYear>("initWithYear:month:day:hour:minute:second:timeZone:")
        .method<read<&CivilTime::year>>("yearOfCommonEra")
        .method<read<&CivilTime::month>>("monthOfYear")
        .method<read<&CivilTime::day>>("dayOfMonth")
        .method<read<&CivilTime::hour>>("hourOfDay")
        .method<read<&CivilTime::minute>>("minuteOfHour")
        .method<read<&CivilTime::second>>("secondOfMinute")
        .method<weekday>("dayOfWeek")
        .method<timeZone>("timeZone")
        .method<setTimeZone>("setTimeZone:")
        .method<description>("description")
        .method<copy>("copyWithZone:");

}  // namespace
}  // namespace standin::foundation
