// Walks styled text paragraph by paragraph.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standin/formats/styled_runs.hpp"

namespace standin::formats::html {

struct RunPart {
  const text::Style* style;
  uint32_t from, to;  // in the paragraph
};

// There is one paragraph more than there are breaks; of no text there is none.
class ParagraphCursor {
 public:
  // The runs must outlive the cursor.
  explicit ParagraphCursor(const StyledRuns& styled);

  // Goes on to the first or the next paragraph; false at the end.
  bool next();

  // The paragraph without its break.
  std::u16string_view units() const { return paragraph_; }
  // An empty paragraph has an empty one, of the style of its break.
  const std::vector<RunPart>& runs() const { return parts_; }

 private:
  void addParts(uint32_t end);
  void findRun(uint32_t position);

  const std::vector<StyledRun>& runs_;
  const std::u16string units_;
  std::u16string_view paragraph_;
  std::vector<RunPart> parts_;
  uint32_t position_ = 0;  // where the next paragraph starts
  size_t run_ = 0;
  uint32_t runEnd_;
  bool ended_;
};

}  // namespace standin::formats::html
