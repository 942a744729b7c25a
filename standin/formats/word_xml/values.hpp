// Attribute values of Word's XML formats as numbers, lengths and switches.
#pragma once

#include <optional>
#include <string_view>

#include "standin/formats/word_xml/names.hpp"

namespace standin::formats::word_xml {

// An element is on unless its value says off.
bool isOn(const xml::Element& element, Name attribute = Name::value);

// Points: a number counts parts of a point, one with a unit is a length as it says.
std::optional<double> pointsOf(std::string_view value, double partsPerPoint);
std::optional<double> pointsOf(const xml::Element& element, Name attribute, double partsPerPoint);

// The whole number at the start of the value, held within a thousand million of 0.
std::optional<int> wholeNumberOf(std::string_view value);

// The edition of 2003 writes "at-least" where the others write "atLeast".
bool isSameValue(std::string_view left, std::string_view right);

// The row whose `name` is the value; nil when there is none.
template <class Row, size_t count>
const Row* findRow(const Row (&rows)[count], std::string_view value) {
  for (const Row& row : rows) {
    if (isSameValue(row.name, value)) return &row;
  }
  return nullptr;
}

}  // namespace standin::formats::word_xml
