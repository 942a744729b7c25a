// A stretch of one paragraph in memory, small enough however long the paragraph is.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "standin/formats/styled_runs.hpp"

namespace standin::layout {

struct StyledStretch {
  uint32_t start, end;  // units of the text
  const text::Style* style;
};

struct Stretch {
  uint32_t start = 0;    // in the text
  std::u16string units;  // without what ends the paragraph
  std::vector<StyledStretch> runs;
  bool endsParagraph = false;         // the paragraph ends here; otherwise it goes on
  bool endsPage = false;              // by a form feed
  uint32_t next = 0;                  // where the next paragraph begins, when this one ends here
  const text::Style* last = nullptr;  // of what ends the paragraph, or of its last unit

  uint32_t end() const { return start + static_cast<uint32_t>(units.size()); }
};

// So many units at most, and none of half a character.
std::u16string_view beginningOf(std::u16string_view units, size_t most);

// Reads stretches, from anywhere.
class StretchReader {
 public:
  // The most units of a stretch. Lines are far shorter.
  static constexpr uint32_t mostUnits = 1 << 15;

  explicit StretchReader(const formats::StyledRuns& styled) : styled_(styled) {}
  // Fills the stretch from the position on; the nearer it is to the last one, the faster.
  void read(uint32_t from, Stretch& stretch);
  uint32_t size() const { return styled_.text.size(); }

 private:
  uint32_t readUnits(uint32_t from, std::u16string& units) const;
  void readRuns(Stretch& stretch);

  const formats::StyledRuns& styled_;
  size_t run_ = 0;  // the run that holds the last position
  uint32_t runStart_ = 0;
};

}  // namespace standin::layout
