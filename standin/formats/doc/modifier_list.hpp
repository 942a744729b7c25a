// Lists of modifiers as they are read: each a property and its operand.
#pragma once

#include <optional>

#include "standin/formats/doc/layout.hpp"
#include "standin/formats/little_endian.hpp"

namespace standin::formats::doc {

struct Modifier {
  Property property;  // `none` for those that nothing is known of but their size
  Bytes operand;      // without its length

  bool isOn() const { return operand.read8(0) != 0; }
};

class ModifierList {
 public:
  // The form with numbers of one byte is that of versions 6 and 95.
  ModifierList(Bytes bytes, bool isOld) : rest_(bytes), isOld_(isOld) {}

  // Nothing at the end, and where the list cannot be read on.
  std::optional<Modifier> next() { return rest_.empty() ? std::nullopt : isOld_ ? nextOld() : nextNew(); }

 private:
  std::optional<Modifier> nextOld();
  std::optional<Modifier> nextNew();
  std::optional<Modifier> take(Property property, size_t start, size_t size);

  Bytes rest_;
  bool isOld_;
};

// What a number of one byte means.
Property propertyOfOldNumber(uint8_t number);

}  // namespace standin::formats::doc
