// The colour behind the pages, which is the fill of a shape among the drawings.
#pragma once

#include <optional>
#include <string>

#include "standin/formats/little_endian.hpp"
#include "standin/text/style.hpp"

namespace standin::formats::doc {

// The drawings part of a document with no other drawings.
std::string backgroundDrawings(const text::Color& color);

// Of a drawings part; nothing when it has no such shape, or one of another fill than a colour.
std::optional<text::Color> backgroundIn(Bytes drawings);

}  // namespace standin::formats::doc
