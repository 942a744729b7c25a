// NSDate: an instant.
#include "standin/foundation/date.hpp"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>

#include "standin/foundation/calendar.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/time_zone.hpp"
#include "standin/runtime/class_object.hpp"

namespace standin::foundation {
namespace {

constexpr double unixOffset = static_cast<double>(referenceDateInUnixTime);

double now() {
  timespec time{};
  clock_gettime(CLOCK_REALTIME, &time);
  return static_cast<double>(time.tv_sec) - unixOffset + static_cast<double>(time.tv_nsec) * 1e-9;
}

bool isDate(NSObject* object) {
  static const ClassObject* const dateClass = findClass("NSDate");
  return isKindOf(object, dateClass);
}

// Through the init message, which calendar dates have their own of.
NSObject* initialised(NSObject* date, double interval) {
  static const Message<NSObject*(double)> init{"initWithTimeIntervalSinceReferenceDate:"};
  return init(date, interval);
}
NSObject* made(Class self, double interval) { return adopt(initialised(NSObject::alloc(self), interval)).autorelease(); }

NSObject* initWithReference(NSObject* self, double interval) {
  stateOf<Date>(self).interval = interval;
  return self;
}
NSObject* initNow(NSObject* self) { return initialised(self, now()); }
NSObject* initWithUnixTime(NSObject* self, double seconds) { return initialised(self, seconds - unixOffset); }
NSObject* date(Class self) { return made(self, now()); }
NSObject* dateWithUnixTime(Class self, double seconds) { return made(self, seconds - unixOffset); }

double sinceReference(Date& self) { return self.interval; }
double sinceUnixEpoch(Date& self) { return self.interval + unixOffset; }
double sinceDate(Date& self, NSDate* other) { return self.interval - NSDate::timeIntervalSinceReferenceDate(other); }

NSInteger compare(Date& self, NSDate* other) {
  const double difference = sinceDate(self, other);
  return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

BOOL isEqual(Date& self, NSObject* other) { return isDate(other) && self.interval == stateOf<Date>(other).interval; }
BOOL isEqualToDate(Date& self, NSDate* other) { return isEqual(self, other); }
NSUInteger hash(Date& self) { return std::hash<double>()(self.interval); }
NSString* description(Date& self) { return describeDate(self, nullptr); }
NSObject* copy(NSObject* self, void*) { return retainObject(self); }

const ClassDefinition concreteClass = defineClass<Date>("__NSDate", "NSDate");
const ClassDefinition dateClass = defineClass<Date>("NSDate", "NSObject")
                                      .allocatesAs(concreteClass)
                                      .classMethod<date>("date")
                                      .classMethod<made>("dateWithTimeIntervalSinceReferenceDate:")
                                      .classMethod<dateWithUnixTime>("dateWithTimeIntervalSince1970:")
                                      .method<initNow>("init")
                                      .method<initWithReference>("initWithTimeIntervalSinceReferenceDate:")
                                      .method<initWithUnixTime>("initWithTimeIntervalSince1970:")
                                      .method<sinceReference>("timeIntervalSinceReferenceDate")
                                      .method<sinceUnixEpoch>("timeIntervalSince1970")
                                      .method<sinceDate>("timeIntervalSinceDate:")
                                      .method<compare>("compare:")
                                      .method<isEqual>("isEqual:")
                                      .method<isEqualToDate>("isEqualToDate:")
                                      .method<hash>("hash")
                                      .method<description>("description")
                                      .method<copy>("copyWithZone:");

}  // namespace

Owned<NSDate> newDate(double secondsSinceReference) {
  Owned<NSDate> made = create<Date, NSDate>(concreteClass);
  stateOf<Date>(made).interval = secondsSinceReference;
  return made;
}

NSString* describeDate(const Date& date, NSTimeZone* zone) {
  const int64_t seconds = wholeSeconds(date.interval);
  const int64_t offset = secondsFromGMT(zone, seconds);
  const CivilTime time = civilTime(seconds + offset);
  const int64_t minutes = std::abs(offset) / 60;
  char text[96];
  std::snprintf(text, sizeof text, "%04lld-%02d-%02d %02d:%02d:%02d %c%02d%02d", static_cast<long long>(time.year),
                static_cast<int>(time.month), static_cast<int>(time.day), static_cast<int>(time.hour),
                static_cast<int>(time.minute), static_cast<int>(time.second), offset < 0 ? '-' : '+',
                static_cast<int>(minutes / 60), static_cast<int>(minutes % 60));
  return newString(std::string_view(text)).autorelease();
}

}  // namespace standin::foundation
