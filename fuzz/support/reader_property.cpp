// What holds for the reader and the writer of a document format.
#include "fuzz/support/reader_property.hpp"

#include <cmath>

namespace fuzz {

using standin::formats::Document;
using standin::formats::StyledRuns;

namespace {

StyledRuns runsOf(const Document& document) {
  StyledRuns styled{standin::text::Text::utf16(document.text), {}};
  for (const auto& [length, style] : document.runs) styled.runs.push_back({length, &document.styles[style]});
  return styled;
}

bool isFinite(const standin::text::Style& style) {
  double sum = style.baselineOffset + style.kern + style.expansion + style.strokeWidth + style.obliqueness;
  if (style.font) sum += style.font->size;
  if (style.attachment != nullptr) sum += style.attachment->width + style.attachment->height;
  const auto& paragraph = style.paragraph;
  sum += paragraph.firstLineIndent + paragraph.headIndent + paragraph.tailIndent + paragraph.spacingBefore +
         paragraph.spacingAfter + paragraph.lineSpacing + paragraph.minimumLineHeight + paragraph.maximumLineHeight +
         paragraph.lineHeightMultiple + paragraph.defaultTabInterval + paragraph.hyphenationFactor;
  for (const auto& tab : paragraph.tabs.value_or(std::vector<standin::text::TabStop>())) sum += tab.position;
  return std::isfinite(sum);
}

}  // namespace

void checkDocument(const Document& document) {
  size_t covered = 0;
  for (const auto& run : document.runs) {
    require(run.length > 0, "a run is empty");
    require(run.style < document.styles.size(), "a run has no style");
    covered += run.length;
  }
  require(covered == document.text.size(), "the runs do not cover the text");
  for (const auto& style : document.styles) require(isFinite(style), "a style has a number that is not finite");
}

void checkFormat(const Format& format, Bytes bytes) {
  const std::optional<Document> document = withinBound(bytes.size(), [&] { return format.read(bytes); });
  if (!document) return;
  checkDocument(*document);
  const std::optional<std::string> written = format.write(runsOf(*document), *document);
  if (!written) return;
  const std::optional<Document> again = withinBound(written->size(), [&] { return format.read(bytesOf(*written)); });
  require(again.has_value(), "what was written cannot be read again");
  checkDocument(*again);
}

}  // namespace fuzz
