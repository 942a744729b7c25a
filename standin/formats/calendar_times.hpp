// Moments in the notation of ISO 8601, as document properties write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "standin/formats/document.hpp"

namespace standin::formats {

// Of the years 1 to 9999, with every field in its range; second 60 and hour 24 are.
bool isInCalendar(const CalendarTime& time);

// "2004-05-06T07:08:09", with or without fractions and a zone, which are left out; the time of day may be missing. Nothing
// for what is not in the calendar.
std::optional<CalendarTime> calendarTimeOf(std::string_view text);
std::string textOf(const CalendarTime& time);

}  // namespace standin::formats
