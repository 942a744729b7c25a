// Pictures and files as attachments.
#include "standin/formats/rtf/pictures.hpp"

#include <unicode/unistr.h>

#include <algorithm>

#include "standin/formats/pictures/picture.hpp"

namespace standin::formats::rtf {
namespace {

int hexadecimal(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

// What no page could show is no size.
double sensible(double points) { return points > 0 && points <= 100'000 ? points : 0; }

}  // namespace

void Pictures::addHexadecimal(std::string_view digits) {
  for (const char c : digits) {
    const int digit = hexadecimal(c);
    if (digit < 0) continue;
    if (firstDigit_ >= 0) bytes_ += static_cast<char>(firstDigit_ << 4 | digit);
    firstDigit_ = firstDigit_ >= 0 ? -1 : digit;
  }
}

std::shared_ptr<const text::Attachment> Pictures::picture() {
  auto bytes = std::make_shared<const std::string>(std::move(bytes_));
  const std::span<const uint8_t> contents(reinterpret_cast<const uint8_t*>(bytes->data()), bytes->size());
  const auto format = pictures::formatOf(contents);
  if (format != pictures::Format::png && format != pictures::Format::jpeg) return nullptr;
  auto attachment = std::make_shared<text::Attachment>();
  attachment->contents = contents;
  attachment->owner = std::move(bytes);
  attachment->width = sensible(width);
  attachment->height = sensible(height);
  return attachment;
}

std::shared_ptr<const text::Attachment> Pictures::file(std::u16string_view name) const {
  constexpr std::u16string_view blanks = u" \t\r\n";
  const size_t start = std::min(name.find_first_not_of(blanks), name.size());
  name = name.substr(start, name.find_last_not_of(blanks) + 1 - start);
  if (name.empty()) return nullptr;
  auto attachment = std::make_shared<text::Attachment>();
  icu::UnicodeString(name.data(), static_cast<int32_t>(name.size())).toUTF8String(attachment->fileName);
  attachment->width = sensible(width);
  attachment->height = sensible(height);
  return attachment;
}

}  // namespace standin::formats::rtf
