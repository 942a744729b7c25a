// Words and quoted strings of a field instruction: HYPERLINK "address" \l "place" \o "tip".
#include "standin/formats/rtf/link_target.hpp"

namespace standin::formats::rtf {
namespace {

// Takes the next word, or the next quoted string without its quotes.
std::u16string_view nextWord(std::u16string_view& rest) {
  const size_t start = rest.find_first_not_of(u' ');
  if (start == rest.npos) return rest = {};
  rest.remove_prefix(start);
  const bool quoted = rest[0] == u'"';
  if (quoted) rest.remove_prefix(1);
  const size_t end = std::min(rest.find(quoted ? u'"' : u' '), rest.size());
  const std::u16string_view word = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return word;
}

}  // namespace

std::optional<std::u16string> linkTarget(std::u16string_view instruction) {
  if (nextWord(instruction) != u"HYPERLINK") return std::nullopt;
  std::u16string target;
  while (!instruction.empty()) {
    const std::u16string_view word = nextWord(instruction);
    if (word == u"\\l") {
      target += u'#';
      target += nextWord(instruction);
    } else if (word.starts_with(u'\\')) {
      // Of the other switches, a tip and a frame have a value.
      if (word == u"\\o" || word == u"\\t") nextWord(instruction);
    } else if (target.empty()) {
      target = word;
    }
  }
  if (target.empty()) return std::nullopt;
  return target;
}

}  // namespace standin::formats::rtf
