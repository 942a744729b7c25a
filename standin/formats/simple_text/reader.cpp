// Paragraph ends are made the platform's, those of files that came by way of other systems too.
#include "standin/formats/simple_text/reader.hpp"

#include "standin/foundation/encodings.hpp"
#include "standin/text/font_faces.hpp"

namespace standin::formats::simple_text {

Document read(std::span<const uint8_t> bytes) {
  Document document;
  const auto text = foundation::decode(bytes, kCFStringEncodingMacRoman, false);
  char16_t before = 0;
  text.value_or(text::Text()).visitChunks(0, text ? text->size() : 0, [&](auto chunk) {
    for (const char16_t unit : chunk) {
      const bool endsPair = before == u'\r' && unit == u'\n';
      before = unit;
      if (!endsPair) document.text += unit == u'\r' ? u'\n' : unit;
    }
  });
  text::Style style;
  style.font = text::fontMeant("Helvetica", 0, 12);
  document.styles.push_back(std::move(style));
  if (!document.text.empty()) document.runs = {{static_cast<uint32_t>(document.text.size()), 0}};
  return document;
}

}  // namespace standin::formats::simple_text
