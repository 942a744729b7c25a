// Faces by number, and the table of their names.
#include "standin/formats/doc/writer_fonts.hpp"

#include <unicode/unistr.h>

#include <algorithm>

#include "standin/formats/fonts.hpp"
#include "standin/formats/little_endian.hpp"

namespace standin::formats::doc {
namespace {

constexpr size_t mostFonts = 0x7FFF;
constexpr int32_t mostNameUnits = 64;

bool isSameFace(const text::Font& left, const text::Font& right) {
  return left.name == right.name && left.family == right.family && left.traits == right.traits &&
         left.weight == right.weight;
}

// The font's kind, weight and character set as of a scalable font of no certain family, its outlines not described.
std::string entryOf(const std::string& name) {
  constexpr size_t sizeBeforeName = 39;
  constexpr char variablePitchTrueType = 0x06;
  constexpr uint16_t regularWeight = 400;
  constexpr int symbolCharacterSet = 2;
  icu::UnicodeString units = icu::UnicodeString::fromUTF8(name);
  units.truncate(mostNameUnits);
  std::string entry;
  entry += static_cast<char>(sizeBeforeName + (static_cast<size_t>(units.length()) + 1) * 2);
  entry += variablePitchTrueType;
  append16(entry, regularWeight);
  entry += name == "Symbol" ? static_cast<char>(symbolCharacterSet) : '\0';
  entry.resize(sizeBeforeName + 1);
  for (int32_t index = 0; index < units.length(); ++index) append16(entry, units[index]);
  append16(entry, 0);
  return entry;
}

}  // namespace

uint16_t FontTable::indexOf(const text::Font& font) {
  const auto found =
      std::find_if(known_.begin(), known_.end(), [&](const Known& row) { return isSameFace(row.font, font); });
  if (found != known_.end()) return found->index;
  const std::string name = nameOf(font);
  return known_.emplace_back(Known{font, indexOfName(name.empty() ? fontOf({}).family : name)}).index;
}

uint16_t FontTable::indexOfName(std::string name) {
  const auto found = std::find(names_.begin(), names_.end(), name);
  const auto index = static_cast<uint16_t>(found - names_.begin());
  if (found != names_.end()) return index;
  if (names_.size() == mostFonts) return 0;
  names_.push_back(std::move(name));
  return index;
}

std::string FontTable::bytes() const {
  std::string table;
  append16(table, names_.size());
  append16(table, 0);
  for (const std::string& name : names_) table += entryOf(name);
  return table;
}

}  // namespace standin::formats::doc
