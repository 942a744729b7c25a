// Elements of w:rPr, w:pPr and w:sectPr.
#include "standin/formats/word_xml/property_writer.hpp"

#include <algorithm>
#include <cmath>

#include "standin/formats/colors.hpp"
#include "standin/formats/fonts.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/vocabulary.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::word_xml {
namespace {

constexpr double letterWidth = 612, letterHeight = 792, usualMargin = 72;  // points
constexpr long twipsOfSingleLine = 240;

long twips(double points) { return wholeParts(points, twipsPerPoint); }

void add(std::string& out, std::string_view element) { ((out += "<w:") += element) += "/>"; }
void add(std::string& out, std::string_view element, std::string_view value) {
  ((((out += "<w:") += element) += " w:val=\"") += value) += "\"/>";
}
void add(std::string& out, std::string_view element, long value) { add(out, element, std::to_string(value)); }
void addAttribute(std::string& out, std::string_view name, long value) {
  ((((out += " w:") += name) += "=\"") += std::to_string(value)) += '"';
}

void addUnderline(std::string& out, const text::Style& style, const Edition& edition) {
  const std::string_view name = underlineName(style.underline);
  if (name.empty()) return;
  ((out += "<w:u w:val=\"") += edition.spelled(name)) += '"';
  if (style.underlineColor) ((out += " w:color=\"") += hexOf(*style.underlineColor)) += '"';
  out += "/>";
}

void addLigatures(std::string& out, const std::optional<int>& ligature) {
  if (!ligature) return;
  constexpr std::string_view kinds[] = {"none", "standard", "all"};
  ((out += "<w14:ligatures w14:val=\"") += kinds[std::clamp(*ligature, 0, 2)]) += "\"/>";
}

void addTabs(std::string& out, const text::Paragraph& paragraph) {
  if (!paragraph.tabs || paragraph.tabs->empty()) return;
  out += "<w:tabs>";
  for (const text::TabStop& tab : *paragraph.tabs) {
    ((out += "<w:tab w:val=\"") += tabName(tab.kind)) += '"';
    addAttribute(out, "pos", twips(tab.position));
    out += "/>";
  }
  out += "</w:tabs>";
}

// The formats call the beginning of lines left in text from right to left, too.
text::Alignment leading(const text::Paragraph& paragraph) {
  const bool isMirrored = paragraph.direction == text::WritingDirection::rightToLeft;
  if (isMirrored && paragraph.alignment == text::Alignment::left) return text::Alignment::right;
  if (isMirrored && paragraph.alignment == text::Alignment::right) return text::Alignment::left;
  return paragraph.alignment;
}

}  // namespace

PropertyWriter::PropertyWriter(const Edition& edition, double textWidth)
    : textWidth_(textWidth),
      highAnsi_(edition.spelled("hAnsi")),
      eastAsia_(edition.spelled("eastAsia")),
      boldComplex_(edition.spelled("bCs")),
      italicComplex_(edition.spelled("iCs")),
      sizeComplex_(edition.spelled("szCs")),
      lineRule_(edition.spelled("lineRule")),
      atLeast_(edition.spelled("atLeast")),
      firstLine_(edition.spelled("firstLine")),
      edition_(edition) {}

void PropertyWriter::addFont(std::string& out, const text::Style& style) {
  std::string name;
  xml::appendEscapedUTF8(name, nameOf(fontOf(style)));
  out += "<w:rFonts";
  for (const std::string_view script :
       {std::string_view("ascii"), std::string_view(eastAsia_), std::string_view(highAnsi_), std::string_view("cs")}) {
    ((((out += " w:") += script) += "=\"") += name) += '"';
  }
  out += "/>";
  fonts_.insert(std::move(name));
}

std::string PropertyWriter::runProperties(const text::Style& style) {
  const text::Font& font = fontOf(style);
  std::string out;
  addFont(out, style);
  if (font.bold()) add(out, "b"), add(out, boldComplex_);
  if (font.italic()) add(out, "i"), add(out, italicComplex_);
  if (style.strikethrough != 0) add(out, style.strikethrough == 9 ? "dstrike" : "strike");
  if (style.strokeWidth > 0) add(out, "outline");
  if (style.shadow) add(out, "shadow");
  if (style.foreground) add(out, "color", hexOf(*style.foreground));
  if (style.kern != 0) add(out, "spacing", twips(style.kern));
  if (style.expansion != 0) add(out, "w", std::clamp(wholeParts(1 + style.expansion, 100), 1L, 600L));
  if (style.baselineOffset != 0) add(out, "position", wholeParts(style.baselineOffset, halfPointsPerPoint));
  const long size = std::clamp(wholeParts(font.size, halfPointsPerPoint), 2L, 3276L);
  add(out, "sz", size);
  add(out, sizeComplex_, size);
  addUnderline(out, style, edition_);
  if (style.background) {
    ((out += "<w:shd w:val=\"clear\" w:color=\"auto\" w:fill=\"") += hexOf(*style.background)) += "\"/>";
  }
  if (style.superscript != 0) add(out, "vertAlign", style.superscript > 0 ? "superscript" : "subscript");
  addLigatures(out, style.ligature);
  return out;
}

std::string PropertyWriter::paragraphProperties(const text::Paragraph& paragraph, bool breaksPage) const {
  std::string out;
  if (paragraph.headerLevel > 0) add(out, "pStyle", headingStyle(paragraph.headerLevel));
  if (breaksPage) add(out, "pageBreakBefore");
  addTabs(out, paragraph);
  if (paragraph.direction == text::WritingDirection::rightToLeft) add(out, "bidi");
  if (paragraph.direction == text::WritingDirection::leftToRight) add(out, "bidi", edition_.spelled("off"));
  addSpacing(out, paragraph);
  addIndents(out, paragraph);
  if (const auto name = alignmentName(leading(paragraph)); !name.empty()) add(out, "jc", name);
  return out;
}

// One of three kinds of line height: a multiple, an exact one, a least one.
void PropertyWriter::addSpacing(std::string& out, const text::Paragraph& paragraph) const {
  std::string attributes;
  if (paragraph.spacingBefore > 0) addAttribute(attributes, "before", twips(paragraph.spacingBefore));
  if (paragraph.spacingAfter > 0) addAttribute(attributes, "after", twips(paragraph.spacingAfter));
  const auto addLine = [&](long value, std::string_view rule) {
    addAttribute(attributes, "line", value);
    ((((attributes += " w:") += lineRule_) += "=\"") += rule) += '"';
  };
  if (paragraph.lineHeightMultiple > 0) {
    addLine(wholeParts(paragraph.lineHeightMultiple, twipsOfSingleLine), "auto");
  } else if (paragraph.maximumLineHeight > 0) {
    addLine(twips(paragraph.maximumLineHeight), "exact");
  } else if (paragraph.minimumLineHeight > 0) {
    addLine(twips(paragraph.minimumLineHeight), atLeast_);
  }
  if (!attributes.empty()) ((out += "<w:spacing") += attributes) += "/>";
}

void PropertyWriter::addIndents(std::string& out, const text::Paragraph& paragraph) const {
  std::string attributes;
  const double right = paragraph.tailIndent > 0 ? textWidth_ - paragraph.tailIndent : -paragraph.tailIndent;
  const long first = twips(paragraph.firstLineIndent - paragraph.headIndent);
  if (paragraph.headIndent != 0) addAttribute(attributes, "left", twips(paragraph.headIndent));
  if (right > 0) addAttribute(attributes, "right", twips(right));
  if (first < 0) addAttribute(attributes, "hanging", -first);
  if (first > 0) addAttribute(attributes, firstLine_, first);
  if (!attributes.empty()) ((out += "<w:ind") += attributes) += "/>";
}

double textWidthOf(const PageSetup& page) {
  return page.paperWidth.value_or(letterWidth) - page.leftMargin.value_or(usualMargin) -
         page.rightMargin.value_or(usualMargin);
}

std::string headingStyle(int level) { return "Heading" + std::to_string(std::clamp(level, 1, 9)); }

std::string sectionProperties(const PageSetup& page) {
  std::string out;
  if (page.paperWidth || page.paperHeight) {
    const double width = page.paperWidth.value_or(letterWidth), height = page.paperHeight.value_or(letterHeight);
    out += "<w:pgSz";
    addAttribute(out, "w", twips(width));
    addAttribute(out, "h", twips(height));
    out += width > height ? " w:orient=\"landscape\"/>" : "/>";
  }
  if (page.leftMargin || page.rightMargin || page.topMargin || page.bottomMargin) {
    const auto margin = [&](std::string_view name, const std::optional<double>& points) {
      addAttribute(out, name, twips(points.value_or(usualMargin)));
    };
    out += "<w:pgMar";
    margin("top", page.topMargin);
    margin("right", page.rightMargin);
    margin("bottom", page.bottomMargin);
    margin("left", page.leftMargin);
    out += " w:header=\"720\" w:footer=\"720\" w:gutter=\"0\"/>";
  }
  return out.empty() ? out : "<w:sectPr>" + out + "</w:sectPr>";
}

}  // namespace standin::formats::word_xml
