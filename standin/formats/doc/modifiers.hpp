// Lists of modifiers as they are written: each a property and its operand.
#pragma once

#include "standin/formats/doc/layout.hpp"
#include "standin/formats/little_endian.hpp"

namespace standin::formats::doc {

struct Modifiers {
  // The operand takes the bytes that the property's number says.
  void add(Property property, int64_t operand) {
    append16(bytes, property);
    for (size_t byte = 0; byte < operandSize(static_cast<uint16_t>(property)); ++byte) {
      bytes += static_cast<char>(operand >> (8 * byte));
    }
  }
  // Of properties whose operand says its own length.
  void add(Property property, std::string_view operand) {
    append16(bytes, property);
    bytes += static_cast<char>(operand.size());
    bytes += operand;
  }
  void addUnlessZero(Property property, int64_t operand) {
    if (operand != 0) add(property, operand);
  }

  std::string bytes{};
};

}  // namespace standin::formats::doc
