// The proleptic Gregorian calendar: dates to seconds and back, without time zones.
#pragma once

#include <cstdint>

namespace standin::foundation {

// Years before 1 count 0, -1, …; months and days count from 1. Given to `secondsSinceReference`, the fields below the year
// may lie outside their ranges and carry over: month 13 is next January, day 0 the last of the month before.
struct CivilTime {
  int64_t year = 1;
  int64_t month = 1;
  int64_t day = 1;
  int64_t hour = 0;
  int64_t minute = 0;
  int64_t second = 0;
};

// Seconds from 2001-01-01 00:00:00 to the time. Fields are limited so that the sum fits: years to 10^11 and the like.
int64_t secondsSinceReference(const CivilTime& time);
CivilTime civilTime(int64_t secondsSinceReference);
// 0 for Sunday.
int64_t dayOfWeek(int64_t secondsSinceReference);

// Whole seconds at or before the interval; what no calendar reaches (and no number) is brought into range.
int64_t wholeSeconds(double interval);

// From the Unix epoch to the reference date, 2001-01-01 00:00:00 GMT.
inline constexpr int64_t referenceDateInUnixTime = 978307200;

}  // namespace standin::foundation
