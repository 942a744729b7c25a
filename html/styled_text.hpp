// Collects the text of a document and the attributes of its stretches, and makes the attributed string of them at the end.
#pragma once

#include <cstring>
#include <string_view>
#include <vector>

#include "platform/appkit.h"
#include "platform/owned.h"

namespace html {

class StyledText {
 public:
  // The text is put where the room is, which the source may share: it never gets ahead of what has been read of that.
  explicit StyledText(char16_t* room) : text_(room) {}

  void append(std::u16string_view text) {
    std::memmove(text_ + length_, text.data(), text.size() * sizeof(char16_t));
    length_ += text.size();
  }
  void append(char character) { text_[length_++] = static_cast<char16_t>(character); }
  std::size_t length() const { return length_; }

  // Gives the attributes to everything from the position on. What is never styled has no attributes.
  void style(std::size_t from, const Owned<NSDictionary>& attributes);

  Owned<NSMutableAttributedString> build() const;

 private:
  struct Run {
    NSRange range;
    Owned<NSDictionary> attributes;
  };

  char16_t* text_;
  std::size_t length_ = 0;
  std::vector<Run> runs_;
};

}  // namespace html
