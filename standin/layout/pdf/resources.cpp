// What pages share, collected while they are written.
#include "standin/layout/pdf/resources.hpp"

#include <unicode/unistr.h>

#include <algorithm>
#include <cmath>

#include "standin/layout/pdf/embedded_font.hpp"
#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout::pdf {
namespace {

// Addresses are ASCII: all else is written as its bytes' numbers.
std::string addressOf(const std::u16string& text) {
  std::string bytes, address;
  icu::UnicodeString(text.data(), static_cast<int32_t>(text.size())).toUTF8String(bytes);
  for (const char byte : bytes) {
    if (byte > 0x20 && byte < 0x7F) {
      address += byte;
    } else {
      (address += '%') += "0123456789ABCDEF"[static_cast<uint8_t>(byte) >> 4];
      address += "0123456789ABCDEF"[byte & 0xF];
    }
  }
  return address;
}

}  // namespace

Resources::Resources(File& file) : file_(file), object_(file.reserve()), pictorial_(file), images_(file) {}

const std::string& Resources::fontName(const Face& face) {
  const auto [entry, isNew] = fonts_.try_emplace(&face);
  if (isNew) {
    entry->second = {"F" + std::to_string(fonts_.size()), file_.reserve()};
    fontOrder_.push_back(&face);
  }
  return entry->second.name;
}

PictorialFonts::Place Resources::pictorialGlyph(const Face& face, uint32_t glyph, std::u16string_view text) {
  return pictorial_.place(face, glyph, text);
}

const std::string& Resources::imageName(const text::Attachment& attachment) {
  const auto [entry, isNew] = imageNames_.try_emplace(attachment.contents.data());
  if (!isNew) return entry->second;
  if (const int object = images_.write(attachment.contents); object != 0) {
    entry->second = "I" + std::to_string(object);
    imageEntries_ += '/' + entry->second + ' ' + reference(object);
  }
  return entry->second;
}

int Resources::linkAction(const text::Link& target) {
  const auto [entry, isNew] = linkActions_.try_emplace(target);
  if (!isNew) return entry->second;
  entry->second = file_.reserve();
  file_.put(entry->second, "<</Type/Action/S/URI/URI" + byteString(addressOf(target)) + ">>");
  return entry->second;
}

std::string Resources::opacityName(const std::string& key, double alpha) {
  const int percent = static_cast<int>(std::lround(std::clamp(alpha, 0.0, 1.0) * 100));
  opacities_.emplace(key, percent);
  return key + std::to_string(percent);
}

void Resources::finish() {
  std::string entries = "<</Font<<";
  for (size_t index = 0; index < fontOrder_.size(); ++index) {
    const Font& font = fonts_.at(fontOrder_[index]);
    writeFont(file_, font.object, *fontOrder_[index], static_cast<int>(index) + 1);
    entries += '/' + font.name + ' ' + reference(font.object);
  }
  entries += pictorial_.finish() + ">>/XObject<<" + imageEntries_ + ">>/ExtGState<<";
  for (const auto& [key, percent] : opacities_) {
    entries += '/' + key + std::to_string(percent) + "<</" + key + ' ';
    appendNumber(entries, percent / 100.0);
    entries += ">>";
  }
  file_.put(object_, entries + ">>>>");
}

}  // namespace standin::layout::pdf
