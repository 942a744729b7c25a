// The fields that a place in the text is in: instructions are taken off the text, results stay and may be links.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standin/text/link.hpp"

namespace standin::formats::doc {

class Fields {
 public:
  void begin();
  void separate();
  void end();

  // Whether the text at this place belongs to an instruction, and its units.
  bool inInstruction() const { return !open_.empty() && open_.back().instruction != outside; }
  void addInstruction(std::u16string_view text);

  // The link that the place is in, by number from 1; 0: none.
  uint32_t link() const { return open_.empty() ? 0 : open_.back().link; }
  const text::Link& target(uint32_t link) const { return targets_[link - 1]; }

 private:
  static constexpr size_t outside = SIZE_MAX;
  struct Field {
    std::u16string text;  // of the instruction
    size_t instruction;   // index of the field whose instruction the place is in
    bool isSeparated;
    uint32_t link;
  };

  uint32_t linkTo(std::u16string_view instruction);

  std::vector<Field> open_;
  size_t tooDeep_ = 0;  // open fields that are not followed
  std::vector<text::Link> targets_;
  std::unordered_map<text::Link, uint32_t, text::LinkHash> links_;
};

}  // namespace standin::formats::doc
