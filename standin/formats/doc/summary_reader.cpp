// A property set begins with the place of its section, the section with the places of its values.
#include "standin/formats/doc/summary_reader.hpp"

#include <algorithm>
#include <chrono>

#include "standin/formats/code_pages.hpp"
#include "standin/formats/doc/summary_layout.hpp"

namespace standin::formats::doc {
namespace {

std::u16string wideText(Bytes bytes) {
  std::u16string text;
  for (size_t place = 0; place + 2 <= bytes.size() && bytes.read16(place) != 0; place += 2) text += bytes.read16(place);
  return text;
}

std::optional<CalendarTime> timeOf(uint64_t ticks) {
  using namespace std::chrono;
  constexpr uint64_t most = uint64_t{ticksPerSecond} * 86'400 * 366 * 8'000;  // no calendar has years past 9999
  if (ticks == 0 || ticks > most) return std::nullopt;
  const sys_days epoch = year{summaryEpoch} / 1 / 1;
  const sys_seconds moment = epoch + seconds(ticks / ticksPerSecond);
  const auto day = floor<days>(moment);
  const year_month_day date(day);
  const hh_mm_ss time(moment - day);
  return CalendarTime{static_cast<int>(date.year()),
                      static_cast<int>(static_cast<unsigned>(date.month())),
                      static_cast<int>(static_cast<unsigned>(date.day())),
                      static_cast<int>(time.hours().count()),
                      static_cast<int>(time.minutes().count()),
                      static_cast<int>(time.seconds().count())};
}

class PropertySet {
 public:
  explicit PropertySet(const std::vector<uint8_t>& set) {
    constexpr size_t sectionPlace = 44;
    section_ = Bytes(set).part(Bytes(set).read32(sectionPlace));
    const Bytes codePage = find(codePageNumber);
    if (codePage.read32(0) == shortValue) codePage_ = codePage.read16(4);
  }

  std::u16string text(uint32_t number) const {
    constexpr size_t longest = 1 << 16;
    const Bytes value = find(number);
    const size_t length = std::min<size_t>(value.read32(4), longest);
    if (value.read32(0) == wideTextValue) return wideText(value.part(8, length * 2));
    if (value.read32(0) != textValue) return {};
    if (codePage_ == utf16CodePage) return wideText(value.part(8, length));
    const std::string_view bytes = value.part(8, length).characters();
    std::u16string text;
    Decoder().append(text, bytes.substr(0, std::min(bytes.find('\0'), bytes.size())), codePage_);
    return text;
  }

  std::optional<CalendarTime> time(uint32_t number) const {
    const Bytes value = find(number);
    return value.read32(0) == timeValue ? timeOf(value.number<uint64_t>(4)) : std::nullopt;
  }

 private:
  Bytes find(uint32_t number) const {
    constexpr size_t headSize = 8, placeSize = 8;
    const size_t count = std::min<size_t>(section_.read32(4), section_.size() / placeSize);
    for (size_t index = 0; index < count; ++index) {
      const Bytes entry = section_.part(headSize + index * placeSize, placeSize);
      if (entry.read32(0) == number) return section_.part(entry.read32(4));
    }
    return {};
  }

  Bytes section_;
  int codePage_ = 1252;
};

}  // namespace

Properties propertiesOf(const Source& source) {
  Properties properties;
  const PropertySet summary(source.summary), documentSummary(source.documentSummary);
  for (const SummaryText& row : summaryTexts) properties.*row.member = summary.text(row.number);
  for (const SummaryText& row : documentSummaryTexts) properties.*row.member = documentSummary.text(row.number);
  for (const SummaryTime& row : summaryTimes) properties.*row.member = summary.time(row.number);
  return properties;
}

}  // namespace standin::formats::doc
