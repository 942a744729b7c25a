// Decisions drawn from the bytes of an input, for fuzzers that make sequences of calls of them.
#pragma once

#include <string>

#include "fuzz/support/fuzzer.hpp"

namespace fuzz {

class ByteSource {
 public:
  explicit ByteSource(Bytes bytes) : rest_(bytes) {}

  bool atEnd() const { return rest_.empty(); }
  // 0 when nothing is left.
  uint8_t byte() {
    if (rest_.empty()) return 0;
    const uint8_t first = rest_.front();
    rest_ = rest_.subspan(1);
    return first;
  }
  template <class Number>
  Number number() {
    uint64_t value = 0;
    for (size_t index = 0; index < sizeof(Number); ++index) value = value << 8 | byte();
    return static_cast<Number>(value);
  }
  // From 0 to `limit`, both included, in as few bytes as it takes.
  uint32_t upTo(uint32_t limit) {
    const uint32_t value = limit < 256 ? byte() : limit < 65536 ? number<uint16_t>() : number<uint32_t>();
    return limit == UINT32_MAX ? value : value % (limit + 1);
  }
  std::string text(size_t most) {
    const size_t wanted = upTo(static_cast<uint32_t>(most));
    const Bytes taken = rest_.first(std::min(wanted, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    return std::string(textOf(taken));
  }

 private:
  Bytes rest_;
};

}  // namespace fuzz
