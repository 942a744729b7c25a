// A borrowed stretch of UTF-16 units, held in memory as Latin-1 bytes or as 16-bit units.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace standin::text {

class UnitSpan {
 public:
  UnitSpan() = default;
  explicit UnitSpan(std::span<const uint8_t> bytes) : data_(bytes.data()), size_(static_cast<uint32_t>(bytes.size())) {}
  explicit UnitSpan(std::span<const char16_t> units)
      : data_(units.data()), size_(static_cast<uint32_t>(units.size())), isWide_(true) {}

  uint32_t size() const { return size_; }
  // False also promises that every unit is below 0x100; true promises nothing.
  bool isWide() const { return isWide_; }
  const uint8_t* narrow() const { return static_cast<const uint8_t*>(data_); }
  const char16_t* wide() const { return static_cast<const char16_t*>(data_); }
  char16_t operator[](uint32_t index) const { return isWide_ ? wide()[index] : narrow()[index]; }

  UnitSpan slice(uint32_t from, uint32_t count) const {
    return isWide_ ? UnitSpan(std::span(wide() + from, count)) : UnitSpan(std::span(narrow() + from, count));
  }
  // Calls visit with a std::span of const uint8_t or of const char16_t.
  template <class Visit>
  decltype(auto) visit(Visit&& visitor) const {
    return isWide_ ? visitor(std::span(wide(), size_)) : visitor(std::span(narrow(), size_));
  }

  void copyTo(uint8_t* bytes) const;  // every unit must be below 0x100
  void copyTo(char16_t* units) const;
  // Every unit is below 0x100, however they are held.
  bool isLatin1() const;
  bool operator==(const UnitSpan& other) const;

 private:
  const void* data_ = nullptr;
  uint32_t size_ = 0;
  bool isWide_ = false;
};

}  // namespace standin::text
