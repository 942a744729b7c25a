// Elements of sections, and the background in front of the text.
#include "standin/formats/word_xml/page.hpp"

#include <cmath>

#include "standin/formats/colors.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/values.hpp"

namespace standin::formats::word_xml {
namespace {

std::optional<double> lengthOf(const xml::Element& element, Name attribute) {
  return pointsOf(element, attribute, twipsPerPoint);
}

// A margin at the top or the bottom that may not give way is negative.
std::optional<double> heightOf(const xml::Element& element, Name attribute) {
  const auto points = lengthOf(element, attribute);
  return points ? std::optional(std::abs(*points)) : std::nullopt;
}

}  // namespace

void Page::startElement(const xml::Element& element) {
  const Name name = nameOf(element);
  if (name == Name::background) {
    background = colorNamed(valueOf(element, find(element, Name::color) ? Name::color : Name::backgroundColor));
  }
  if (name == Name::pageSize && !setup.paperWidth) {
    setup.paperWidth = lengthOf(element, Name::width);
    setup.paperHeight = lengthOf(element, Name::height);
  }
  if (name == Name::pageMargins && !setup.leftMargin) {
    setup.leftMargin = lengthOf(element, Name::left);
    setup.rightMargin = lengthOf(element, Name::right);
    setup.topMargin = heightOf(element, Name::top);
    setup.bottomMargin = heightOf(element, Name::bottom);
  }
}

}  // namespace standin::formats::word_xml
