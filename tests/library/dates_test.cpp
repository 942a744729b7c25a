// Host dates and platform dates, both ways.
#include "bridge/dates.hpp"

#include <cstdlib>
#include <ctime>
#include <map>

#include "bridge/to_variant.hpp"
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

// With the constructor, and by the properties where the host lacks it.
TEST_F(Dates, KeepTheirComponentsBothWays) {
  const host::DateComponents cases[] = {
      {2014, 3, 5, 6, 7, 8}, {1970, 1, 1, 0, 0, 0},   {2000, 2, 29, 23, 59, 59},  {1900, 2, 28, 12, 0, 0},
      {1583, 1, 1, 1, 1, 1}, {2038, 1, 19, 3, 14, 8}, {9999, 12, 31, 23, 59, 59},
  };
  for (const char* const missing : {"none", constructor, "REALLoadObjectMethod"}) {
    switchOff(missing);
    for (const host::DateComponents& components : cases) {
      NSDate* const shown = toPlatform(host::makeDate(components));
      EXPECT_EQ(NSCalendarDate::yearOfCommonEra(shown), components[0]);
      EXPECT_EQ(NSCalendarDate::minuteOfHour(shown), components[4]);
      NSDate* const plain =
          NSDate::dateWithTimeIntervalSinceReferenceDate(classOf<NSDate>(), NSDate::timeIntervalSinceReferenceDate(shown));
      for (NSDate* const date : {shown, plain}) {
        const Variant back = plugin::adoptHost(bridge::NewVariantFromNSObject(date));
        EXPECT_EQ(show(back), show(host::makeDate(components))) << "without " << missing;
      }
    }
    allOn();
  }
}

// The local zone, for as long as this lives.
class LocalZone {
 public:
  explicit LocalZone(const char* rules) {
    if (const char* known = std::getenv("TZ")) before_ = known;
    setenv("TZ", rules, 1);
  }
  LocalZone(const LocalZone&) = delete;
  LocalZone& operator=(const LocalZone&) = delete;
  ~LocalZone() {
    if (before_) {
      setenv("TZ", before_->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

 private:
  std::optional<std::string> before_;
};

TEST_F(Dates, FollowDaylightSaving) {
  const LocalZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
  constexpr double referenceDate = 978307200;
  const struct {
    host::DateComponents local;
    double unixTime;
  } cases[] = {
      {{2024, 1, 15, 12, 0, 0}, 1705316400},   // one hour ahead
      {{2024, 7, 14, 12, 0, 0}, 1720951200},   // two hours ahead
      {{2024, 3, 31, 1, 59, 59}, 1711846799},  // the last second of winter
      {{2024, 3, 31, 3, 0, 0}, 1711846800},    // the first of summer
      {{2024, 10, 27, 3, 0, 0}, 1729994400},   // the hour after the repeated one
  };
  for (const auto& [local, unixTime] : cases) {
    const HostHeld date = host::makeDate(local);
    NSDate* const across = toPlatform(date);
    EXPECT_EQ(NSDate::timeIntervalSinceReferenceDate(across), unixTime - referenceDate) << show(date);
    EXPECT_EQ(show(plugin::adoptHost(bridge::hostDate(across))), show(date));
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

// A host whose objects have the properties that a test gives them; and the order in which properties were asked for or set.
std::map<std::string, int64_t> given;
std::vector<std::string> touched;
bool readGiven(plugin::REALobject, const char* property, int64_t* value) {
  touched.push_back(property);
  const auto found = given.find(property);
  if (found != given.end()) *value = found->second;
  return found != given.end();
}
bool keepSet(plugin::REALobject, const char* property, int64_t value) {
  touched.push_back(property + (" " + std::to_string(value)));
  return true;
}

TEST_F(Dates, ReadTheirPropertiesInOrderUntilOneIsMissing) {
  intercept("REALGetPropValueInteger", reinterpret_cast<void*>(&readGiven));
  const Variant object = plugin::newInstance("StrangerZKT");
  given = {{"Year", 2014}};
  touched.clear();
  EXPECT_EQ(toPlatform(forHost(object)), nullptr);
  EXPECT_EQ(touched, (std::vector<std::string>{"Year", "Month"}));
  given = {{"Year", 2014}, {"Month", 13}, {"Day", 0}, {"Hour", 24}, {"Minute", 59}, {"Second", 61}};
  EXPECT_EQ(show(plugin::adoptHost(bridge::hostDate(toPlatform(forHost(object))))), "Date 2015-1-1 1:0:1");
}

TEST_F(Dates, SetTheirPropertiesInOrder) {
  switchOff(constructor);
  intercept("REALSetPropValueInteger", reinterpret_cast<void*>(&keepSet));
  touched.clear();
  const Variant date = plugin::adoptHost(bridge::hostDate(toPlatform(host::makeDate({2014, 3, 5, 6, 7, 8}))));
  EXPECT_EQ(touched, (std::vector<std::string>{"Year 2014", "Month 3", "Day 5", "Hour 6", "Minute 7", "Second 8"}));
  EXPECT_EQ(show(date), "Date 1904-1-1 0:0:0");
}

}  // namespace
}  // namespace bridge_test
