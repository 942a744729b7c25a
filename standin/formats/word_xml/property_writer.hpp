// Styles as formatting elements.
#pragma once

#include <set>

#include "standin/formats/document.hpp"
#include "standin/formats/word_xml/edition.hpp"
#include "standin/text/style.hpp"

namespace standin::formats::word_xml {

// Elements come in the order that the formats prescribe.
class PropertyWriter {
 public:
  // The edition outlives the writer. Text is as wide as the page leaves it, in points.
  PropertyWriter(const Edition& edition, double textWidth);

  // What a w:rPr holds.
  std::string runProperties(const text::Style& style);
  // What a w:pPr holds before the properties of its mark. The paragraph begins a page when `breaksPage`.
  std::string paragraphProperties(const text::Paragraph& paragraph, bool breaksPage) const;
  // Of all runs so far.
  const std::set<std::string>& fonts() const { return fonts_; }

 private:
  void addFont(std::string& out, const text::Style& style);
  void addSpacing(std::string& out, const text::Paragraph& paragraph) const;
  void addIndents(std::string& out, const text::Paragraph& paragraph) const;

  const double textWidth_;
  const std::string highAnsi_, eastAsia_, boldComplex_, italicComplex_, sizeComplex_, lineRule_, atLeast_, firstLine_;
  const Edition& edition_;
  std::set<std::string> fonts_;
};

// The width that paper and margins leave for text; those of a letter where nothing is said.
double textWidthOf(const PageSetup& page);

// "Heading1" to "Heading9".
std::string headingStyle(int level);

// w:sectPr, empty when the page is not known.
std::string sectionProperties(const PageSetup& page);

}  // namespace standin::formats::word_xml
