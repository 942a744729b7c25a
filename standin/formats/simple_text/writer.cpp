// Every break becomes a carriage return, attachments go.
#include "standin/formats/simple_text/writer.hpp"

#include "standin/foundation/encodings.hpp"
#include "standin/text/attachment.hpp"

namespace standin::formats::simple_text {

std::optional<std::string> write(const text::Text& text) {
  constexpr char16_t lineSeparator = 0x2028;
  std::u16string units;
  units.reserve(text.size());
  char16_t before = 0;
  text.visitChunks(0, text.size(), [&](auto chunk) {
    for (const char16_t unit : chunk) {
      const bool endsPair = before == u'\r' && unit == u'\n';
      before = unit;
      if (unit == text::attachmentCharacter || endsPair) continue;
      units += text::isParagraphBreak(unit) || unit == lineSeparator ? u'\r' : unit;
    }
  });
  return foundation::encode(text::Text::utf16(units), {.encoding = kCFStringEncodingMacRoman});
}

}  // namespace standin::formats::simple_text
