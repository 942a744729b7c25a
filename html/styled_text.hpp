// Collects the text of a document and the attributes of its stretches, and makes the attributed string of them at the end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/appkit.h"
#include "platform/owned.h"

namespace html {

class StyledText {
 public:
  void reserve(std::size_t units) { text_.reserve(units); }
  void append(std::u16string_view text) { text_.append(text); }
  void append(char character) { text_.push_back(static_cast<char16_t>(character)); }
  std::size_t length() const { return text_.size(); }

  // Gives the attributes to everything from the position on. What is never styled has no attributes.
  void style(std::size_t from, Owned<NSDictionary> attributes);

  Owned<NSMutableAttributedString> build() const;

 private:
  struct Run {
    NSRange range;
    Owned<NSDictionary> attributes;
  };

  std::u16string text_;
  std::vector<Run> runs_;
};

}  // namespace html
