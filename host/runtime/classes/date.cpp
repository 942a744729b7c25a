// Dates.
#include "host/runtime/date.hpp"

#include <cstdio>
#include <ctime>

#include "host/runtime/classes/classes.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/exception.hpp"

namespace host {
namespace {

enum Component { year, month, day, hour, minute, second };

constexpr int64_t secondsADay = 86400;
// Seconds from the host's epoch, 1904-01-01, to 1970-01-01.
constexpr int64_t epochSeconds = 2082844800;

// Before its constructor a date is the epoch: setting year, month and day in this order then never carries over.
struct Date {
  DateComponents components = {1904, 1, 1, 0, 0, 0};
};

int64_t floorDivide(int64_t value, int64_t by) { return value / by - (value % by < 0 ? 1 : 0); }

// Days since 1970-01-01 in the proleptic Gregorian calendar, with years that begin in March.
int64_t daysFrom(int64_t years, int64_t months, int64_t days) {
  const int64_t marchYear = years + floorDivide(months - 3, 12);
  const int64_t marchMonth = months - 3 - floorDivide(months - 3, 12) * 12;
  const int64_t era = floorDivide(marchYear, 400), yearOfEra = marchYear - era * 400;
  return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + (153 * marchMonth + 2) / 5 + days - 1 - 719468;
}

int64_t secondsFrom(const DateComponents& c) {
  return daysFrom(c[year], c[month], c[day]) * secondsADay + c[hour] * 3600 + c[minute] * 60 + c[second];
}

DateComponents componentsFrom(int64_t seconds) {
  const int64_t days = floorDivide(seconds, secondsADay), rest = seconds - days * secondsADay;
  const int64_t shifted = days + 719468, era = floorDivide(shifted, 146097), dayOfEra = shifted - era * 146097;
  const int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const int64_t marchMonth = (5 * dayOfYear + 2) / 153, monthNumber = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
  return {yearOfEra + era * 400 + (monthNumber <= 2 ? 1 : 0),
          monthNumber,
          dayOfYear - (153 * marchMonth + 2) / 5 + 1,
          rest / 3600,
          rest / 60 % 60,
          rest % 60};
}

// A component beyond a thousand million of its units would leave the range of the arithmetic.
DateComponents carried(const DateComponents& components) {
  for (const int64_t component : components) {
    if (component > 1'000'000'000 || component < -1'000'000'000) {
      throwException("OutOfBoundsException", std::to_string(component) + " is too far away for a date.");
    }
  }
  return componentsFrom(secondsFrom(components));
}

DateComponents now() {
  const std::time_t clock = std::time(nullptr);
  std::tm local = {};
  localtime_r(&clock, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

DateComponents& componentsIn(const HostObject* date) { return date->stateAs<Date>().components; }

template <Component component>
int64_t get(HostObject* self, int64_t) {
  return componentsIn(self)[component];
}

template <Component component>
void set(HostObject* self, int64_t, int64_t value) {
  DateComponents changed = componentsIn(self);
  changed[component] = value;
  componentsIn(self) = carried(changed);
}

double totalSeconds(HostObject* self, int64_t) {
  return static_cast<double>(secondsFrom(componentsIn(self)) + epochSeconds);
}

void setTotalSeconds(HostObject* self, int64_t, double seconds) {
  constexpr double limit = 1e15;
  if (!(seconds > -limit && seconds < limit)) throwException("OutOfBoundsException", "The date is too far away.");
  componentsIn(self) = componentsFrom(static_cast<int64_t>(seconds) - epochSeconds);
}

// 1 is Sunday.
int64_t dayOfWeek(HostObject* self, int64_t) {
  const int64_t days = floorDivide(secondsFrom(componentsIn(self)), secondsADay);
  return days + 4 - floorDivide(days + 4, 7) * 7 + 1;
}

int64_t dayOfYear(HostObject* self, int64_t) {
  const DateComponents& c = componentsIn(self);
  return daysFrom(c[year], c[month], c[day]) - daysFrom(c[year], 1, 1) + 1;
}

HostString* sqlDateTime(HostObject* self, int64_t) { return toString(Value::object(retain(self))).detach(); }
HostString* sqlDate(HostObject* self, int64_t) {
  const std::string text = toUtf8(Value::object(retain(self)));
  return HostString::make(text.substr(0, text.find(' '))).detach();
}

// "2014-03-05" or "2014-03-05 06:07:08".
void setSqlDateTime(HostObject* self, int64_t, HostString* value) {
  long long c[6] = {};
  const std::string text(bytesOf(value));
  const int found =
      std::sscanf(text.c_str(), "%lld-%2lld-%2lld %2lld:%2lld:%2lld", &c[0], &c[1], &c[2], &c[3], &c[4], &c[5]);
  if (found != 3 && found != 6) throwException("UnsupportedFormatException", "\"" + text + "\" is no SQL date.");
  componentsIn(self) = carried({c[0], c[1], c[2], c[3], c[4], c[5]});
}

void constructNow(HostObject* self) { componentsIn(self) = now(); }
void constructCopy(HostObject* self, HostObject* date) {
  if (date == nullptr) throwNilObject("The date");
  componentsIn(self) = componentsIn(date);
}
void construct(HostObject* self, int64_t years, int64_t months, int64_t days, int64_t hours, int64_t minutes,
               int64_t seconds) {
  componentsIn(self) = carried({years, months, days, hours, minutes, seconds});
}

const BuiltinProperty properties[] = {
    {"Year as Integer", native(get<year>), native(set<year>)},
    {"Month as Integer", native(get<month>), native(set<month>)},
    {"Day as Integer", native(get<day>), native(set<day>)},
    {"Hour as Integer", native(get<hour>), native(set<hour>)},
    {"Minute as Integer", native(get<minute>), native(set<minute>)},
    {"Second as Integer", native(get<second>), native(set<second>)},
    {"DayOfWeek as Integer", native(dayOfWeek)},
    {"DayOfYear as Integer", native(dayOfYear)},
    {"TotalSeconds as Double", native(totalSeconds), native(setTotalSeconds)},
    {"SQLDate as String", native(sqlDate), native(setSqlDateTime)},
    {"SQLDateTime as String", native(sqlDateTime), native(setSqlDateTime)},
};

const BuiltinMethod methods[] = {
    {"Constructor()", native(constructNow)},
    {"Constructor(copied as Date)", native(constructCopy)},
    {"Year as Integer, Month as Integer = 1, Day as Integer = 1, hour as Integer = 0, minute as Integer = 0, "
     "second as Integer = 0",
     native(construct)},
};

}  // namespace

const BuiltinClass dateClass{.name = "Date", .state = stateOf<Date>(), .properties = properties, .methods = methods};

HostOwned<HostObject> makeDate(const DateComponents& components) {
  HostOwned<HostObject> date = HostObject::make(builtinClass<dateClass>());
  componentsIn(date) = carried(components);
  return date;
}

bool isDate(const HostObject* object) { return isInstanceOf<dateClass>(object); }
DateComponents componentsOf(const HostObject* date) { return componentsIn(date); }

}  // namespace host
