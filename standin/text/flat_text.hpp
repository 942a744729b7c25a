// Units in one counted buffer: copies and slices share it, an edit changes it in place when nobody else holds it.
#pragma once

#include <utility>

#include "standin/text/unit_span.hpp"

namespace standin::text {

class FlatText {
 public:
  FlatText() = default;
  // Held as bytes when every unit is below 0x100.
  explicit FlatText(UnitSpan units);
  FlatText(const FlatText& other);
  FlatText(FlatText&& other) noexcept
      : buffer_(std::exchange(other.buffer_, nullptr)),
        offset_(std::exchange(other.offset_, 0)),
        size_(std::exchange(other.size_, 0)) {}
  FlatText& operator=(FlatText other) noexcept;
  ~FlatText() { release(); }

  // A buffer of `size` units, which fill(Unit*) writes. Unit: uint8_t or char16_t.
  template <class Unit, class Fill>
  static FlatText filled(uint32_t size, Fill&& fill) {
    FlatText text(size, sizeof(Unit) == 2);
    if (size > 0) std::forward<Fill>(fill)(static_cast<Unit*>(text.at(0)));
    return text;
  }

  uint32_t size() const { return size_; }
  UnitSpan units() const;
  // Shares the buffer.
  FlatText slice(uint32_t from, uint32_t count) const;
  // `inserted` must not lie in this buffer unless somebody else holds it too.
  void splice(uint32_t from, uint32_t removed, UnitSpan inserted);
  bool sharesBufferWith(const FlatText& other) const { return buffer_ == other.buffer_ && offset_ == other.offset_; }
  // What this text alone would give back: nothing when the buffer is shared.
  size_t bytesHeld() const;

 private:
  struct Buffer {
    uint32_t references;
    uint32_t capacity;
    bool isWide;
  };

  FlatText(uint32_t capacity, bool isWide);
  void release();
  bool isWide() const { return buffer_ != nullptr && buffer_->isWide; }
  void* at(uint32_t index) const;
  bool canEditInPlace(uint32_t newSize, bool needsWide) const;
  void spliceInPlace(uint32_t from, uint32_t removed, UnitSpan inserted);
  void put(uint32_t index, UnitSpan units);

  Buffer* buffer_ = nullptr;  // the units follow it
  uint32_t offset_ = 0;
  uint32_t size_ = 0;
};

}  // namespace standin::text
