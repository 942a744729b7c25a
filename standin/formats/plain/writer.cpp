// Plain text is its characters, encoded.
#include "standin/formats/plain/writer.hpp"

namespace standin::formats::plain {

std::optional<std::string> write(const text::Text& text, CFStringEncoding encoding) {
  return foundation::encode(text, {.encoding = encoding, .external = true});
}

}  // namespace standin::formats::plain
