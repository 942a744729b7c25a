// Collects one paragraph at a time.
#include "standin/formats/html/paragraph_builder.hpp"

#include <algorithm>
#include <utility>

#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/letter_case.hpp"
#include "standin/formats/utf8.hpp"

namespace standin::formats::html {
namespace {

constexpr char16_t pageBreak = 0x0C;

// Words with single spaces between, in which nothing collapses.
std::string_view wordsAt(std::string_view text) {
  size_t end = 0;
  while (end < text.size()) {
    if (isASCIISpace(text[end])) {
      const bool isSingle = end > 0 && text[end] == ' ' && end + 1 < text.size() && !isASCIISpace(text[end + 1]);
      if (!isSingle) break;
    }
    ++end;
  }
  return text.substr(0, end);
}

}  // namespace

void ParagraphBuilder::openBlock(const Box& box, double above, bool isSaid) {
  endParagraph();
  box_ = box;
  above_ = std::max(above_, above);
  if (isSaid) saidAbove_ = std::max(saidAbove_, above);
}

void ParagraphBuilder::closeBlock(const Box& outer, double below) {
  endParagraph();
  box_ = outer;
  below_ = std::max(below_, below);
}

// The space that the last paragraph does not have below is above this one. Above the first one is what the document says
// itself.
void ParagraphBuilder::begin() {
  if (isOpen_) return;
  const bool isFirst = paragraphCount_ == 0;
  if (!isFirst) closeLine(below_, false);
  emptyLineStyle_ = box_.style;
  layout_ = {box_, isFirst ? saidAbove_ : std::max(0.0, above_ - below_), 0, !marker_.empty()};
  isOpen_ = isEmpty_ = true;
  ++paragraphCount_;
  above_ = saidAbove_ = below_ = 0;
  const Link link = std::exchange(link_, 0);
  if (std::exchange(breaksPage_, false)) {
    text_ += pageBreak;
    extend(1, box_.style);
  }
  text_ += marker_;
  extend(marker_.size(), markerStyle_);
  marker_.clear();
  link_ = link;
}

// The paragraph's last break only ends its last line.
void ParagraphBuilder::endParagraph() {
  if (!breaks_.empty()) {
    begin();
    breaks_.pop_back();
    flushBreaks();
    emptyLineStyle_ = breakStyle_;
  }
  space_.reset();
  isOpen_ = false;
}

void ParagraphBuilder::closeLine(double after, bool isLast) {
  layout_.after = after;
  const uint32_t paragraph = paragraphFor(layout_);
  if (!isLast) {
    const bool goesOn = !runs_.empty() && runs_.back().picture == 0 && runs_.back().link == 0;
    if (!goesOn) runs_.push_back({0, runs_.empty() ? emptyLineStyle_ : layout_.box.style, 0, 0});
    ++runs_.back().length;
    text_ += u'\n';
  }
  size_t start = 0;
  for (const Run& run : runs_) {
    builder_.append(std::u16string_view(text_).substr(start, run.length), styleFor(run, paragraph));
    start += run.length;
  }
  text_.clear();
  runs_.clear();
}

// Kept line feeds end paragraphs between which there is no space.
void ParagraphBuilder::flushBreaks() {
  const std::u16string breaks = std::exchange(breaks_, {});
  for (const char16_t unit : breaks) {
    if (unit == u'\n') {
      closeLine(0, false);
      layout_.before = 0;
      layout_.hasMarker = false;
      ++paragraphCount_;
    } else {
      text_ += unit;
      extend(1, breakStyle_);
    }
    isEmpty_ = true;
  }
}

void ParagraphBuilder::prepareContent() {
  begin();
  if (!breaks_.empty()) flushBreaks();
  if (space_) {
    text_ += u' ';
    const Link link = std::exchange(link_, space_->link);
    extend(1, space_->style);
    link_ = link;
    space_.reset();
  }
  isEmpty_ = false;
}

void ParagraphBuilder::extend(size_t units, ElementStyles::Index style, uint32_t picture) {
  const auto length = static_cast<uint32_t>(units);
  const bool goesOn = !runs_.empty() && picture == 0 && runs_.back().picture == 0 && runs_.back().style == style &&
                      runs_.back().link == link_;
  if (goesOn) {
    runs_.back().length += length;
  } else if (length > 0) {
    runs_.push_back({length, style, link_, picture});
  }
}

void ParagraphBuilder::append(std::string_view text, ElementStyles::Index style) {
  const size_t start = text_.size();
  appendUnits(text_, text);
  if (styles_[style].transform != css::TextTransform::none) transform(start, styles_[style]);
  extend(text_.size() - start, style);
}

void ParagraphBuilder::transform(size_t start, const css::ComputedStyle& style) {
  if (style.transform == css::TextTransform::uppercase) uppercase(text_, start);
  if (style.transform == css::TextTransform::lowercase) lowercase(text_, start);
  if (style.transform == css::TextTransform::capitalize) {
    const bool inWord = start > 0 && text_[start - 1] > u' ' && text_[start - 1] != u'\u00A0';
    capitalize(text_, start, inWord);
  }
}

void ParagraphBuilder::addText(std::string_view text, ElementStyles::Index style, css::WhiteSpace whiteSpace) {
  if (whiteSpace == css::WhiteSpace::preserved) {
    addPreserved(text, style);
  } else {
    addCollapsed(text, style, whiteSpace == css::WhiteSpace::lines);
  }
}

void ParagraphBuilder::addPreserved(std::string_view text, ElementStyles::Index style) {
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    if (end > 0) {
      prepareContent();
      append(text.substr(0, end), style);
    }
    if (end == text.size()) return;
    addBreak(u'\n', style);
    text.remove_prefix(end + 1);
  }
}

void ParagraphBuilder::addCollapsed(std::string_view text, ElementStyles::Index style, bool keepsLines) {
  while (!text.empty()) {
    if (const std::string_view words = wordsAt(text); !words.empty()) {
      prepareContent();
      append(words, style);
      text.remove_prefix(words.size());
    }
    size_t end = 0;
    for (; end < text.size() && isASCIISpace(text[end]); ++end) {
      if (keepsLines && text[end] == '\n') addBreak(u'\n', style);
    }
    if (end > 0 && isOpen_ && !isEmpty_ && breaks_.empty() && !space_) space_ = Run{1, style, link_, 0};
    text.remove_prefix(end);
  }
}

void ParagraphBuilder::addBreak(char16_t unit, ElementStyles::Index style) {
  space_.reset();
  breaks_ += unit;
  breakStyle_ = style;
}

void ParagraphBuilder::addPicture(std::shared_ptr<const text::Attachment> picture, ElementStyles::Index style) {
  prepareContent();
  pictures_.push_back(std::move(picture));
  text_ += text::attachmentCharacter;
  extend(1, style, static_cast<uint32_t>(pictures_.size()));
}

void ParagraphBuilder::addEmptyParagraph() {
  endParagraph();
  begin();
  endParagraph();
}

void ParagraphBuilder::setMarker(std::u16string text, ElementStyles::Index style) {
  marker_ = std::move(text);
  markerStyle_ = style;
}

ParagraphBuilder::Link ParagraphBuilder::linkTo(const text::Link& target) {
  const auto [entry, isNew] = linkNumbers_.try_emplace(target, static_cast<Link>(links_.size() + 1));
  if (isNew) links_.push_back(target);
  return entry->second;
}

Document ParagraphBuilder::finish() {
  endParagraph();
  if (paragraphCount_ > 0) closeLine(below_, true);
  return std::move(builder_.document);
}

}  // namespace standin::formats::html
