// The form in which document readers give back what they read: styled text, and what the document says of itself.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "standin/text/style.hpp"

namespace standin::formats {

struct DocumentRun {
  uint32_t length;
  uint32_t style;  // index into `styles`
};

struct PageSetup {
  std::optional<double> paperWidth, paperHeight, leftMargin, rightMargin, topMargin, bottomMargin;  // points
};

// A moment as calendar fields in no particular time zone.
struct CalendarTime {
  int year = 0, month = 1, day = 1, hour = 0, minute = 0, second = 0;
};

struct Properties {
  std::u16string title, subject, author, manager, company, category, keywords, comment, editor, copyright;
  std::optional<CalendarTime> created, modified;
};

struct Document {
  std::u16string text;
  std::vector<DocumentRun> runs;  // their lengths add up to the text's
  std::vector<text::Style> styles;
  PageSetup page;
  Properties properties;
  std::optional<double> defaultTabInterval;
  std::optional<int> viewMode, viewZoom;
};

}  // namespace standin::formats
