// How much memory a reader may hold for a document, whatever its bytes.
#pragma once

#include <cstddef>

namespace standin::formats {

// At any moment, for a document of so many bytes.
constexpr size_t memoryBound(size_t documentBytes) { return 50 * documentBytes + (size_t{64} << 20); }

// What a reader keeps until the end, it counts here: generously, because what grows by doubling is there three times while
// it moves. Past the allowance it stops.
class MemoryAllowance {
 public:
  // Bytes of a picture beside its own: its place in the maps, and what it is in a size.
  static constexpr size_t picturePlace = 400;

  explicit MemoryAllowance(size_t documentBytes) : most_(memoryBound(documentBytes) - uncounted(documentBytes)) {}

  size_t most() const { return most_; }
  size_t left() const { return taken_ < most_ ? most_ - taken_ : 0; }
  bool isSpent(size_t sixteenths) const { return taken_ > most_ / 16 * sixteenths; }
  // What a document defines and its pictures may take half, so that the text is read whatever there is beside it.
  bool isHalfSpent() const { return isSpent(8); }
  size_t leftOfHalf() const { return isHalfSpent() ? 0 : most_ / 2 - taken_; }
  void take(size_t bytes) { taken_ += bytes; }

 private:
  // What is kept for a while only: a part of a package, and what the parser holds of it.
  static constexpr size_t uncounted(size_t documentBytes) { return 8 * documentBytes + (size_t{16} << 20); }

  size_t most_, taken_ = 0;
};

}  // namespace standin::formats
