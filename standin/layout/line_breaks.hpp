// Where lines may break within text that has no white space in it.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

struct UBreakIterator;

namespace standin::layout {

class LineBreaks {
 public:
  LineBreaks();
  ~LineBreaks();

  // The positions inside the text, in order, before which a line may begin. Valid until the next call.
  const std::vector<uint32_t>& in(std::u16string_view text);

 private:
  struct Close {
    void operator()(UBreakIterator* iterator) const;
  };
  std::unique_ptr<UBreakIterator, Close> iterator_;
  std::vector<uint32_t> found_;
};

// The character ends a line within a paragraph.
inline bool endsLine(char16_t unit) { return unit == u'\v' || unit == u'\u0085' || unit == u'\u2028'; }

// A space, of those at which lines end and justified lines grow.
inline bool isSpace(char16_t unit) {
  return unit == u' ' || unit == u'\u3000' || (unit >= 0x2000 && unit <= 0x200B && unit != 0x2007);
}

}  // namespace standin::layout
