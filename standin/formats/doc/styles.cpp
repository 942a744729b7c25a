// A header, then the styles by number: the fixed part of each, its name, and its lists of modifiers.
#include "standin/formats/doc/styles.hpp"

#include <algorithm>
#include <iterator>

namespace standin::formats::doc {
namespace {

// Styles that descend through more than these are known from documents made to break readers.
constexpr size_t mostAncestors = 64;

void append(std::vector<Bytes>& under, const std::vector<Bytes>& over) {
  if (under.size() < mostAncestors) under.insert(under.end(), over.begin(), over.end());
}

constexpr size_t even(size_t size) { return (size + 1) / 2 * 2; }

}  // namespace

void overlay(StyleModifiers& under, const StyleModifiers& over) {
  append(under.paragraph, over.paragraph);
  append(under.characters, over.characters);
}

Styles::Styles(const Source& source) : isOld_(source.isOld) {
  constexpr size_t firstFont = 12;  // in the header, the numbers of the fonts of three scripts, then of complex ones
  constexpr uint16_t mostStyles = 4095;
  const Bytes sheet = source.part(Part::styleSheet);
  const Bytes header = sheet.part(2, sheet.read16(0));
  for (size_t script = 0; script < std::size(defaultFonts); ++script) {
    defaultFonts[script] = header.read16(firstFont + script * 2);
  }
  const uint16_t count = std::min(header.read16(0), mostStyles);
  Bytes rest = sheet.part(size_t{2} + sheet.read16(0));
  for (uint16_t number = 0; number < count && !rest.empty(); ++number) {
    const size_t size = rest.read16(0);
    if (size != 0) addStyle(number, rest.part(2, size), header.read16(2));
    rest = rest.part(2 + even(size));
  }
}

void Styles::addStyle(uint16_t number, Bytes description, size_t baseSize) {
  const uint16_t identifier = description.read16(0) & 0x0FFF, kindAndParent = description.read16(2);
  const auto kind = static_cast<StyleKind>(kindAndParent & 0xF);
  const uint16_t parent = kindAndParent >> 4, listCount = description.read16(4) & 0xF;
  const size_t nameSize = isOld_ ? size_t{description.read8(baseSize)} + 2 : size_t{description.read16(baseSize)} * 2 + 4;
  StyleModifiers own;
  size_t place = even(baseSize + nameSize);
  for (uint16_t index = 0; index < listCount && place < description.size(); ++index) {
    const size_t size = description.read16(place);
    const Bytes list = description.part(place + 2, size);
    const bool ofParagraph = kind == paragraphStyle && index == 0;
    if (ofParagraph) own.paragraph.push_back(list.part(2));
    if (!ofParagraph && kind <= characterStyle) own.characters.push_back(list);
    place += 2 + even(size);
  }
  sheet_.add(number, parent == noStyle ? std::nullopt : std::optional(parent), std::move(own));
  headerLevels_.resize(size_t{number} + 1);
  const bool isHeading = identifier >= firstHeadingStyle && identifier <= lastHeadingStyle;
  if (isHeading) headerLevels_[number] = static_cast<uint8_t>(identifier);
}

}  // namespace standin::formats::doc
