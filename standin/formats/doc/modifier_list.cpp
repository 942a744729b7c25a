// Modifiers by their numbers, in the form of version 97 and in that of versions 6 and 95.
#include "standin/formats/doc/modifier_list.hpp"

#include <array>

namespace standin::formats::doc {
namespace {

// Sizes of operands that say their own length: in one byte, or in two and one too much.
constexpr uint8_t counted = 0xFF, countedByTwo = 0xFE;

// Numbers of one byte that follow one another and have operands of one size.
struct OldSizes {
  uint8_t first, last, size;
};
constexpr OldSizes oldSizes[] = {
    {2, 2, 2},
    {3, 3, counted},
    {4, 11, 1},
    {12, 12, counted},
    {13, 14, 1},
    {15, 15, counted},
    {16, 19, 2},
    {20, 20, 4},
    {21, 22, 2},
    {23, 23, counted},
    {24, 25, 1},
    {26, 28, 2},
    {29, 29, 1},
    {30, 36, 2},
    {37, 37, 1},
    {38, 43, 2},
    {44, 44, 1},
    {45, 49, 2},
    {50, 51, 1},
    {52, 52, counted},
    {65, 67, 1},
    {68, 68, counted},
    {69, 69, 2},
    {70, 70, 4},
    {71, 71, 1},
    {72, 72, 2},
    {73, 74, counted},
    {75, 75, 1},
    {77, 77, 1},
    {80, 80, 2},
    {81, 82, counted},
    {83, 83, 0},
    {85, 92, 1},
    {93, 93, 2},
    {94, 94, 1},
    {95, 95, 3},
    {96, 97, 2},
    {98, 98, 1},
    {99, 99, 2},
    {100, 100, 1},
    {101, 101, 2},
    {102, 102, 1},
    {103, 103, counted},
    {104, 104, 1},
    {105, 106, counted},
    {107, 107, 2},
    {108, 108, counted},
    {109, 110, 2},
    {111, 114, 1},
    {115, 119, 1},
    {120, 120, counted},
    {121, 124, 2},
    {131, 132, 1},
    {136, 137, 3},
    {138, 139, 1},
    {140, 141, 2},
    {142, 143, 1},
    {144, 145, 2},
    {146, 147, 1},
    {148, 149, 2},
    {150, 153, 1},
    {154, 157, 2},
    {158, 159, 1},
    {160, 161, 2},
    {162, 163, 1},
    {164, 171, 2},
    {182, 182, 2},
    {183, 184, 2},
    {185, 186, 1},
    {187, 187, 12},
    {188, 188, countedByTwo},
    {189, 189, 2},
    {190, 190, countedByTwo},
    {191, 191, counted},
    {192, 192, 4},
    {193, 193, 5},
    {194, 194, 4},
    {195, 195, 2},
    {196, 196, 4},
    {197, 198, 2},
    {199, 199, 5},
    {200, 200, 4},
};

// Which numbers of one byte are which properties; pieces of newer versions use them as well.
struct OldNumber {
  uint8_t number;
  Property property;
};
constexpr OldNumber oldNumbers[] = {
    {2, Property::paragraphStyle},
    {5, Property::physicalAlignment},
    {9, Property::pageBreakBefore},
    {12, Property::numbering95},
    {13, Property::numberingLevel95},
    {15, Property::tabsOfStyle},
    {16, Property::rightIndent97},
    {17, Property::leftIndent97},
    {18, Property::nestedIndent97},
    {19, Property::firstLineIndent97},
    {20, Property::lineHeight},
    {21, Property::spaceBefore},
    {22, Property::spaceAfter},
    {23, Property::tabs},
    {24, Property::isInTable},
    {25, Property::isRowEnd},
    {65, Property::deleted},
    {66, Property::inserted},
    {67, Property::fieldHidden},
    {68, Property::pictureLocation},
    {71, Property::isFieldData},
    {74, Property::symbol},
    {75, Property::isObject},
    {77, Property::highlight},
    {80, Property::characterStyle},
    {83, Property::plain},
    {85, Property::bold},
    {86, Property::italic},
    {87, Property::strikethrough},
    {88, Property::outline},
    {89, Property::shadow},
    {90, Property::smallCapitals},
    {91, Property::capitals},
    {92, Property::hidden},
    {93, Property::font},
    {94, Property::underline},
    {95, Property::sizeAndPosition},
    {96, Property::spacing},
    {98, Property::colorIndex},
    {99, Property::size},
    {101, Property::position},
    {104, Property::superscript},
    {107, Property::minimumKernedSize},
    {115, Property::doubleStrikethrough},
    {116, Property::imprint},
    {117, Property::isSpecial},
    {118, Property::isObject},
    {142, Property::sectionBreak},
    {162, Property::landscape},
    {164, Property::pageWidth},
    {165, Property::pageHeight},
    {166, Property::leftMargin},
    {167, Property::rightMargin},
    {168, Property::topMargin},
    {169, Property::bottomMargin},
    {170, Property::gutter},
};

// By number; 0 for numbers that do not exist.
constexpr auto sizesByNumber = [] {
  std::array<uint8_t, 256> sizes{};
  for (const OldSizes& row : oldSizes) {
    for (size_t number = row.first; number <= row.last; ++number) sizes[number] = row.size;
  }
  return sizes;
}();
constexpr auto propertiesByNumber = [] {
  std::array<Property, 256> properties{};
  for (const OldNumber& row : oldNumbers) properties[row.number] = row.property;
  return properties;
}();

bool hasLongCount(Property property) {
  return property == Property::tableDefinition || property == Property::tableDefinition95;
}

// Tabs that are too many for a count of one byte: how many are taken away, with a distance each, and how many are set.
size_t sizeOfManyTabs(Bytes operand) {
  const size_t removed = 1 + size_t{operand.read8(0)} * 4;
  return removed + 1 + size_t{operand.read8(removed)} * 3;
}

}  // namespace

Property propertyOfOldNumber(uint8_t number) { return propertiesByNumber[number]; }

std::optional<Modifier> ModifierList::take(Property property, size_t start, size_t size) {
  const Modifier modifier{property, rest_.part(start, size)};
  if (modifier.operand.size() < size) return std::nullopt;
  rest_ = rest_.part(start + size);
  return modifier;
}

std::optional<Modifier> ModifierList::nextOld() {
  const uint8_t number = rest_.read8(0), size = sizesByNumber[number];
  const Property property = propertyOfOldNumber(number);
  if (size == counted) return take(property, 2, rest_.read8(1));
  if (size == countedByTwo) return take(property, 3, std::max<size_t>(rest_.read16(1), 1) - 1);
  if (size == 0 && property != Property::plain) return std::nullopt;
  return take(property, 1, size);
}

std::optional<Modifier> ModifierList::nextNew() {
  const uint16_t number = rest_.read16(0);
  const auto property = static_cast<Property>(number);
  if (const size_t size = operandSize(number)) return take(property, 2, size);
  if (hasLongCount(property)) return take(property, 4, std::max<size_t>(rest_.read16(2), 1) - 1);
  constexpr uint8_t many = 0xFF;
  const uint8_t count = rest_.read8(2);
  if (property == Property::tabs && count == many) return take(property, 3, sizeOfManyTabs(rest_.part(3)));
  return take(property, 3, count);
}

}  // namespace standin::formats::doc
