// Attachments that own their bytes.
#include "standin/formats/pictures/embedded.hpp"

namespace standin::formats::pictures {

namespace {

// What no page could show is no size.
double sensible(double points) { return points > 0 && points <= 100'000 ? points : 0; }

}  // namespace

std::shared_ptr<const text::Attachment> newAttachment(std::string bytes, std::string fileName, double width, double height) {
  auto owner = std::make_shared<const std::string>(std::move(bytes));
  auto attachment = std::make_shared<text::Attachment>();
  attachment->fileName = std::move(fileName);
  attachment->contents = {reinterpret_cast<const uint8_t*>(owner->data()), owner->size()};
  attachment->owner = std::move(owner);
  attachment->width = sensible(width);
  attachment->height = sensible(height);
  return attachment;
}

std::shared_ptr<const text::Attachment> withSize(const text::Attachment& attachment, double width, double height) {
  auto resized = std::make_shared<text::Attachment>(attachment);
  resized->width = sensible(width);
  resized->height = sensible(height);
  return resized;
}

std::shared_ptr<const text::Attachment> SizedPictures::of(const text::Attachment& picture, double width, double height) {
  auto& sized = sized_[{picture.contents.data(), sensible(width), sensible(height)}];
  if (sized == nullptr) sized = withSize(picture, width, height);
  return sized;
}

}  // namespace standin::formats::pictures
