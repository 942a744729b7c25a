// Writes a text's units through an encoder into a buffer of any size, whole characters only.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <string_view>

#include "standin/foundation/encodings.hpp"
#include "standin/foundation/transcoding.hpp"

namespace standin::foundation {

// Takes the stretches of a text in order. Stops for good when the buffer is full or, without a loss text, at a character
// that the encoding lacks. A buffer without data counts.
template <class Encoder>
class UnitWriter {
 public:
  UnitWriter(std::span<uint8_t> out, std::string_view loss) : out_(out), loss_(loss) {}

  void take(std::span<const uint8_t> units) { write(units.data(), units.data() + units.size()); }

  // The last unit of a stretch may be half of a pair whose other half begins the next one: it waits.
  void take(std::span<const char16_t> units) {
    if (stopped_ || units.empty()) return;
    const char16_t* in = units.data();
    const char16_t* end = in + units.size();
    if (waiting_ != 0 && isLowSurrogate(*in)) {
      const char16_t pair[2] = {waiting_, *in++};
      waiting_ = 0;
      write(pair, pair + 2);
    }
    writeWaiting();
    if (in != end && isHighSurrogate(end[-1])) waiting_ = *--end;
    write(in, end);
  }

  Encoded finish() {
    writeWaiting();
    return written_;
  }

  // Bytes that stand for no unit; stops when they do not fit.
  void mark(std::string_view bytes) {
    if (!put(bytes.data(), bytes.size())) stopped_ = true;
  }

 private:
  bool counting() const { return out_.data() == nullptr; }
  size_t room() const { return out_.size() - written_.bytes; }

  void writeWaiting() {
    if (waiting_ == 0) return;
    const char16_t lone[1] = {std::exchange(waiting_, 0)};
    write(lone, lone + 1);
  }

  // Gives the encoder as many units as fit whatever they are, and the last few, which may or may not fit, one by one.
  template <class Unit>
  void write(const Unit* in, const Unit* end) {
    if constexpr (sizeof(Unit) == 1) writeWaiting();
    while (in != end && !stopped_) {
      const size_t fitting = (counting() ? scratch_.size() : room()) / Encoder::maximumBytes;
      if (fitting >= 2) {
        writeFitting(in, boundaryBefore(in, end, fitting), end);
      } else {
        writeOne(in, end);
      }
    }
  }

  template <class Unit>
  void writeFitting(const Unit*& in, const Unit* stop, const Unit* end) {
    const Unit* const start = in;
    uint8_t* const base = counting() ? scratch_.data() : out_.data() + written_.bytes;
    uint8_t* target = base;
    Encoder::encode(in, stop, target);
    written_.bytes += static_cast<size_t>(target - base);
    written_.units += static_cast<size_t>(in - start);
    if (in != stop) writeLoss(in, end);
  }

  template <class Unit>
  void writeOne(const Unit*& in, const Unit* end) {
    std::array<uint8_t, 8> bytes;
    const Unit* const start = in;
    const Unit* const stop = in + characterLength(in, end);
    uint8_t* target = bytes.data();
    Encoder::encode(in, stop, target);
    if (in != stop) return writeLoss(in, end);
    if (put(bytes.data(), static_cast<size_t>(target - bytes.data()))) {
      written_.units += static_cast<size_t>(in - start);
    } else {
      stopped_ = true;
    }
  }

  template <class Unit>
  void writeLoss(const Unit*& in, const Unit* end) {
    if (loss_.empty() || !put(loss_.data(), loss_.size())) {
      stopped_ = true;
      return;
    }
    const size_t length = characterLength(in, end);
    in += length;
    written_.units += length;
  }

  // False when the bytes do not fit.
  bool put(const void* bytes, size_t count) {
    if (!counting() && count != 0) {
      if (room() < count) return false;
      std::memcpy(out_.data() + written_.bytes, bytes, count);
    }
    written_.bytes += count;
    return true;
  }

  template <class Unit>
  static size_t characterLength(const Unit* in, const Unit* end) {
    if constexpr (sizeof(Unit) > 1) {
      if (end - in >= 2 && isHighSurrogate(in[0]) && isLowSurrogate(in[1])) return 2;
    }
    return 1;
  }

  // At most `limit` (two or more) units further, and not between the halves of a pair.
  template <class Unit>
  static const Unit* boundaryBefore(const Unit* in, const Unit* end, size_t limit) {
    const Unit* const stop = in + std::min(limit, static_cast<size_t>(end - in));
    if constexpr (sizeof(Unit) > 1) {
      if (stop != end && isHighSurrogate(stop[-1])) return stop - 1;
    }
    return stop;
  }

  std::span<uint8_t> out_;
  std::string_view loss_;
  Encoded written_;
  char16_t waiting_ = 0;  // a high surrogate at the end of the last stretch
  bool stopped_ = false;
  std::array<uint8_t, 4096> scratch_;  // takes the bytes when they are only counted
};

}  // namespace standin::foundation
