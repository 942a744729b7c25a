// What stands in styled text at an attachment character, as document formats read and write it.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace standin::text {

// The unit that stands for an attachment.
inline constexpr char16_t attachmentCharacter = 0xFFFC;

struct Attachment {
  std::string fileName{};               // in the package that the text is part of; empty when it is part of none
  std::span<const uint8_t> contents{};  // of a regular file; empty when they are elsewhere
  std::shared_ptr<const void> owner{};  // keeps the contents alive
  double width = 0, height = 0;         // points; 0: the picture's own
  std::shared_ptr<void> object{};       // the platform object whose value this is; nil in a document just read
};

}  // namespace standin::text
