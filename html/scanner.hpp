// Walks normalised text. Every step first skips spaces; a step that finds nothing gives an empty result.
#pragma once

#include <algorithm>
#include <string_view>

#include "html/unit_block.hpp"

namespace html {

class Scanner {
 public:
  // The only white space in the text is U+0020. The text outlives the scanner.
  explicit Scanner(std::u16string_view text) : rest_(text) {}

  // Whether only spaces remain.
  bool atEnd() {
    skip();
    return rest_.empty();
  }

  // Everything before the first of the units, or to the end.
  template <class... Unit>
  std::u16string_view upTo(Unit... units) {
    skip();
    return take(findUnit(rest_, units...));
  }
  bool isAt(char16_t unit) const { return rest_.starts_with(unit); }

  // The consecutive units of that kind.
  std::u16string_view run(char16_t unit) {
    skip();
    return take(std::min(rest_.find_first_not_of(unit), rest_.size()));
  }

  // Goes past the ASCII word when it comes next, in any capitals.
  bool word(std::string_view word) {
    skip();
    if (rest_.size() < word.size() || !std::equal(word.begin(), word.end(), rest_.begin(), equalLetters)) return false;
    take(word.size());
    return true;
  }

 private:
  static bool equalLetters(char expected, char16_t found) {
    return static_cast<char16_t>(expected) == (found >= u'A' && found <= u'Z' ? found + (u'a' - u'A') : found);
  }
  void skip() { take(std::min(rest_.find_first_not_of(u' '), rest_.size())); }
  std::u16string_view take(std::size_t count) {
    const std::u16string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }

  std::u16string_view rest_;
};

}  // namespace html
