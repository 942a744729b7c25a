// Platform strings as UTF-16 units and back.
#pragma once

#include <memory>
#include <string_view>

#include "platform/corefoundation.h"
#include "platform/owned.h"

namespace html {

// The units of a platform string, copied out; room for one more behind them.
class Units {
 public:
  explicit Units(NSString* string) : size_(NSString::length(string)), units_(new char16_t[size_ + 1]) {
    NSString::getCharacters(string, units_.get());
  }

  std::u16string_view view() const { return {units_.get(), size_}; }
  operator std::u16string_view() const { return view(); }
  char16_t* data() { return units_.get(); }

 private:
  std::size_t size_;
  std::unique_ptr<char16_t[]> units_;
};

inline Owned<NSString> newString(std::u16string_view units) {
  return adopt(CFStringCreateWithCharacters(kCFAllocatorDefault, units.data(), static_cast<CFIndex>(units.size())));
}

// An immortal string of ASCII text.
inline NSString* literal(const char* text) { return __CFStringMakeConstantString(text); }

}  // namespace html
