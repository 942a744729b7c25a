// Dates, calendar dates and time zones.
#include "standin/foundation/date.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "standin/foundation/calendar.hpp"
#include "standin/foundation/time_zone.hpp"
#include "tests/standin/foundation_support.hpp"

namespace {

using namespace foundation_support;

NSCalendarDate* calendarDate(const CivilTime& time, NSTimeZone* zone) {
  const auto part = [](int64_t value) { return static_cast<NSUInteger>(value); };
  return NSCalendarDate::dateWithYear(classOf<NSCalendarDate>(), time.year, part(time.month), part(time.day),
                                      part(time.hour), part(time.minute), part(time.second), zone);
}

NSCalendarDate* calendarDate(double interval) {
  return static_cast<NSCalendarDate*>(
      adopt<NSObject>(NSCalendarDate::initWithTimeIntervalSinceReferenceDate(alloc<NSCalendarDate>(), interval))
          .autorelease());
}

NSTimeZone* zone(const char* name) { return newTimeZone(name).autorelease(); }

std::string shown(NSObject* date) { return utf8(NSObject::description(date)); }

TEST(CalendarDates, ShowWhatTheyWereMadeOf) {
  struct Case {
    const char* zone;
    CivilTime time;
    const char* shown;
  };
  const Case cases[] = {
      {"Europe/Berlin", {2014, 3, 5, 6, 7, 8}, "2014-03-05 06:07:08 +0100"},
      {"Europe/Berlin", {2014, 7, 5, 6, 7, 8}, "2014-07-05 06:07:08 +0200"},
      {"America/New_York", {2014, 1, 31, 23, 59, 59}, "2014-01-31 23:59:59 -0500"},
      {"America/New_York", {2014, 7, 31, 23, 59, 59}, "2014-07-31 23:59:59 -0400"},
      {"Asia/Kolkata", {1999, 12, 31, 0, 0, 0}, "1999-12-31 00:00:00 +0530"},
      {"Europe/Berlin", {2024, 3, 31, 2, 30, 0}, "2024-03-31 03:30:00 +0200"},   // skipped clock time
      {"Europe/Berlin", {2024, 10, 27, 2, 30, 0}, "2024-10-27 02:30:00 +0100"},  // comes twice: the second
      {"Europe/Berlin", {2024, 10, 27, 1, 59, 59}, "2024-10-27 01:59:59 +0200"},
      {"GMT", {2013, 13, 1, 0, 0, 0}, "2014-01-01 00:00:00 +0000"},
      {"GMT", {2014, 0, 31, 0, 0, 0}, "2013-12-31 00:00:00 +0000"},
      {"GMT", {2014, -11, 1, 0, 0, 0}, "2013-01-01 00:00:00 +0000"},
      {"GMT", {2012, 2, 30, 0, 0, 0}, "2012-03-01 00:00:00 +0000"},
      {"GMT", {2014, 3, 0, 0, 0, 0}, "2014-02-28 00:00:00 +0000"},
      {"GMT", {2014, 1, 1, 25, 61, 61}, "2014-01-02 02:02:01 +0000"},
      {"GMT", {2014, 1, 1, 0, 0, -1}, "2013-12-31 23:59:59 +0000"},
      {"GMT", {1900, 2, 29, 0, 0, 0}, "1900-03-01 00:00:00 +0000"},
      {"GMT", {1582, 10, 10, 0, 0, 0}, "1582-10-10 00:00:00 +0000"},  // the Gregorian rules hold before their time
      {"GMT", {1, 1, 1, 0, 0, 0}, "0001-01-01 00:00:00 +0000"},
      {"GMT", {9999, 12, 31, 23, 59, 59}, "9999-12-31 23:59:59 +0000"},
  };
  for (const Case& row : cases) {
    const AutoreleasePool pool;
    EXPECT_EQ(shown(calendarDate(row.time, zone(row.zone))), row.shown);
    const LocalZone local(row.zone);
    EXPECT_EQ(shown(calendarDate(row.time, localTimeZone())), row.shown) << "as local zone";
  }
}

TEST(CalendarDates, TellTheirFieldsInTheLocalZone) {
  const AutoreleasePool pool;
  const LocalZone local("America/New_York");
  NSCalendarDate* const date = calendarDate(0);
  EXPECT_EQ(NSCalendarDate::yearOfCommonEra(date), 2000);
  EXPECT_EQ(NSCalendarDate::monthOfYear(date), 12);
  EXPECT_EQ(NSCalendarDate::dayOfMonth(date), 31);
  EXPECT_EQ(NSCalendarDate::hourOfDay(date), 19);
  EXPECT_EQ(NSCalendarDate::minuteOfHour(date), 0);
  EXPECT_EQ(NSCalendarDate::secondOfMinute(date), 0);
  EXPECT_EQ(send<NSInteger>(date, "dayOfWeek"), 0);
  EXPECT_EQ(NSCalendarDate::secondOfMinute(calendarDate(-0.5)), 59);
  EXPECT_TRUE(NSObject::isEqual(date, NSDate::dateWithTimeIntervalSinceReferenceDate(classOf<NSDate>(), 0)));
  EXPECT_TRUE(NSObject::isKindOfClass(date, classOf<NSDate>()));
  const Owned<NSObject> copied = adopt(NSObject::copy(date));
  send<void>(copied, "setTimeZone:", zone("Asia/Tokyo"));
  EXPECT_EQ(shown(copied), "2001-01-01 09:00:00 +0900");
  EXPECT_EQ(shown(date), "2000-12-31 19:00:00 -0500");
}

TEST(CalendarDates, ExtremesComeBackWhole) {
  const AutoreleasePool pool;
  const LocalZone local("Europe/Berlin");
  for (const double interval : {1e18, -1e18, 1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")})
    EXPECT_GT(shown(calendarDate(interval)).size(), 20u);
  constexpr int64_t most = INT64_MAX;
  for (const int64_t year : {most, -most - 1, int64_t{0}, int64_t{-4712}})
    EXPECT_TRUE(
        std::isfinite(NSDate::timeIntervalSinceReferenceDate(calendarDate({year, most, most, most, most, most}, nullptr))));
}

TEST(Calendar, AgreesWithTheSystemsCalendar) {
  std::mt19937_64 random(7);
  for (int round = 0; round < 20'000; ++round) {
    const auto seconds = static_cast<int64_t>(random() % 4'000'000'000'000) - 2'000'000'000'000;
    const time_t unixTime = seconds + referenceDateInUnixTime;
    tm fields{};
    gmtime_r(&unixTime, &fields);
    const CivilTime time = civilTime(seconds);
    ASSERT_EQ(time.year, fields.tm_year + 1900) << seconds;
    ASSERT_EQ(time.month, fields.tm_mon + 1) << seconds;
    ASSERT_EQ(time.day, fields.tm_mday) << seconds;
    ASSERT_EQ(time.hour * 3600 + time.minute * 60 + time.second, fields.tm_hour * 3600 + fields.tm_min * 60 + fields.tm_sec);
    ASSERT_EQ(dayOfWeek(seconds), fields.tm_wday) << seconds;
    ASSERT_EQ(secondsSinceReference(time), seconds);
  }
}

TEST(Dates, InstantsCompare) {
  const AutoreleasePool pool;
  const Class cls = classOf<NSDate>();
  NSDate* const date = NSDate::dateWithTimeIntervalSinceReferenceDate(cls, 86400);
  EXPECT_EQ(shown(date), "2001-01-02 00:00:00 +0000");
  EXPECT_EQ(send<double>(date, "timeIntervalSince1970"), 978393600);
  EXPECT_TRUE(NSObject::isEqual(date, send(cls, "dateWithTimeIntervalSince1970:", 978393600.0)));
  EXPECT_FALSE(NSObject::isEqual(date, ns("2001-01-02")));
  NSDate* const later = NSDate::dateWithTimeIntervalSinceReferenceDate(cls, 86400.5);
  EXPECT_EQ(send<NSInteger>(date, "compare:", later), -1);
  EXPECT_EQ(send<double>(later, "timeIntervalSinceDate:", date), 0.5);
  const double now = NSDate::timeIntervalSinceReferenceDate(send(cls, "date"));
  EXPECT_NEAR(now + static_cast<double>(referenceDateInUnixTime), static_cast<double>(time(nullptr)), 5);
}

TEST(TimeZones, ByNameAndByOffset) {
  const AutoreleasePool pool;
  const Class cls = classOf<NSTimeZone>();
  NSDate* const summer = newDate(static_cast<double>(secondsSinceReference({2014, 7, 1}))).autorelease();
  NSDate* const winter = newDate(static_cast<double>(secondsSinceReference({2014, 1, 1}))).autorelease();
  struct Case {
    const char* name;
    NSInteger winter, summer;
  };
  for (const Case& row : {Case{"Europe/Berlin", 3600, 7200},
                          {"America/New_York", -18000, -14400},
                          {"UTC", 0, 0},
                          {"Australia/Lord_Howe", 39600, 37800}}) {
    NSObject* const named = send(cls, "timeZoneWithName:", ns(row.name));
    EXPECT_EQ(send<NSInteger>(named, "secondsFromGMTForDate:", winter), row.winter) << row.name;
    EXPECT_EQ(send<NSInteger>(named, "secondsFromGMTForDate:", summer), row.summer) << row.name;
    EXPECT_EQ(utf8(send(named, "name")), row.name);
    const LocalZone local(row.name);
    EXPECT_EQ(send<NSInteger>(NSTimeZone::localTimeZone(cls), "secondsFromGMTForDate:", summer), row.summer) << row.name;
    EXPECT_TRUE(NSObject::isEqual(NSTimeZone::localTimeZone(cls), named)) << row.name;
  }
  EXPECT_TRUE(send<BOOL>(zone("Europe/Berlin"), "isDaylightSavingTimeForDate:", summer));
  EXPECT_FALSE(send<BOOL>(zone("Europe/Berlin"), "isDaylightSavingTimeForDate:", winter));
  EXPECT_EQ(send(cls, "timeZoneWithName:", ns("Nowhere/Atlantis")), nullptr);
  EXPECT_EQ(send(cls, "timeZoneWithName:", static_cast<NSString*>(nullptr)), nullptr);
  NSObject* const offset = send(cls, "timeZoneForSecondsFromGMT:", NSInteger{-12600});
  EXPECT_EQ(utf8(send(offset, "name")), "GMT-0330");
  EXPECT_EQ(send<NSInteger>(offset, "secondsFromGMT"), -12600);
  EXPECT_EQ(send(cls, "timeZoneForSecondsFromGMT:", NSInteger{100'000}), nullptr);
}

}  // namespace
