// The target of a link as text. Styles that take theirs from one another share its characters, however many they are.
#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <string_view>

namespace standin::text {

class Link {
 public:
  Link() = default;  // empty: no link
  Link(std::u16string target);
  Link(std::u16string_view target) : Link(std::u16string(target)) {}
  Link(const char16_t* target) : Link(std::u16string(target)) {}

  bool empty() const { return shared_ == nullptr; }
  const std::u16string& text() const;
  operator const std::u16string&() const { return text(); }
  operator std::u16string_view() const { return text(); }
  // Of the characters, worked out once.
  size_t hash() const { return shared_ != nullptr ? shared_->hash : 0; }

  friend bool operator==(const Link& left, const Link& right) {
    return left.shared_ == right.shared_ || (left.hash() == right.hash() && left.text() == right.text());
  }
  template <std::convertible_to<std::u16string_view> Units>
  friend bool operator==(const Link& link, const Units& units) {
    return std::u16string_view(link) == std::u16string_view(units);
  }

 private:
  struct Shared {
    std::u16string text;
    size_t hash;
  };

  std::shared_ptr<const Shared> shared_;  // nil for the empty text
};

// For tables whose keys are links.
struct LinkHash {
  size_t operator()(const Link& link) const { return link.hash(); }
};

}  // namespace standin::text
