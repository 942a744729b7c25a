// What may still be spent on a document, so that no sheet makes its reading take more than time in step with its size.
#pragma once

#include <cstdint>

namespace standin::formats::html {

class Work {
 public:
  // A unit is a condition asked, or a character looked at: a few nanoseconds.
  explicit Work(uint64_t left) : left_(left) {}

  // False when there is not as much left, nor ever again.
  bool spend(uint64_t units) {
    const bool isLeft = units <= left_;
    left_ = isLeft ? left_ - units : 0;
    return isLeft;
  }
  bool isSpent() const { return left_ == 0; }

 private:
  uint64_t left_;
};

}  // namespace standin::formats::html
