// Collects what RTF says of a picture in the text, or of a file beside it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "standin/text/attachment.hpp"

namespace standin::formats::rtf {

struct Pictures {
  // Digits of a picture; whatever else stands between them is passed over.
  void addHexadecimal(std::string_view digits);
  void addRaw(std::string_view bytes) { bytes_ += bytes; }

  // The picture that was collected; nil for a format that attachments do not have.
  std::shared_ptr<const text::Attachment> picture();
  // The file of the name; nil without one.
  std::shared_ptr<const text::Attachment> file(std::u16string_view name) const;

  double width = 0, height = 0;  // points

 private:
  std::string bytes_;
  int firstDigit_ = -1;
};

}  // namespace standin::formats::rtf
