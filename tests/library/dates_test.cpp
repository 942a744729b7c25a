// Host dates and platform dates, both ways.
#include "bridge/dates.hpp"

#include "host/runtime/date.hpp"
#include "host/runtime/dictionary.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace bridge_test {
namespace {

class Dates : public BridgeTest {
 protected:
  static NSDate* toPlatform(host::HostObject* date) {
    return bridge::NewNSDate(static_cast<plugin::REALdate*>(forLibrary(date)));
  }
};

constexpr const char* constructor =
    "Year as Integer, Month as Integer = 1, Day as Integer = 1, hour as Integer = 0, minute as Integer = 0, "
    "second as Integer = 0";

TEST_F(Dates, KeepTheirComponentsBothWays) {
  const host::DateComponents cases[] = {
      {2014, 3, 5, 6, 7, 8}, {1970, 1, 1, 0, 0, 0},   {2000, 2, 29, 23, 59, 59},  {1900, 2, 28, 12, 0, 0},
      {1583, 1, 1, 1, 1, 1}, {2038, 1, 19, 3, 14, 8}, {9999, 12, 31, 23, 59, 59},
  };
  for (const bool constructs : {true, false}) {
    if (!constructs) switchOff(constructor);
    for (const host::DateComponents& components : cases) {
      NSDate* const date = toPlatform(host::makeDate(components));
      EXPECT_EQ(NSCalendarDate::yearOfCommonEra(date), components[0]);
      EXPECT_EQ(NSCalendarDate::minuteOfHour(date), components[4]);
      const Variant back = plugin::adoptHost(bridge::hostDate(date));
      EXPECT_EQ(show(back), show(host::makeDate(components)));
    }
  }
}

TEST_F(Dates, LoseFractionsOfASecond) {
  NSDate* const date = toPlatform(host::makeDate({2014, 3, 5, 6, 7, 8}));
  NSDate* const later =
      NSDate::dateWithTimeIntervalSinceReferenceDate(classOf<NSDate>(), NSDate::timeIntervalSinceReferenceDate(date) + 0.9);
  EXPECT_EQ(show(plugin::adoptHost(bridge::hostDate(later))), "Date 2014-3-5 6:7:8");
}

TEST_F(Dates, AreNilWithoutTheirProperties) {
  EXPECT_EQ(toPlatform(nullptr), nullptr);
  EXPECT_EQ(toPlatform(host::makeDictionary()), nullptr);
  const HostHeld date = host::makeDate({2014, 3, 5, 6, 7, 8});
  switchOff("REALGetPropValueInteger");
  EXPECT_EQ(toPlatform(date), nullptr);
}

}  // namespace
}  // namespace bridge_test
