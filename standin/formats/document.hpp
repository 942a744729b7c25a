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

// What a document says of itself: readers find it, writers take it.
struct DocumentInformation {
  PageSetup page;
  Properties properties;
  std::optional<double> defaultTabInterval;     // points
  std::optional<double> viewWidth, viewHeight;  // of the window, points
  std::optional<double> hyphenationFactor;      // 0 to 1
  std::optional<int> viewMode, viewZoom;        // 0 free and 1 by pages; per cent
  std::optional<int> readOnly;                  // 1: readers are asked not to edit
  std::optional<int> rtfVersion;                // of the platform that wrote it
  std::optional<text::Color> background;
  std::optional<uint64_t> characterEncoding;  // NSString's number, of plain text
  std::string textEncodingName;               // of HTML, as the registry of character sets has it
  // Of HTML that is written: elements that it must do without (absent: the usual ones), and spaces for each level of
  // nesting.
  std::optional<std::vector<std::string>> excludedElements;
  std::optional<int> prefixSpaces;
};

struct Document : DocumentInformation {
  std::u16string text;
  std::vector<DocumentRun> runs;  // their lengths add up to the text's
  std::vector<text::Style> styles;
};

}  // namespace standin::formats
