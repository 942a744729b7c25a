// How deep values may nest: a bound on the recursion of the conversions, in both directions.
#pragma once

namespace bridge {

// Deeper than any document goes, and shallow enough that the stack holds it several times over. A value that contains itself
// has no end, so without a bound its conversion would run off the stack.
inline constexpr int nestingLimit = 1000;

// One level of a conversion that is under way: an array, set or dictionary whose elements are being converted. One level too
// many raises the platform's invalid-argument exception, which ends the whole conversion and reaches the host program
// through the guard of the function that it called; nothing is cut short in silence.
class NestingLevel {
 public:
  NestingLevel() {
    if (depth_ == nestingLimit) refuse();
    ++depth_;
  }
  NestingLevel(const NestingLevel&) = delete;
  NestingLevel& operator=(const NestingLevel&) = delete;
  ~NestingLevel() { --depth_; }

 private:
  [[noreturn]] static void refuse();

  static inline constinit int depth_ = 0;
};

}  // namespace bridge
