// The property sets in which a document says of itself what it is: numbered values of several types.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "standin/formats/document.hpp"

namespace standin::formats::doc {

struct SummaryText {
  uint32_t number;
  std::u16string Properties::*member;
};
inline constexpr SummaryText summaryTexts[] = {
    {2, &Properties::title},    {3, &Properties::subject}, {4, &Properties::author},
    {5, &Properties::keywords}, {6, &Properties::comment}, {8, &Properties::editor},
};
// Of the second set, of the company and what belongs to it.
inline constexpr SummaryText documentSummaryTexts[] = {
    {2, &Properties::category}, {14, &Properties::manager}, {15, &Properties::company}};

struct SummaryTime {
  uint32_t number;
  std::optional<CalendarTime> Properties::*member;
};
inline constexpr SummaryTime summaryTimes[] = {{12, &Properties::created}, {13, &Properties::modified}};

// Texts are in the set's code page, wide ones in UTF-16; times are tenths of microseconds since the year 1601.
enum SummaryValueType : uint32_t { shortValue = 2, textValue = 30, wideTextValue = 31, timeValue = 64 };
inline constexpr uint32_t codePageNumber = 1;
inline constexpr int utf8CodePage = 65001, utf16CodePage = 1200;
inline constexpr int64_t ticksPerSecond = 10'000'000;
inline constexpr int summaryEpoch = 1601;

}  // namespace standin::formats::doc
