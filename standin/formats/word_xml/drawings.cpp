// Sizes of the two kinds of drawings, and pictures found by name.
#include "standin/formats/word_xml/drawings.hpp"

#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/values.hpp"

namespace standin::formats::word_xml {
namespace {

// Of a list like "width:12pt;height:3cm".
std::optional<double> lengthIn(std::string_view style, std::string_view property) {
  for (size_t at = 0; at < style.size();) {
    const size_t end = std::min(style.find(';', at), style.size());
    std::string_view entry = style.substr(at, end - at);
    at = end + 1;
    entry.remove_prefix(std::min(entry.find_first_not_of(" \t\r\n"), entry.size()));
    if (!entry.starts_with(property) || !entry.substr(property.size()).starts_with(':')) continue;
    return pointsOf(entry.substr(property.size() + 1), 1 / pointsPerPixel);
  }
  return std::nullopt;
}

std::shared_ptr<const text::Attachment> attachmentOf(std::string bytes) {
  if (!pictures::sizeOf({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()})) return nullptr;
  return pictures::newAttachment(std::move(bytes), {});
}

}  // namespace

void Drawings::begin() {
  width_ = height_ = 0;
  link_.clear();
}

void Drawings::startElement(const xml::Element& element) {
  switch (nameOf(element)) {
    case Name::extent:
      width_ = pointsOf(element, Name::extentWidth, emusPerPoint).value_or(0);
      height_ = pointsOf(element, Name::extentHeight, emusPerPoint).value_or(0);
      break;
    case Name::shape:
      width_ = lengthIn(valueOf(element, Name::shapeStyle), "width").value_or(0);
      height_ = lengthIn(valueOf(element, Name::shapeStyle), "height").value_or(0);
      break;
    case Name::linkClick:
      if (resources_ != nullptr) link_ = resources_->linkTarget(valueOf(element, Name::relationshipId));
      break;
    default:
      break;
  }
}

void Drawings::add(std::string name, std::string bytes) {
  if (bytes.size() > allowance_.leftOfHalf()) return;
  allowance_.take(bytes.size() + name.size() + MemoryAllowance::picturePlace);
  pictures_[std::move(name)] = attachmentOf(std::move(bytes));
}

const text::Attachment* Drawings::find(std::string_view id) {
  const auto known = pictures_.find(id);
  if (known != pictures_.end()) return known->second.get();
  std::optional<std::string> bytes = resources_ != nullptr ? resources_->picture(id, allowance_.leftOfHalf()) : std::nullopt;
  allowance_.take((bytes ? bytes->size() : 0) + id.size() + MemoryAllowance::picturePlace);
  return pictures_.emplace(id, bytes ? attachmentOf(*std::move(bytes)) : nullptr).first->second.get();
}

std::shared_ptr<const text::Attachment> Drawings::pictureOf(const xml::Element& element) {
  if (allowance_.isHalfSpent()) return nullptr;
  const Name attribute = nameOf(element) == Name::blip ? Name::embed
                         : resources_ != nullptr       ? Name::relationshipId
                                                       : Name::source;
  const std::string_view id = valueOf(element, attribute);
  const text::Attachment* picture = id.empty() ? nullptr : find(id);
  if (picture == nullptr) return nullptr;
  allowance_.take(MemoryAllowance::picturePlace);
  return sized_.of(*picture, width_, height_);
}

}  // namespace standin::formats::word_xml
