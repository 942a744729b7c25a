// Page setup as rows, and the few document properties that are not as the format has them by itself.
#include "standin/formats/doc/writer_properties.hpp"

#include <algorithm>

#include "standin/formats/doc/modifiers.hpp"
#include "standin/formats/doc/sections.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::doc {
namespace {

constexpr double mostTwips = 31'680;

long twips(double points) { return std::max(0L, wholeParts(points, twipsPerPoint, mostTwips)); }

}  // namespace

double textWidth(const PageSetup& page) {
  constexpr double letterWidth = 612, margin = 90;
  return page.paperWidth.value_or(letterWidth) - page.leftMargin.value_or(margin) - page.rightMargin.value_or(margin);
}

std::string sectionProperties(const PageSetup& page) {
  constexpr int landscape = 2;
  Modifiers modifiers;
  for (const PageLength& row : pageLengths) {
    if (const auto& length = page.*row.member) modifiers.add(row.property, twips(*length));
  }
  if (page.paperWidth && page.paperHeight && *page.paperWidth > *page.paperHeight)
    modifiers.add(Property::landscape, landscape);
  std::string bytes;
  append16(bytes, modifiers.bytes.size());
  return bytes + modifiers.bytes;
}

std::string sectionTable(size_t textLength, size_t place) {
  constexpr uint32_t noMacPart = 0xFFFFFFFF;
  std::string table;
  append32(table, 0);
  append32(table, textLength);
  append16(table, 0);
  append32(table, place);
  append16(table, 0);
  append32(table, noMacPart);
  return table;
}

// Notes are numbered from 1, and stand at the foot of the page and at the document's end; widows are kept off.
std::string documentProperties(const DocumentInformation& information, const text::Paragraph& paragraph) {
  constexpr size_t size = 500;
  constexpr uint16_t widowControlAndFootnotes = 0x0022, firstNote = 1 << 2, endnotesAtEnd = 3;
  constexpr double usualInterval = 36;
  const double interval = paragraph.defaultTabInterval > 0 ? paragraph.defaultTabInterval : usualInterval;
  std::string bytes(size, '\0');
  const auto set16 = [&](size_t place, long number) { setNumber(bytes, place, static_cast<uint16_t>(number)); };
  set16(0, widowControlAndFootnotes);
  set16(2, firstNote);
  set16(10, std::max(1L, twips(information.defaultTabInterval.value_or(interval))));
  set16(14, 360);  // twips a line may stay short before a word is divided
  set16(52, firstNote);
  set16(54, endnotesAtEnd);
  set16(82, std::clamp(information.viewZoom.value_or(100), 10, 500) << 3);
  return bytes;
}

}  // namespace standin::formats::doc
