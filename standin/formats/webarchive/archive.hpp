// A web archive as it is stored: a page and the files that it refers to.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace standin::formats::webarchive {

struct Resource {
  std::string url{}, mimeType{};
  std::string encodingName{};  // of text; may be empty
  std::string contents{};
};

struct Archive {
  Resource page{};
  std::vector<Resource> files{};
};

// From a binary or an XML property list. Nothing when the bytes are none, hold no page, or would grow beyond the bounds;
// files without an address are left out, and so are the pages of frames.
std::optional<Archive> parse(std::span<const uint8_t> bytes);

// A binary property list. Nothing when memory is short or the contents are 2 GB or more.
std::optional<std::string> serialize(const Archive& archive);

}  // namespace standin::formats::webarchive
