// Words and quoted strings of a field instruction: HYPERLINK "address" \l "place" \o "tip".
#include "standin/formats/link_target.hpp"

namespace standin::formats {
namespace {

// A quoted string comes without its quotes, and is no switch.
struct Word {
  std::u16string_view text;
  bool quoted;

  bool isSwitch() const { return !quoted && text.starts_with(u'\\'); }
};

Word nextWord(std::u16string_view& rest) {
  const size_t start = rest.find_first_not_of(u' ');
  if (start == rest.npos) return {rest = {}, false};
  rest.remove_prefix(start);
  const bool quoted = rest[0] == u'"';
  if (quoted) rest.remove_prefix(1);
  const size_t end = std::min(rest.find(quoted ? u'"' : u' '), rest.size());
  const std::u16string_view word = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return {word, quoted};
}

}  // namespace

std::optional<std::u16string> linkTarget(std::u16string_view instruction) {
  if (nextWord(instruction).text != u"HYPERLINK") return std::nullopt;
  std::u16string target;
  while (!instruction.empty()) {
    const Word word = nextWord(instruction);
    if (word.isSwitch() && word.text == u"\\l") {
      target += u'#';
      target += nextWord(instruction).text;
    } else if (word.isSwitch()) {
      // Of the other switches, a tip and a frame have a value.
      if (word.text == u"\\o" || word.text == u"\\t") nextWord(instruction);
    } else if (target.empty()) {
      target = word.text;
    }
  }
  if (target.empty()) return std::nullopt;
  return target;
}

}  // namespace standin::formats
