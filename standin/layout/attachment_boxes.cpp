// Attachments measured.
#include "standin/layout/attachment_boxes.hpp"

#include <algorithm>
#include <cmath>

namespace standin::layout {
namespace {

// One pixel is a point when the attachment says nothing. A size in one direction keeps the picture's shape.
Box pictureBox(const text::Attachment& attachment, formats::pictures::KnownSizes& sizes) {
  const bool hasWidth = std::isfinite(attachment.width) && attachment.width > 0;
  const bool hasHeight = std::isfinite(attachment.height) && attachment.height > 0;
  if (hasWidth && hasHeight) return {attachment.width, attachment.height};
  const auto size = sizes.of(attachment.contents).value_or(formats::pictures::Size{1, 1});
  const Box box{static_cast<double>(size.width), static_cast<double>(size.height)};
  if (hasWidth) return {attachment.width, box.height * attachment.width / box.width};
  if (hasHeight) return {box.width * attachment.height / box.height, attachment.height};
  return box;
}

}  // namespace

Box AttachmentBoxes::of(const text::Attachment& attachment, double nameWidth, double reserved) {
  const auto [entry, isNew] = boxes_.try_emplace(&attachment);
  if (!isNew) return entry->second;
  const Box box = isPicture_(attachment) ? pictureBox(attachment, sizes_)
                                         : Box{std::max(iconSide, nameWidth), iconSide + iconNameHeight};
  const double scale = std::min({1.0, mostWidth_ / box.width, std::max(mostHeight_ - reserved, 1.0) / box.height});
  return entry->second = {box.width * scale, box.height * scale};
}

}  // namespace standin::layout
