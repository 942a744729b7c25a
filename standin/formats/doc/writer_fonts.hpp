// The font table of a document that is written.
#pragma once

#include <string>
#include <vector>

#include "standin/text/style.hpp"

namespace standin::formats::doc {

// Fonts are numbered in the order of first use.
class FontTable {
 public:
  uint16_t indexOf(const text::Font& font);
  std::string bytes() const;

 private:
  uint16_t indexOfName(std::string name);

  struct Known {
    text::Font font;
    uint16_t index;
  };
  std::vector<Known> known_;  // faces met; finding a face's name takes longer than going through these
  std::vector<std::string> names_;
};

}  // namespace standin::formats::doc
