// Pictures loaded once each, however often they are shown.
#include "standin/formats/odt/pictures.hpp"

#include "standin/formats/base64.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::odt {

Pictures::Attachment Pictures::pictureOf(std::string bytes) {
  const std::span contents(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
  const bool isShown = pictures::formatOf(contents) != pictures::Format::unknown && pictures::sizeOf(contents);
  if (!isShown || bytes.size() > allowance_.leftOfHalf()) return nullptr;
  allowance_.take(bytes.size());
  return pictures::newAttachment(std::move(bytes), {});
}

void Pictures::startFrame(const xml::Element& element) {
  width_ = pointsOf(element.value(name::width)).value_or(0);
  height_ = pointsOf(element.value(name::height)).value_or(0);
  isFilled_ = false;
}

Pictures::Attachment Pictures::linked(const xml::Element& image) {
  std::string_view name = image.value(name::href);
  for (const std::string_view prefix : {"#", "./"}) {
    if (name.starts_with(prefix)) name.remove_prefix(prefix.size());
  }
  if (name.empty() || allowance_.isHalfSpent()) return nullptr;
  const auto [known, isNew] = loaded_.try_emplace(std::string(name));
  if (isNew) {
    allowance_.take(name.size() + MemoryAllowance::picturePlace);
    if (auto bytes = parts_(known->first, allowance_.leftOfHalf())) known->second = pictureOf(*std::move(bytes));
  }
  return sized(known->second);
}

Pictures::Attachment Pictures::embedded(std::string_view base64) { return sized(pictureOf(bytesOfBase64(base64))); }

Pictures::Attachment Pictures::sized(const Attachment& picture) {
  if (isFilled_ || picture == nullptr) return nullptr;
  isFilled_ = true;
  allowance_.take(MemoryAllowance::picturePlace);
  return sized_.of(*picture, width_, height_);
}

}  // namespace standin::formats::odt
