// Paragraph by paragraph, run by run.
#include "standin/formats/word_xml/body_writer.hpp"

#include <algorithm>

#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::word_xml {
namespace {

constexpr bool isParagraphEnd(char16_t unit) { return unit == u'\n' || unit == u'\r' || unit == u'\u2029'; }

// Characters that are elements; nil for all others.
const char* elementOf(char16_t unit, bool hasHyphens) {
  switch (unit) {
    case u'\t':
      return "<w:tab/>";
    case u'\u2028':
      return "<w:br/>";
    case u'\f':
      return "<w:br w:type=\"page\"/>";
    case u'\u00AD':
      return hasHyphens ? "<w:softHyphen/>" : nullptr;
    case u'\u2011':
      return hasHyphens ? "<w:noBreakHyphen/>" : nullptr;
    default:
      return nullptr;
  }
}

std::u16string unitsOf(const text::Text& text) {
  std::u16string units(text.size(), u'\0');
  text.copy(0, text.size(), units.data());
  return units;
}

}  // namespace

BodyWriter::BodyWriter(const StyledRuns& styled, Edition& edition, double textWidth)
    : styled_(styled),
      edition_(edition),
      hasHyphenElements_(edition.hasHyphenElements()),
      properties_(edition, textWidth),
      units_(unitsOf(styled.text)) {
  paragraphProperties_ = properties_.paragraphProperties({}, false);
}

// Of the last run behind the end of the text.
const text::Style& BodyWriter::styleAt(Place& place, uint32_t position) const {
  static const text::Style plain;
  if (styled_.runs.empty()) return plain;
  while (position >= endOf(place) && place.run + 1 < styled_.runs.size()) place = {place.run + 1, endOf(place)};
  return *styled_.runs[place.run].style;
}

void BodyWriter::write(std::string& out) {
  out_.swap(out);
  out_.reserve(out_.size() + units_.size() * 4 + 1024);
  for (size_t from = 0; from <= units_.size();) {
    const auto end = static_cast<size_t>(
        std::find_if(units_.begin() + static_cast<ptrdiff_t>(from), units_.end(), isParagraphEnd) - units_.begin());
    writeParagraph(static_cast<uint32_t>(from), static_cast<uint32_t>(end));
    const bool isPair = units_.compare(end, 2, u"\r\n") == 0;
    from = end + (isPair ? 2 : 1);
  }
  out_.swap(out);
}

// All of a paragraph is laid out by what its first character says. A page break in front of its text is a property.
void BodyWriter::writeParagraph(uint32_t from, uint32_t end) {
  const bool breaksPage = from > 0 && end - from > 1 && units_[from] == u'\f';
  (out_ += "<w:p><w:pPr>") += paragraphProperties(styleAt(place_, from).paragraph, breaksPage);
  if (breaksPage) ++from;
  ((out_ += "<w:rPr>") += runProperties(styleAt(mark_, end))) += "</w:rPr></w:pPr>";
  while (from < end) {
    const text::Style& style = styleAt(place_, from);
    const uint32_t stop = std::min(end, endOf(place_));
    moveToLink(style.link);
    writeRun(style, from, stop);
    from = stop;
  }
  moveToLink({});
  out_ += "</w:p>";
}

void BodyWriter::moveToLink(const text::Link& target) {
  if (target == link_) return;
  if (!link_.empty()) edition_.closeLink(out_);
  link_ = target;
  if (!link_.empty()) edition_.openLink(out_, link_);
}

void BodyWriter::writeRun(const text::Style& style, uint32_t from, uint32_t end) {
  ((out_ += "<w:r><w:rPr>") += runProperties(style)) += "</w:rPr>";
  writeCharacters(style, from, end);
  out_ += "</w:r>";
}

void BodyWriter::writeCharacters(const text::Style& style, uint32_t from, uint32_t end) {
  for (uint32_t at = from; at < end; ++at) {
    const char16_t unit = units_[at];
    const bool isPicture = unit == text::attachmentCharacter && style.attachment != nullptr;
    const char* element = elementOf(unit, hasHyphenElements_);
    if (element == nullptr && !isPicture) continue;
    writeText(from, at);
    from = at + 1;
    if (isPicture) writePicture(*style.attachment);
    if (element != nullptr) out_ += element;
  }
  writeText(from, end);
}

void BodyWriter::writeText(uint32_t from, uint32_t end) {
  if (from == end) return;
  out_ += "<w:t xml:space=\"preserve\">";
  xml::appendEscaped(out_, std::u16string_view(units_).substr(from, end - from));
  out_ += "</w:t>";
}

// A picture whose size nobody says has a point a pixel.
void BodyWriter::writePicture(const text::Attachment& picture) {
  const auto& size = sizes_.of(picture.contents);
  if (!size) return;
  const double width = picture.width > 0 ? picture.width : size->width;
  const double height = picture.height > 0 ? picture.height : size->height;
  edition_.appendPicture(out_, picture, ++pictures_, width, height);
}

const std::string& BodyWriter::runProperties(const text::Style& style) {
  const auto [entry, isNew] = runProperties_.try_emplace(&style);
  if (isNew) entry->second = properties_.runProperties(style);
  return entry->second;
}

const std::string& BodyWriter::paragraphProperties(const text::Paragraph& paragraph, bool breaksPage) {
  if (paragraph != paragraph_.first || breaksPage != paragraph_.second) {
    paragraph_ = {paragraph, breaksPage};
    paragraphProperties_ = properties_.paragraphProperties(paragraph, breaksPage);
  }
  return paragraphProperties_;
}

}  // namespace standin::formats::word_xml
