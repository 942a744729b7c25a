// Property sets: numbered values, texts in UTF-8.
#include "standin/formats/doc/writer_summary.hpp"

#include <unicode/unistr.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <span>
#include <vector>

#include "standin/formats/doc/summary_layout.hpp"
#include "standin/formats/little_endian.hpp"

namespace standin::formats::doc {
namespace {

constexpr std::string_view summaryFormat{"\xE0\x85\x9F\xF2\xF9\x4F\x68\x10\xAB\x91\x08\x00\x2B\x27\xB3\xD9", 16};
constexpr std::string_view documentSummaryFormat{"\x02\xD5\xCD\xD5\x9C\x2E\x1B\x10\x93\x97\x08\x00\x2B\x2C\xF9\xAE", 16};

std::string textValueOf(const std::u16string& text) {
  std::string units, value;
  icu::UnicodeString(text.data(), static_cast<int32_t>(text.size())).toUTF8String(units);
  append32(value, textValue);
  append32(value, units.size() + 1);
  value += units + '\0';
  pad(value, 4);
  return value;
}

// Tenths of microseconds since 1601.
std::string timeValueOf(const CalendarTime& time) {
  using namespace std::chrono;
  const auto field = [](int number) { return static_cast<unsigned>(number); };
  const sys_days epoch = year{summaryEpoch} / 1 / 1,
                 day = year{time.year} / month{field(time.month)} / std::chrono::day{field(time.day)};
  const auto seconds = (day - epoch) + hours(time.hour) + minutes(time.minute) + std::chrono::seconds(time.second);
  std::string value;
  append32(value, timeValue);
  appendNumber(value, std::max<int64_t>(0, duration_cast<std::chrono::seconds>(seconds).count()) * ticksPerSecond);
  return value;
}

class PropertySet {
 public:
  PropertySet() {
    std::string value;
    append32(value, shortValue);
    append32(value, utf8CodePage);
    add(codePageNumber, value);
  }

  void add(const Properties& properties, std::span<const SummaryText> rows) {
    for (const SummaryText& row : rows) {
      if (const auto& text = properties.*row.member; !text.empty()) add(row.number, textValueOf(text));
    }
  }
  void add(const Properties& properties, std::span<const SummaryTime> rows) {
    for (const SummaryTime& row : rows) {
      if (const auto& time = properties.*row.member) add(row.number, timeValueOf(*time));
    }
  }

  std::string bytes(std::string_view format) const {
    constexpr size_t headSize = 48, sectionHeadSize = 8, placeSize = 8;
    std::string set;
    append16(set, 0xFFFE);
    set.resize(24);
    append32(set, 1);
    set += format;
    append32(set, headSize);
    const size_t valuesStart = sectionHeadSize + placeSize * numbers_.size();
    append32(set, valuesStart + values_.size());
    append32(set, numbers_.size());
    for (size_t index = 0; index < numbers_.size(); ++index) {
      append32(set, numbers_[index]);
      append32(set, valuesStart + places_[index]);
    }
    return set + values_;
  }

 private:
  void add(uint32_t number, const std::string& value) {
    numbers_.push_back(number);
    places_.push_back(values_.size());
    values_ += value;
  }

  std::vector<uint32_t> numbers_;
  std::vector<size_t> places_;
  std::string values_;
};

}  // namespace

std::string summary(const Properties& properties) {
  PropertySet set;
  set.add(properties, summaryTexts);
  set.add(properties, summaryTimes);
  return set.bytes(summaryFormat);
}

std::string documentSummary(const Properties& properties) {
  PropertySet set;
  set.add(properties, documentSummaryTexts);
  return set.bytes(documentSummaryFormat);
}

}  // namespace standin::formats::doc
