// NSTimeZone: the system's own zone by the C library, zones by name by ICU's copy of the zone database.
#include "standin/foundation/time_zone.hpp"

#include <unicode/simpletz.h>
#include <unicode/timezone.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>

#include "standin/foundation/calendar.hpp"
#include "standin/foundation/immortal.hpp"
#include "standin/foundation/string.hpp"

namespace standin::foundation {
namespace {

struct TimeZone : Object {
  std::unique_ptr<icu::TimeZone> rules;  // nil: the system's zone
};

struct Offset {
  int64_t seconds;
  bool isDaylightSaving;
};

Offset localOffset(int64_t unixTime) {
  // Beyond this the C library's year overflows; the rules repeat long before.
  constexpr int64_t limit = int64_t{1} << 55;
  const time_t time = std::clamp(unixTime, -limit, limit);
  tm fields{};
  tzset();
  localtime_r(&time, &fields);
  return {fields.tm_gmtoff, fields.tm_isdst > 0};
}

Offset namedOffset(const icu::TimeZone& rules, int64_t unixTime) {
  int32_t standard = 0;
  int32_t saving = 0;
  UErrorCode status = U_ZERO_ERROR;
  rules.getOffset(static_cast<double>(unixTime) * 1000, false, standard, saving, status);
  return {(standard + saving) / 1000, saving != 0};
}

Offset offsetAt(const TimeZone& zone, int64_t secondsSinceReference) {
  constexpr int64_t limit = INT64_MAX / 2;
  const int64_t unixTime = std::clamp(secondsSinceReference, -limit, limit) + referenceDateInUnixTime;
  return zone.rules != nullptr ? namedOffset(*zone.rules, unixTime) : localOffset(unixTime);
}

// "Europe/Berlin" out of a path into the zone database, which the link /etc/localtime is.
std::string nameAfterDatabase(const std::string& path) {
  static const std::string folder = "zoneinfo/";
  const size_t found = path.rfind(folder);
  return found == std::string::npos ? std::string() : path.substr(found + folder.size());
}

std::string localName() {
  if (const char* variable = std::getenv("TZ"); variable != nullptr && *variable != 0) {
    const std::string name = *variable == ':' ? variable + 1 : variable;
    const std::string inDatabase = nameAfterDatabase(name);
    return inDatabase.empty() ? name : inDatabase;
  }
  char target[4096];
  const ssize_t length = readlink("/etc/localtime", target, sizeof target);
  const std::string name = length > 0 ? nameAfterDatabase(std::string(target, static_cast<size_t>(length))) : std::string();
  return name.empty() ? "GMT" : name;
}

std::string nameOf(const TimeZone& zone) {
  if (zone.rules == nullptr) return localName();
  icu::UnicodeString identifier;
  std::string name;
  return zone.rules->getID(identifier).toUTF8String(name);
}

int64_t referenceSeconds(NSDate* date) { return wholeSeconds(NSDate::timeIntervalSinceReferenceDate(date)); }
int64_t now() { return time(nullptr) - referenceDateInUnixTime; }

const ClassDefinition concreteClass = defineClass<TimeZone>("__NSTimeZone", "NSTimeZone");
const ClassDefinition localClass = defineClass<TimeZone>("__NSLocalTimeZone", "NSTimeZone");

Owned<NSTimeZone> newZone(std::unique_ptr<icu::TimeZone> rules) {
  Owned<NSTimeZone> zone = create<TimeZone, NSTimeZone>(concreteClass);
  stateOf<TimeZone>(zone).rules = std::move(rules);
  return zone;
}

NSTimeZone* local(Class) { return localTimeZone(); }
NSTimeZone* timeZoneWithName(Class, NSString* name) {
  return name != nullptr ? newTimeZone(utf8Of(name)).autorelease() : nullptr;
}

NSTimeZone* timeZoneForSeconds(Class, NSInteger seconds) {
  constexpr NSInteger widest = 64800;  // 18 hours
  if (seconds < -widest || seconds > widest) return nullptr;
  char name[16] = "GMT";
  const NSInteger minutes = std::abs(seconds) / 60;
  if (minutes != 0)
    std::snprintf(name, sizeof name, "GMT%c%02d%02d", seconds < 0 ? '-' : '+', static_cast<int>(minutes / 60),
                  static_cast<int>(minutes % 60));
  return newZone(std::make_unique<icu::SimpleTimeZone>(static_cast<int32_t>(seconds * 1000), name)).autorelease();
}

NSString* name(TimeZone& self) { return newString(nameOf(self)).autorelease(); }
NSInteger secondsNow(TimeZone& self) { return offsetAt(self, now()).seconds; }
NSInteger secondsForDate(TimeZone& self, NSDate* date) { return offsetAt(self, referenceSeconds(date)).seconds; }
BOOL isDaylightSaving(TimeZone& self, NSDate* date) { return offsetAt(self, referenceSeconds(date)).isDaylightSaving; }
NSObject* copy(NSObject* self, void*) { return retainObject(self); }
NSString* description(TimeZone& self) {
  const int64_t offset = offsetAt(self, now()).seconds;
  return newString(nameOf(self) + " (offset " + std::to_string(offset) + ")").autorelease();
}
NSUInteger hash(TimeZone& self) { return std::hash<std::string>()(nameOf(self)); }

extern const ClassDefinition timeZoneClass;

BOOL isEqual(NSObject* self, NSObject* other) {
  if (self == other) return YES;
  return isKindOf(other, timeZoneClass.object()) && nameOf(stateOf<TimeZone>(self)) == nameOf(stateOf<TimeZone>(other));
}

const ClassDefinition timeZoneClass = defineClass<TimeZone>("NSTimeZone", "NSObject")
                                          .classMethod<local>("localTimeZone")
                                          .classMethod<local>("systemTimeZone")
                                          .classMethod<local>("defaultTimeZone")
                                          .classMethod<timeZoneWithName>("timeZoneWithName:")
                                          .classMethod<timeZoneForSeconds>("timeZoneForSecondsFromGMT:")
                                          .method<name>("name")
                                          .method<secondsNow>("secondsFromGMT")
                                          .method<secondsForDate>("secondsFromGMTForDate:")
                                          .method<isDaylightSaving>("isDaylightSavingTimeForDate:")
                                          .method<isEqual>("isEqual:")
                                          .method<hash>("hash")
                                          .method<description>("description")
                                          .method<copy>("copyWithZone:");

}  // namespace

NSTimeZone* localTimeZone() {
  static NSObject* const zone = makeImmortal(*new TimeZone, localClass);
  return static_cast<NSTimeZone*>(zone);
}

Owned<NSTimeZone> newTimeZone(const std::string& name) {
  std::unique_ptr<icu::TimeZone> rules(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
  if (rules == nullptr || *rules == icu::TimeZone::getUnknown()) return nullptr;
  return newZone(std::move(rules));
}

int64_t secondsFromGMT(NSTimeZone* zone, int64_t secondsSinceReference) {
  return zone != nullptr ? offsetAt(stateOf<TimeZone>(zone), secondsSinceReference).seconds : 0;
}

}  // namespace standin::foundation
