// Plain text is its characters, encoded.
#include "standin/formats/plain/writer.hpp"

#include <string_view>

namespace standin::formats::plain {

std::optional<std::string> write(const text::Text& text, CFStringEncoding encoding) {
  constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
  auto bytes = foundation::encode(text, {.encoding = encoding, .external = true});
  // Readers drop a mark that comes first: one that is part of the text needs another before it.
  if (bytes && encoding == kCFStringEncodingUTF8 && bytes->starts_with(utf8Mark)) bytes->insert(0, utf8Mark);
  return bytes;
}

}  // namespace standin::formats::plain
