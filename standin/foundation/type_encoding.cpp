// The size of a C type from its Objective-C encoding.
#include "standin/foundation/type_encoding.hpp"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace standin::foundation {
namespace {

struct Extent {
  size_t size = 0;
  size_t alignment = 1;
};

constexpr size_t maximumSize = size_t{1} << 30;
constexpr int maximumNesting = 64;

size_t alignedUp(size_t value, size_t alignment) { return (value + alignment - 1) / alignment * alignment; }

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  std::optional<Extent> type() {
    if (rest().empty() || ++nesting_ > maximumNesting) return {};
    const std::optional<Extent> extent = typeAfter(text_[position_++]);
    --nesting_;
    return extent;
  }
  std::string_view rest() const { return text_.substr(position_); }

 private:
  std::optional<Extent> typeAfter(char code) {
    switch (code) {
      case 'c':
      case 'C':
      case 'B':
        return Extent{1, 1};
      case 's':
      case 'S':
        return Extent{2, 2};
      case 'i':
      case 'I':
      case 'f':
        return Extent{4, 4};
      case 'l':
      case 'L':
      case 'q':
      case 'Q':
      case 'd':
      case '*':
      case '@':
      case '#':
      case ':':
        return Extent{8, 8};
      case '^':
        return pointer();
      case '{':
        return members('}');
      case '(':
        return members(')');
      case '[':
        return elements();
      default:
        return {};
    }
  }

  // What is pointed to may be void or incomplete.
  std::optional<Extent> pointer() {
    if (!take('v') && !take('?') && !takeIncomplete() && !type()) return {};
    return Extent{8, 8};
  }

  // A structure's members follow each other; a union's share their place.
  std::optional<Extent> members(char end) {
    const size_t equals = rest().find_first_of("={}()");
    if (equals == std::string_view::npos || rest()[equals] != '=') return {};
    position_ += equals + 1;
    Extent whole;
    while (!take(end)) {
      const std::optional<Extent> member = type();
      if (!member || whole.size > maximumSize) return {};
      whole.alignment = std::max(whole.alignment, member->alignment);
      whole.size = end == '}' ? alignedUp(whole.size, member->alignment) + member->size : std::max(whole.size, member->size);
    }
    whole.size = alignedUp(whole.size, whole.alignment);
    return whole;
  }

  std::optional<Extent> elements() {
    size_t count = 0;
    const std::from_chars_result read = std::from_chars(rest().data(), rest().data() + rest().size(), count);
    if (read.ec != std::errc()) return {};
    position_ = static_cast<size_t>(read.ptr - text_.data());
    std::optional<Extent> element = type();
    if (!element || !take(']') || count > maximumSize / std::max<size_t>(element->size, 1)) return {};
    element->size *= count;
    return element;
  }

  // A structure of which only the name is known: "{name}".
  bool takeIncomplete() {
    const size_t end = rest().find_first_of("={}()", 1);
    if (!rest().starts_with('{') || end == std::string_view::npos || rest()[end] != '}') return false;
    position_ += end + 1;
    return true;
  }

  bool take(char expected) {
    if (rest().empty() || rest().front() != expected) return false;
    ++position_;
    return true;
  }

  std::string_view text_;
  size_t position_ = 0;
  int nesting_ = 0;
};

}  // namespace

std::optional<size_t> encodedSize(const char* encoding) {
  Parser parser(encoding);
  const std::optional<Extent> extent = parser.type();
  if (!extent || !parser.rest().empty()) return {};
  return extent->size;
}

}  // namespace standin::foundation
