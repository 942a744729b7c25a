// Attachments as references to files, and as pictures in hexadecimal.
#include "standin/formats/rtf/attachments.hpp"

#include <unicode/unistr.h>

#include <cmath>

#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/rtf/characters.hpp"
#include "standin/text/text.hpp"

namespace standin::formats::rtf {
namespace {

void appendNumber(std::string& out, const char* word, double value) { (out += word) += std::to_string(std::lrint(value)); }

void appendName(std::string& out, const std::string& name) {
  const icu::UnicodeString units = icu::UnicodeString::fromUTF8(name);
  const std::u16string_view view(units.getBuffer(), static_cast<size_t>(units.length()));
  appendCharacters(out, text::Text::utf16(view), 0, static_cast<uint32_t>(view.size()));
}

void appendHexadecimal(std::string& out, std::span<const uint8_t> bytes) {
  constexpr char digits[] = "0123456789abcdef";
  constexpr size_t bytesInLine = 64;
  for (size_t index = 0; index < bytes.size(); ++index) {
    if (index % bytesInLine == 0) out += '\n';
    out += digits[bytes[index] >> 4];
    out += digits[bytes[index] & 15];
  }
}

// The character behind the reference is what a reader shows that does not know it.
void appendReference(std::string& out, const text::Attachment& attachment) {
  out += "{{\\NeXTGraphic ";
  appendName(out, attachment.fileName);
  out += ' ';
  if (attachment.width > 0) appendNumber(out, "\\width", attachment.width * 20);
  if (attachment.height > 0) appendNumber(out, "\\height", attachment.height * 20);
  out += "\n}\\'ac}";
}

void appendPicture(std::string& out, const text::Attachment& attachment, const char* kind) {
  const auto size = pictures::sizeOf(attachment.contents);
  (out += "{\\pict") += kind;
  if (size) {
    appendNumber(out, "\\picw", size->width);
    appendNumber(out, "\\pich", size->height);
  }
  if (attachment.width > 0) appendNumber(out, "\\picwgoal", attachment.width * 20);
  if (attachment.height > 0) appendNumber(out, "\\pichgoal", attachment.height * 20);
  appendHexadecimal(out, attachment.contents);
  out += '}';
}

}  // namespace

void appendAttachment(std::string& out, const text::Attachment& attachment) {
  if (!attachment.fileName.empty()) return appendReference(out, attachment);
  const auto format = pictures::formatOf(attachment.contents);
  if (format == pictures::Format::png) appendPicture(out, attachment, "\\pngblip");
  if (format == pictures::Format::jpeg) appendPicture(out, attachment, "\\jpegblip");
}

}  // namespace standin::formats::rtf
