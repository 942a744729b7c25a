// Pictures in frames.
#pragma once

#include <functional>
#include <unordered_map>

#include "standin/formats/memory_allowance.hpp"
#include "standin/formats/odt/names.hpp"
#include "standin/formats/pictures/embedded.hpp"

namespace standin::formats::odt {

// Gives the part of the package with this name; nothing when there is none, or it has more than so many bytes.
using PartSource = std::function<std::optional<std::string>(const std::string& name, size_t most)>;

// Collects the pictures of a document: a frame holds one, in several forms of which the first that can be shown counts.
class Pictures {
 public:
  using Attachment = std::shared_ptr<const text::Attachment>;

  // The allowance outlives the pictures.
  Pictures(PartSource parts, MemoryAllowance& allowance) : parts_(std::move(parts)), allowance_(allowance) {}

  void startFrame(const xml::Element& element);
  // Nil when the picture is not of the package, or of a kind that is not shown.
  Attachment linked(const xml::Element& image);
  Attachment embedded(std::string_view base64);

 private:
  Attachment pictureOf(std::string bytes);
  Attachment sized(const Attachment& picture);

  PartSource parts_;
  MemoryAllowance& allowance_;
  std::unordered_map<std::string, Attachment> loaded_;  // without a size; nil for those that are not shown
  pictures::SizedPictures sized_;
  double width_ = 0, height_ = 0;  // of the frame, points
  bool isFilled_ = false;
};

}  // namespace standin::formats::odt
