// From formats in RTF's units to styles in points.
#include "standin/formats/rtf/builder.hpp"

#include <algorithm>
#include <iterator>

#include "standin/text/font_faces.hpp"

namespace standin::formats::rtf {
namespace {

// A face of a family that is not among the platform's, so that a document keeps the font it names.
text::Font foreignFace(const std::string& family, uint64_t traits, double size) {
  std::string name;
  std::copy_if(family.begin(), family.end(), std::back_inserter(name), [](char letter) { return letter != ' '; });
  if (traits != 0) name += '-';
  if ((traits & text::boldTrait) != 0) name += "Bold";
  if ((traits & text::italicTrait) != 0) name += "Italic";
  return {family, name, traits, (traits & text::boldTrait) != 0 ? 9 : 5, size};
}

// The face that a document means by a family or a face name and the traits beside it.
text::Font faceFor(const std::string& name, uint64_t traits, double size) {
  if (const auto named = text::fontNamed(name, size)) traits |= named->traits & (text::boldTrait | text::italicTrait);
  const auto family = text::familyNamed(name);
  if (!family) return foreignFace(name, traits, size);
  for (const uint64_t wanted : {traits, traits & text::boldTrait, uint64_t{0}}) {
    if (const auto face = text::fontInFamily(*family, wanted, 5, size)) return *face;
  }
  return foreignFace(name, traits, size);
}

}  // namespace

void Builder::addBytes(std::string_view bytes, const CharacterFormat& format, int codePage) {
  if (!bytes_.empty() && (bytesCodePage_ != codePage || bytesFormat_ != format)) flush();
  bytes_ += bytes;
  bytesFormat_ = format;
  bytesCodePage_ = codePage;
}

void Builder::flush() {
  if (bytes_.empty()) return;
  const size_t old = document.text.size();
  decoder_.append(document.text, bytes_, bytesCodePage_);
  bytes_.clear();
  addLength(document.text.size() - old, bytesFormat_);
}

void Builder::addUnit(char16_t unit, const CharacterFormat& format) {
  flush();
  document.text += unit;
  addLength(1, format);
}

void Builder::addLength(size_t units, const CharacterFormat& format) {
  if (units == 0) return;
  if (paragraphRuns_.empty() || paragraphRuns_.back().format != format) paragraphRuns_.push_back({format, 0});
  paragraphRuns_.back().length += static_cast<uint32_t>(units);
}

void Builder::endParagraph(char16_t unit, const CharacterFormat& format, const text::Paragraph& paragraph) {
  addUnit(unit, format);
  closeRuns(paragraph);
}

void Builder::closeRuns(const text::Paragraph& paragraph) {
  const uint32_t index = paragraphs_.try_emplace(paragraph, static_cast<uint32_t>(paragraphs_.size())).first->second;
  for (const PendingRun& run : paragraphRuns_) {
    const uint32_t style = styleFor(run.format, paragraph, index);
    if (!document.runs.empty() && document.runs.back().style == style) {
      document.runs.back().length += run.length;
    } else {
      document.runs.push_back({run.length, style});
    }
  }
  paragraphRuns_.clear();
}

uint32_t Builder::styleFor(const CharacterFormat& format, const text::Paragraph& paragraph, uint32_t paragraphIndex) {
  const auto [entry, isNew] =
      styleIndices_.try_emplace({paragraphIndex, format}, static_cast<uint32_t>(document.styles.size()));
  if (isNew) document.styles.push_back(makeStyle(format, paragraph));
  return entry->second;
}

std::optional<text::Color> Builder::color(int index) const {
  if (index <= 0 || static_cast<size_t>(index) >= colors.size()) return std::nullopt;
  return colors[static_cast<size_t>(index)];
}

text::Style Builder::makeStyle(const CharacterFormat& format, const text::Paragraph& paragraph) const {
  text::Style style;
  const auto font = fonts.find(format.font);
  const uint64_t traits = (format.bold ? uint64_t{text::boldTrait} : 0) | (format.italic ? uint64_t{text::italicTrait} : 0);
  style.font = faceFor(font != fonts.end() ? font->second.name : "Helvetica", traits, format.halfPoints / 2.0);
  style.foreground = color(format.foreground);
  style.background = color(format.background);
  style.underlineColor = color(format.underlineColor);
  style.underline = format.underline;
  style.strikethrough = format.strikethrough;
  style.superscript = format.superscript;
  style.baselineOffset = format.baseline / 2.0;
  style.kern = format.kern / 20.0;
  style.expansion = format.expansion / 100.0;
  if (format.link >= 0) style.link = links[static_cast<size_t>(format.link)];
  style.paragraph = paragraph;
  return style;
}

Document Builder::finish(const text::Paragraph& last) {
  flush();
  closeRuns(last);
  return std::move(document);
}

}  // namespace standin::formats::rtf
