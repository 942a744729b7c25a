// The room that attachments take in a line.
#pragma once

#include <functional>
#include <unordered_map>
#include <utility>

#include "standin/formats/pictures/sizes.hpp"
#include "standin/text/attachment.hpp"

namespace standin::layout {

struct Box {
  double width, height;
};

// An attachment that is no picture is an icon with its name below.
inline constexpr double iconSide = 32, iconNameSize = 9, iconNameHeight = 12;

// Whether an attachment is a picture that pages can show; its header alone does not tell.
using PictureTest = std::function<bool(const text::Attachment&)>;

class AttachmentBoxes {
 public:
  // No box is wider or higher than these. The test is made once for each attachment.
  AttachmentBoxes(double mostWidth, double mostHeight, PictureTest isPicture)
      : mostWidth_(mostWidth), mostHeight_(mostHeight), isPicture_(std::move(isPicture)) {}
  // The width of its name, and what the line needs besides the box's height, count when it is asked for first.
  Box of(const text::Attachment& attachment, double nameWidth, double reserved);

 private:
  double mostWidth_, mostHeight_;
  PictureTest isPicture_;
  formats::pictures::KnownSizes sizes_;
  std::unordered_map<const text::Attachment*, Box> boxes_;
};

}  // namespace standin::layout
