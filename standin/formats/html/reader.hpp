// Reads HTML as browsers do, whatever state it is in: elements, style sheets, lists, tables, links, pictures.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "standin/formats/document.hpp"

namespace standin::formats::html {

struct ReadOptions {
  // The bytes of what an absolute address stands for, nothing when it is not at hand. Asked for all but "data:" addresses;
  // what it does not know is read from files of the folder. Nothing comes from a network.
  using Resource = std::function<std::optional<std::string>(std::string_view absoluteURL)>;

  std::string baseURL{};       // to which the document's addresses are relative; may be empty
  std::string folder{};        // from which, and from below, local files may be read; empty: from none
  std::string encodingName{};  // of the bytes, whatever they say themselves; empty: theirs, or what they look like
  double textSizeMultiplier = 1;
  std::optional<text::Style> defaultStyle{};  // the font and the colour where the document says none: Times of 12 points
  Resource resource{};
};

// A pixel is a point. Vertical margins collapse: a paragraph has below what its lower margin says, and the next one above
// what its upper margin is larger than that. Markers of lists are text. Elements nested deeper than 512 stand side by side.
// Time and memory grow with the number of bytes; nothing when they are none in the encoding that was asked for, or more than
// 1 GB.
std::optional<Document> read(std::span<const uint8_t> bytes, const ReadOptions& options = {});

}  // namespace standin::formats::html
