// The proleptic Gregorian calendar. Years are counted from March, so that the leap day ends them.
#include "standin/foundation/calendar.hpp"

#include <algorithm>
#include <cmath>

namespace standin::foundation {
namespace {

constexpr int64_t secondsPerDay = 86400;
constexpr int64_t daysPerEra = 146097;  // of 400 years
// From 0000-03-01 to 2001-01-01.
constexpr int64_t referenceDay = 730791;

int64_t floorDivided(int64_t value, int64_t divisor) {
  return value / divisor - (value % divisor != 0 && (value < 0) != (divisor < 0) ? 1 : 0);
}
int64_t floorRemainder(int64_t value, int64_t divisor) { return value - floorDivided(value, divisor) * divisor; }
int64_t limited(int64_t value, int64_t limit) { return std::clamp(value, -limit, limit); }

// The days before each month of a year that starts in March follow this line exactly.
int64_t daysBeforeMonth(int64_t monthFromMarch) { return (153 * monthFromMarch + 2) / 5; }

// The month from 0; months outside 0 to 11 move the year.
int64_t daysToMonth(int64_t year, int64_t month) {
  const int64_t fromMarch = month - 2;
  const int64_t marchYear = year + floorDivided(fromMarch, 12);
  const int64_t era = floorDivided(marchYear, 400);
  const int64_t yearOfEra = marchYear - era * 400;
  return era * daysPerEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 +
         daysBeforeMonth(floorRemainder(fromMarch, 12));
}

}  // namespace

int64_t secondsSinceReference(const CivilTime& time) {
  const int64_t days = daysToMonth(limited(time.year, 100'000'000'000), limited(time.month, 1'000'000'000'000) - 1) +
                       limited(time.day, 10'000'000'000'000) - 1 - referenceDay;
  return days * secondsPerDay + limited(time.hour, 100'000'000'000'000) * 3600 +
         limited(time.minute, 1'000'000'000'000'000) * 60 + limited(time.second, 100'000'000'000'000'000);
}

CivilTime civilTime(int64_t seconds) {
  const int64_t day = floorDivided(seconds, secondsPerDay) + referenceDay;
  const int64_t era = floorDivided(day, daysPerEra);
  const int64_t dayOfEra = day - era * daysPerEra;
  const int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const int64_t fromMarch = (5 * dayOfYear + 2) / 153;
  const int64_t secondOfDay = floorRemainder(seconds, secondsPerDay);
  CivilTime time;
  time.year = era * 400 + yearOfEra + (fromMarch >= 10 ? 1 : 0);
  time.month = fromMarch + (fromMarch >= 10 ? -9 : 3);
  time.day = dayOfYear - daysBeforeMonth(fromMarch) + 1;
  time.hour = secondOfDay / 3600;
  time.minute = secondOfDay / 60 % 60;
  time.second = secondOfDay % 60;
  return time;
}

// The reference date was a Monday.
int64_t dayOfWeek(int64_t seconds) { return floorRemainder(floorDivided(seconds, secondsPerDay) + 1, 7); }

int64_t wholeSeconds(double interval) {
  if (std::isnan(interval)) return 0;
  return static_cast<int64_t>(std::clamp(std::floor(interval), -9e18, 9e18));
}

}  // namespace standin::foundation
