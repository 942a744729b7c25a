// ISO 8601 read and written.
#include "standin/formats/calendar_times.hpp"

#include <charconv>
#include <cstdio>

namespace standin::formats {
namespace {

// So many digits at the place; -1 for anything else.
int digits(std::string_view text, size_t at, size_t count) {
  if (text.size() < at + count) return -1;
  int number = -1;
  const char* end = text.data() + at + count;
  const auto [stop, fault] = std::from_chars(text.data() + at, end, number);
  return fault == std::errc() && stop == end ? number : -1;
}

bool within(int number, int least, int most) { return number >= least && number <= most; }

}  // namespace

bool isInCalendar(const CalendarTime& time) {
  const bool isDate = within(time.year, 1, 9999) && within(time.month, 1, 12) && within(time.day, 1, 31);
  return isDate && within(time.hour, 0, 24) && within(time.minute, 0, 59) && within(time.second, 0, 60);
}

std::optional<CalendarTime> calendarTimeOf(std::string_view text) {
  CalendarTime time{digits(text, 0, 4), digits(text, 5, 2), digits(text, 8, 2)};
  if (text.size() > 10 && text[10] == 'T') {
    time.hour = digits(text, 11, 2);
    time.minute = digits(text, 14, 2);
    time.second = text.size() > 16 && text[16] == ':' ? digits(text, 17, 2) : 0;
  }
  return isInCalendar(time) ? std::optional(time) : std::nullopt;
}

std::string textOf(const CalendarTime& time) {
  char buffer[80];
  const int length = std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d", time.year, time.month, time.day,
                                   time.hour, time.minute, time.second);
  return {buffer, static_cast<size_t>(length)};
}

}  // namespace standin::formats
