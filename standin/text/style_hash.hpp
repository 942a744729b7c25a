// Hashes of styles: of every member that documents can give many values, so that no document makes all of its styles share
// one.
#pragma once

#include <cstddef>

#include "standin/text/style.hpp"

namespace standin::text {

// Equal ones have equal hashes.
size_t hashOf(const Style& style);
size_t hashOf(const Paragraph& paragraph);

}  // namespace standin::text
