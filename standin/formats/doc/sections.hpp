// The sections of a document that is read, and the page of the first.
#pragma once

#include <vector>

#include "standin/formats/doc/source.hpp"
#include "standin/formats/document.hpp"

namespace standin::formats::doc {

// The lengths of a page, and what they are where nothing is said.
struct PageLength {
  Property property;
  std::optional<double> PageSetup::*member;
  int unsaid;  // twips
};
inline constexpr PageLength pageLengths[] = {
    {Property::pageWidth, &PageSetup::paperWidth, 12240}, {Property::pageHeight, &PageSetup::paperHeight, 15840},
    {Property::leftMargin, &PageSetup::leftMargin, 1800}, {Property::rightMargin, &PageSetup::rightMargin, 1800},
    {Property::topMargin, &PageSetup::topMargin, 1440},   {Property::bottomMargin, &PageSetup::bottomMargin, 1440},
};

struct Sections {
  explicit Sections(const Source& source);

  std::vector<uint32_t> ends;  // characters behind the sections, ascending
  PageSetup page;
};

}  // namespace standin::formats::doc
