// The form in which document writers take styled text: the characters, and the style of each run.
#pragma once

#include <cstdint>
#include <vector>

#include "standin/text/style.hpp"
#include "standin/text/text.hpp"

namespace standin::formats {

struct StyledRun {
  uint32_t length;
  const text::Style* style;
};

// The runs' lengths add up to the text's.
struct StyledRuns {
  text::Text text;
  std::vector<StyledRun> runs;
};

}  // namespace standin::formats
