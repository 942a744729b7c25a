// The counted buffer behind flat text.
#include "standin/text/flat_text.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "standin/text/memory_reserve.hpp"

namespace standin::text {
namespace {

// What an edit that outgrows its buffer reserves, so that repeated appending stays linear.
uint32_t roomFor(uint32_t size) {
  return static_cast<uint32_t>(std::min<uint64_t>(uint64_t{size} + size / 4 + 16, UINT32_MAX));
}

size_t widthOf(bool isWide) { return isWide ? sizeof(char16_t) : sizeof(uint8_t); }

}  // namespace

FlatText::FlatText(uint32_t capacity, bool isWide) : size_(capacity) {
  if (capacity == 0) return;
  buffer_ = new (allocateOrThrow(sizeof(Buffer) + capacity * widthOf(isWide))) Buffer{1, capacity, isWide};
}

FlatText::FlatText(UnitSpan units) : FlatText(units.size(), !units.isLatin1()) {
  if (units.size() > 0) put(0, units);
}

FlatText::FlatText(const FlatText& other) : buffer_(other.buffer_), offset_(other.offset_), size_(other.size_) {
  if (buffer_ != nullptr) ++buffer_->references;
}

FlatText& FlatText::operator=(FlatText other) noexcept {
  std::swap(buffer_, other.buffer_);
  std::swap(offset_, other.offset_);
  std::swap(size_, other.size_);
  return *this;
}

void FlatText::release() {
  if (buffer_ != nullptr && --buffer_->references == 0) std::free(buffer_);
}

void* FlatText::at(uint32_t index) const {
  return reinterpret_cast<uint8_t*>(buffer_ + 1) + (size_t{offset_} + index) * widthOf(buffer_->isWide);
}

UnitSpan FlatText::units() const {
  if (size_ == 0) return {};
  if (buffer_->isWide) return UnitSpan(std::span(static_cast<const char16_t*>(at(0)), size_));
  return UnitSpan(std::span(static_cast<const uint8_t*>(at(0)), size_));
}

FlatText FlatText::slice(uint32_t from, uint32_t count) const {
  if (count == 0) return {};
  FlatText part(*this);
  part.offset_ += from;
  part.size_ = count;
  return part;
}

void FlatText::splice(uint32_t from, uint32_t removed, UnitSpan inserted) {
  const uint32_t newSize = size_ - removed + inserted.size();
  if (newSize == inserted.size()) {
    *this = FlatText(inserted);
    return;
  }
  const bool needsWide = isWide() || !inserted.isLatin1();
  if (canEditInPlace(newSize, needsWide)) {
    spliceInPlace(from, removed, inserted);
    return;
  }
  FlatText edited(roomFor(newSize), needsWide);
  edited.size_ = newSize;
  const UnitSpan own = units();
  if (from > 0) edited.put(0, own.slice(0, from));
  if (inserted.size() > 0) edited.put(from, inserted);
  const uint32_t end = from + removed;
  if (end < size_) edited.put(from + inserted.size(), own.slice(end, size_ - end));
  *this = std::move(edited);
}

bool FlatText::canEditInPlace(uint32_t newSize, bool needsWide) const {
  return buffer_ != nullptr && buffer_->references == 1 && (buffer_->isWide || !needsWide) &&
         uint64_t{offset_} + newSize <= buffer_->capacity;
}

void FlatText::spliceInPlace(uint32_t from, uint32_t removed, UnitSpan inserted) {
  const uint32_t end = from + removed;
  std::memmove(at(from + inserted.size()), at(end), (size_ - end) * widthOf(buffer_->isWide));
  size_ = size_ - removed + inserted.size();
  if (inserted.size() > 0) put(from, inserted);
}

void FlatText::put(uint32_t index, UnitSpan units) {
  if (buffer_->isWide) {
    units.copyTo(static_cast<char16_t*>(at(index)));
  } else {
    units.copyTo(static_cast<uint8_t*>(at(index)));
  }
}

size_t FlatText::bytesHeld() const {
  return buffer_ == nullptr || buffer_->references > 1 ? 0 : sizeof(Buffer) + buffer_->capacity * widthOf(buffer_->isWide);
}

}  // namespace standin::text
