// A table of the sections' ends, and for each the place of its modifiers in the document stream.
#include "standin/formats/doc/sections.hpp"

#include <algorithm>
#include <cmath>

#include "standin/formats/doc/modifier_list.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::doc {
namespace {

// A negative margin is exact, a positive one grows with the header: they are the same without headers.
PageSetup pageOf(Bytes list, bool isOld) {
  PageSetup page;
  for (const PageLength& row : pageLengths) page.*row.member = row.unsaid / twipsPerPoint;
  ModifierList modifiers(list, isOld);
  while (const auto modifier = modifiers.next()) {
    for (const PageLength& row : pageLengths) {
      const int twips = modifier->operand.number<int16_t>(0);
      if (row.property == modifier->property) page.*row.member = std::abs(twips) / twipsPerPoint;
    }
  }
  return page;
}

}  // namespace

Sections::Sections(const Source& source) {
  constexpr size_t sectionSize = 12;
  constexpr uint32_t noModifiers = 0xFFFFFFFF;
  const Bytes table = source.part(Part::sections);
  const size_t count = table.size() < 4 ? 0 : (table.size() - 4) / (4 + sectionSize);
  for (size_t index = 1; index <= count; ++index) ends.push_back(table.read32(index * 4));
  std::sort(ends.begin(), ends.end());
  const uint32_t place = count > 0 ? table.read32((count + 1) * 4 + 2) : noModifiers;
  page = pageOf(place == noModifiers ? Bytes() : source.document.part(size_t{place} + 2, source.document.read16(place)),
                source.isOld);
}

}  // namespace standin::formats::doc
