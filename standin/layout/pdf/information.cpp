// Title, author and the like.
#include "standin/layout/pdf/information.hpp"

#include <cstdio>

#include "standin/formats/calendar_times.hpp"
#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout::pdf {
namespace {

using formats::CalendarTime;
using formats::Properties;

constexpr struct {
  const char* key;
  std::u16string Properties::*member;
} textRows[] = {{"/Title", &Properties::title},
                {"/Author", &Properties::author},
                {"/Subject", &Properties::subject},
                {"/Keywords", &Properties::keywords}};
constexpr struct {
  const char* key;
  std::optional<CalendarTime> Properties::*member;
} timeRows[] = {{"/CreationDate", &Properties::created}, {"/ModDate", &Properties::modified}};

// Of a time whose fields are in their ranges: four digits of the year, two of each other.
std::string timeString(const CalendarTime& time) {
  char text[96];
  std::snprintf(text, sizeof text, "(D:%04d%02d%02d%02d%02d%02d)", time.year, time.month, time.day, time.hour, time.minute,
                time.second);
  return text;
}

}  // namespace

int writeInformation(File& file, const Properties& properties) {
  std::string body = "<</Producer(Styled Text)";
  for (const auto& row : textRows) {
    if (const auto& value = properties.*row.member; !value.empty()) body += row.key + textString(value);
  }
  for (const auto& row : timeRows) {
    const auto& value = properties.*row.member;
    if (value && formats::calendarTimeOf(formats::textOf(*value))) body += row.key + timeString(*value);
  }
  const int object = file.reserve();
  file.put(object, body + ">>");
  return object;
}

}  // namespace standin::layout::pdf
