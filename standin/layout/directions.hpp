// Writing directions: embedding levels of bidirectional text, and the order in which a line's pieces stand.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "standin/layout/piece.hpp"

struct UBiDi;

namespace standin::layout {

class Directions {
 public:
  Directions();
  ~Directions();

  // Whether the first letter that has a direction, if any does, is one that is written to the left.
  static bool beginsRightToLeft(std::u16string_view text);
  // A level a unit; empty when every one is 0. Valid until the next call.
  const std::vector<uint8_t>& levels(std::u16string_view text, bool isRightToLeft);

 private:
  struct Close {
    void operator()(UBiDi* bidi) const;
  };
  std::unique_ptr<UBiDi, Close> bidi_;
  std::vector<uint8_t> levels_;
};

// Puts a line's pieces, which stand in the order of the text, in the order from left to right.
void orderVisually(std::vector<Piece>& line, bool isRightToLeft);

}  // namespace standin::layout
