// Paragraphs, spans, links and pictures.
#include "standin/formats/odt/body_writer.hpp"

#include <algorithm>

#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/utf8.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::odt {
namespace {

constexpr char16_t pageBreak = u'\f', lineSeparator = u'\u2028', paragraphSeparator = u'\u2029';

bool endsParagraph(char16_t unit) { return unit == u'\n' || unit == u'\r' || unit == paragraphSeparator; }

// Units with elements of their own, and spaces, which may need one.
bool isSpecial(char16_t unit) { return unit <= u' ' || unit == lineSeparator || unit == text::attachmentCharacter; }

void appendName(std::string& out, char letter, size_t number) { (out += letter) += std::to_string(number); }

}  // namespace

BodyWriter::BodyWriter(const StyledRuns& styled, const StyleTexts& texts)
    : styled_(styled), texts_(texts), size_(styled.text.size()) {
  units_.resize(size_ + 1, u'\n');
  styled.text.copy(0, styled.text.size(), units_.data());
  if (!styled.runs.empty()) runEnd_ = styled.runs.front().length;
}

std::string BodyWriter::write() {
  out_.reserve(size_ * 2 + 1024);
  for (size_t from = 0; from <= size_;) {
    const Paragraph paragraph = paragraphAt(from);
    writeParagraph(paragraph);
    from = paragraph.next;
  }
  return std::move(out_);
}

BodyWriter::Paragraph BodyWriter::paragraphAt(size_t from) const {
  Paragraph paragraph{from, from, 0, units_[from] == pageBreak, false};
  if (paragraph.breaksBefore) ++paragraph.from;
  size_t at = paragraph.from;
  while (!endsParagraph(units_[at]) && units_[at] != pageBreak) ++at;
  paragraph.to = at;
  paragraph.breaksAfter = units_[at] == pageBreak && endsParagraph(units_[at + 1]);
  if (paragraph.breaksAfter) ++at;
  const bool isPair = units_[at] == u'\r' && at + 1 < size_ && units_[at + 1] == u'\n';
  paragraph.next = at + (units_[at] == pageBreak ? 0 : isPair ? 2 : 1);
  return paragraph;
}

void BodyWriter::moveTo(size_t position) {
  while (runEnd_ <= position && run_ + 1 < styled_.runs.size()) runEnd_ += styled_.runs[++run_].length;
}

// The style of the last unit for positions behind it.
const text::Style& BodyWriter::styleAt(size_t position) {
  static const text::Style plain;
  moveTo(position);
  return styled_.runs.empty() ? plain : *styled_.runs[run_].style;
}

// The end's characters are the paragraph's own; only those that look different have spans.
void BodyWriter::writeParagraph(const Paragraph& paragraph) {
  const text::Style& first = styleAt(paragraph.from);
  const size_t run = run_, runEnd = runEnd_;
  const text::Style& last = styleAt(paragraph.to);
  run_ = run;
  runEnd_ = runEnd;
  const int level = std::min(first.paragraph.headerLevel, 10);
  const std::string_view element = level > 0 ? "text:h" : "text:p";
  (out_ += '<') += element;
  out_ += " text:style-name=\"";
  appendName(out_, 'P', paragraphNumber({&first, &last, paragraph.breaksBefore, paragraph.breaksAfter}));
  out_ += '"';
  if (level > 0) appendAttribute(out_, "text:outline-level", std::to_string(level));
  out_ += '>';
  const size_t plain = textNumber(last);
  for (size_t at = paragraph.from; at < paragraph.to;) {
    const text::Style& style = styleAt(at);
    const size_t end = std::min(runEnd_, paragraph.to);
    writeLink(style);
    const size_t number = textNumber(style);
    if (number != plain) {
      out_ += "<text:span text:style-name=\"";
      appendName(out_, 'T', number);
      out_ += "\">";
    }
    writeUnits(paragraph, style, at, end);
    if (number != plain) out_ += "</text:span>";
    at = end;
  }
  writeLink({});
  ((out_ += "</") += element) += ">\n";
}

// Closes the link that is open, and opens the style's, unless they are the same.
void BodyWriter::writeLink(const text::Style& style) {
  if (link_ != nullptr && *link_ == style.link) return;
  if (link_ != nullptr) out_ += "</text:a>";
  link_ = style.link.empty() || !takesLink(style.link) ? nullptr : &style.link;
  if (link_ == nullptr) return;
  hasLinks_ = true;
  out_ += R"(<text:a xlink:type="simple" text:style-name="Link" text:visited-style-name="Link")";
  appendAttribute(out_, "xlink:href", utf8Of(style.link));
  out_ += '>';
}

bool BodyWriter::takesLink(const text::Link& link) {
  if (links_.insert(link).second) return true;
  if (repeatedUnits_ >= mostRepeatedUnits) return false;
  repeatedUnits_ += link.text().size();
  return true;
}

void BodyWriter::writeUnits(const Paragraph& paragraph, const text::Style& style, size_t from, size_t to) {
  while (from < to) {
    size_t end = from;
    while (end < to && (!isSpecial(units_[end]) || isPlainSpace(paragraph, end))) ++end;
    xml::appendEscaped(out_, std::u16string_view(units_).substr(from, end - from));
    from = end;
    if (from == to) return;
    if (units_[from] == u' ') {
      from = writeSpaces(paragraph, from, to);
      continue;
    }
    if (units_[from] == u'\t') out_ += "<text:tab/>";
    if (units_[from] == lineSeparator) out_ += "<text:line-break/>";
    if (units_[from] == text::attachmentCharacter && style.attachment != nullptr) writePicture(*style.attachment);
    ++from;
  }
}

// One space between other characters stands for itself.
bool BodyWriter::isPlainSpace(const Paragraph& paragraph, size_t at) const {
  return units_[at] == u' ' && at > paragraph.from && at + 1 < paragraph.to && units_[at - 1] != u' ' &&
         units_[at + 1] != u' ';
}

// Of several the first does, unless it is at the paragraph's start. Gives the position behind the spaces.
size_t BodyWriter::writeSpaces(const Paragraph& paragraph, size_t from, size_t to) {
  size_t end = from;
  while (end < to && units_[end] == u' ') ++end;
  size_t count = end - from;
  const bool isAfterSpace = from == paragraph.from || units_[from - 1] == u' ';
  if (!isAfterSpace && !(count == 1 && end == paragraph.to)) {
    out_ += ' ';
    --count;
  }
  if (count == 0) return end;
  out_ += "<text:s";
  if (count > 1) appendAttribute(out_, "text:c", std::to_string(count));
  out_ += "/>";
  return end;
}

void BodyWriter::writePicture(const text::Attachment& attachment) {
  const PackagedPicture* picture = packaged(attachment);
  if (picture == nullptr) return;
  const auto& pixels = sizes_.of(picture->bytes);
  out_ += R"(<draw:frame text:anchor-type="as-char")";
  appendAttribute(out_, "draw:name", picture->name);
  appendLength(out_, "svg:width", attachment.width > 0 || !pixels ? attachment.width : pixels->width);
  appendLength(out_, "svg:height", attachment.height > 0 || !pixels ? attachment.height : pixels->height);
  out_ += R"(><draw:image xlink:type="simple" xlink:show="embed" xlink:actuate="onLoad")";
  appendAttribute(out_, "xlink:href", picture->name);
  out_ += "/></draw:frame>";
}

// Nil when the attachment is no picture.
const PackagedPicture* BodyWriter::packaged(const text::Attachment& attachment) {
  const std::string_view type = pictures::extensionOf(pictures::formatOf(attachment.contents));
  if (type.empty()) return nullptr;
  const auto [known, isNew] = pictureIndices_.try_emplace(attachment.contents.data(), pictures_.size());
  if (isNew) {
    const std::string name = "Pictures/" + std::to_string(pictures_.size() + 1) + "." + std::string(type);
    pictures_.push_back({name, type, attachment.contents});
  }
  return &pictures_[known->second];
}

size_t BodyWriter::textNumber(const text::Style& style) {
  size_t& number = textNumbers_[&style];
  if (number == 0) number = textStyles_.add(">" + texts_.text(style));
  return number;
}

size_t BodyWriter::ParagraphKeyHash::operator()(const ParagraphKey& key) const {
  const std::hash<const void*> hash;
  return hash(key.first) * 31 + hash(key.last) * 7 + (key.breaksBefore ? 1 : 0) + (key.breaksAfter ? 2 : 0);
}

size_t BodyWriter::paragraphNumber(const ParagraphKey& key) {
  size_t& number = paragraphNumbers_[key];
  if (number != 0) return number;
  const text::Paragraph& layout = key.first->paragraph;
  const bool isHeading = layout.headerLevel > 0;
  const std::string level = std::to_string(std::clamp(layout.headerLevel, 1, 10));
  std::string description;
  appendAttribute(description, "style:parent-style-name", isHeading ? "Heading_20_" + level : "Standard");
  description += ">" + StyleTexts::paragraph(layout, key.breaksBefore, key.breaksAfter) + texts_.text(*key.last);
  return number = paragraphStyles_.add(description);
}

size_t BodyWriter::StyleList::add(const std::string& description) {
  const auto [known, isNew] = numbers_.try_emplace(description, order_.size() + 1);
  if (isNew) order_.push_back(&known->first);
  return known->second;
}

void BodyWriter::StyleList::append(std::string& out) const {
  for (size_t index = 0; index < order_.size(); ++index) {
    out += "<style:style style:name=\"";
    appendName(out, letter_, index + 1);
    out += '"';
    appendAttribute(out, "style:family", family_);
    (out += *order_[index]) += "</style:style>\n";
  }
}

std::string BodyWriter::automaticStyles() const {
  std::string out = "<office:automatic-styles>\n";
  paragraphStyles_.append(out);
  textStyles_.append(out);
  return out += "</office:automatic-styles>\n";
}

}  // namespace standin::formats::odt
