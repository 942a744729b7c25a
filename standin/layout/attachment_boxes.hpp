// The room that attachments take in a line.
#pragma once

#include <unordered_map>

#include "standin/text/attachment.hpp"

namespace standin::layout {

struct Box {
  double width, height;
};

// An attachment that is no picture is an icon with its name below.
inline constexpr double iconSide = 32, iconNameSize = 9, iconNameHeight = 12;

class AttachmentBoxes {
 public:
  // No box is wider or higher than these.
  AttachmentBoxes(double mostWidth, double mostHeight) : mostWidth_(mostWidth), mostHeight_(mostHeight) {}
  Box of(const text::Attachment& attachment, double nameWidth);

 private:
  double mostWidth_, mostHeight_;
  std::unordered_map<const text::Attachment*, Box> boxes_;
};

// The bytes are a picture that pages can show.
bool isPicture(const text::Attachment& attachment);

}  // namespace standin::layout
