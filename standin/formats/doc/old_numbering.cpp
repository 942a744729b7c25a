// The kind of number, how many characters stand before and behind it, and these characters.
#include "standin/formats/doc/old_numbering.hpp"

#include "standin/formats/code_pages.hpp"

namespace standin::formats::doc {
namespace {

constexpr size_t beforePlace = 1, behindPlace = 2, startPlace = 10, textPlace = 20, mostCharacters = 32;
constexpr uint8_t outlineLevels = 9, bulletLevel = 11;

ListLevel levelOf(const ParagraphProperties& paragraph, int place) {
  constexpr NumberFormat formats[] = {NumberFormat::decimal, NumberFormat::upperRoman, NumberFormat::lowerRoman,
                                      NumberFormat::upperLetter, NumberFormat::lowerLetter};
  const Bytes numbering = paragraph.oldNumbering;
  const size_t before = numbering.read8(beforePlace), behind = numbering.read8(behindPlace);
  const std::string_view characters = numbering.part(textPlace, mostCharacters).characters();
  Decoder decoder;
  const auto text = [&](size_t from, size_t length) {
    std::u16string decoded;
    if (from < characters.size()) decoder.append(decoded, characters.substr(from, length), 1252);
    return decoded;
  };
  if (paragraph.oldNumberingLevel == bulletLevel) return {NumberFormat::bullet, text(0, before), 1};
  const uint8_t format = numbering.read8(0);
  const auto number = static_cast<char16_t>(u'1' + place);
  return {format < std::size(formats) ? formats[format] : NumberFormat::decimal,
          text(0, before) + u'%' + number + text(before, behind), numbering.read16(startPlace)};
}

}  // namespace

std::u16string OldNumbering::nextMarker(const ParagraphProperties& paragraph) {
  const uint8_t level = paragraph.oldNumberingLevel;
  if (level == 0 || paragraph.oldNumbering.empty()) {
    counters_ = {};
    return {};
  }
  const int place = level <= outlineLevels ? level - 1 : 0;
  levels_[static_cast<size_t>(place)] = levelOf(paragraph, place);
  return counters_.next(levels_, place);
}

}  // namespace standin::formats::doc
