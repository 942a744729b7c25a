// Reading of selectors.
#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/css/selector.hpp"
#include "standin/formats/html/css/values.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::html::css {
namespace {

using Part = SelectorPart;

constexpr size_t mostParts = 48;

struct StateRow {
  std::string_view name;
  Part::Kind kind;
  int step, offset;
};
constexpr StateRow states[] = {
    {"link", Part::isLink, 0, 0},
    {"any-link", Part::isLink, 0, 0},
    {"root", Part::isRoot, 0, 0},
    {"empty", Part::isEmpty, 0, 0},
    {"first-child", Part::nthChild, 0, 1},
    {"last-child", Part::nthLastChild, 0, 1},
    {"only-child", Part::onlyChild, 0, 0},
    {"first-of-type", Part::nthOfType, 0, 1},
    {"last-of-type", Part::nthLastOfType, 0, 1},
};
constexpr StateRow countedStates[] = {
    {"nth-child", Part::nthChild, 0, 0},
    {"nth-last-child", Part::nthLastChild, 0, 0},
    {"nth-of-type", Part::nthOfType, 0, 0},
    {"nth-last-of-type", Part::nthLastOfType, 0, 0},
};

struct OperatorRow {
  std::string_view text;
  Part::Kind kind;
};
constexpr OperatorRow operators[] = {{"~=", Part::attributeHasWord},    {"|=", Part::attributeStartsWithWord},
                                     {"^=", Part::attributeStartsWith}, {"$=", Part::attributeEndsWith},
                                     {"*=", Part::attributeContains},   {"=", Part::attributeEquals}};

bool isNameByte(char c) { return isASCIIAlphanumeric(c) || c == '-' || c == '_' || c == '\\' || (c & 0x80) != 0; }

class Parser {
 public:
  explicit Parser(std::string_view text) : rest_(trimmed(text)) {}

  std::optional<Selector> parse() {
    while (!rest_.empty()) {
      if (!takePart() || parts_.size() > mostParts) return std::nullopt;
    }
    if (parts_.empty() || parts_.back().isCombinator()) return std::nullopt;
    return std::move(parts_);
  }

 private:
  bool takePart() {
    const char c = rest_.front();
    if (isASCIISpace(c) || c == '>' || c == '+' || c == '~') return takeCombinator();
    if (isNameByte(c)) return takeType();
    rest_.remove_prefix(1);
    switch (c) {
      case '*':
        return add({}), true;
      case '#':
        return takeNamed(Part::id);
      case '.':
        return takeNamed(Part::className);
      case '[':
        return takeAttribute();
      case ':':
        return takeState();
      default:
        return false;
    }
  }

  void add(Part part) { parts_.push_back(std::move(part)); }

  std::string takeName() {
    size_t end = 0;
    while (end < rest_.size() && isNameByte(rest_[end])) end += rest_[end] == '\\' ? 2 : 1;
    std::string name = stringOf(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end, rest_.size()));
    return name;
  }

  bool takeCombinator() {
    Part::Kind kind = Part::descendant;
    for (; !rest_.empty(); rest_.remove_prefix(1)) {
      const char c = rest_.front();
      if (!isASCIISpace(c) && (kind != Part::descendant || (c != '>' && c != '+' && c != '~'))) break;
      if (c == '>') kind = Part::child;
      if (c == '+') kind = Part::adjacent;
      if (c == '~') kind = Part::sibling;
    }
    if (parts_.empty() || parts_.back().isCombinator()) return false;
    add({.kind = kind});
    return true;
  }

  bool takeType() {
    std::string name = asciiLowercase(takeName());
    const Tag tag = tagNamed(name);
    add({.kind = Part::type, .tag = tag, .name = std::move(name)});
    return true;
  }

  bool takeNamed(Part::Kind kind) {
    std::string name = takeName();
    if (name.empty()) return false;
    add({.kind = kind, .name = std::move(name)});
    return true;
  }

  // From behind "[" or "(": what is before the closing one.
  std::optional<std::string_view> takeEnclosed(char close) {
    const size_t end = findOutside(rest_, {&close, 1});
    if (end == rest_.size()) return std::nullopt;
    const std::string_view inside = trimmed(rest_.substr(0, end));
    rest_.remove_prefix(end + 1);
    return inside;
  }

  bool takeAttribute() {
    const auto inside = takeEnclosed(']');
    if (!inside) return false;
    const size_t nameEnd = std::min(inside->find_first_of("~|^$*= \t\n"), inside->size());
    Part part{.kind = Part::attributePresent, .name = asciiLowercase(inside->substr(0, nameEnd))};
    const std::string_view test = trimmed(inside->substr(nameEnd));
    for (const OperatorRow& row : operators) {
      if (!test.starts_with(row.text)) continue;
      part.kind = row.kind;
      std::string_view value = trimmed(test.substr(row.text.size()));
      if (value.ends_with(" i") || value.ends_with(" s")) value = trimmed(value.substr(0, value.size() - 2));
      part.value = stringOf(value);
      break;
    }
    if (part.name.empty() || (part.kind == Part::attributePresent && !test.empty())) return false;
    add(std::move(part));
    return true;
  }

  bool takeState() {
    const std::string name = asciiLowercase(takeName());
    if (rest_.starts_with('(')) {
      rest_.remove_prefix(1);
      const auto inside = takeEnclosed(')');
      return inside && (name == "not" ? takeNegation(*inside) : takeCounted(name, *inside));
    }
    for (const StateRow& row : states) {
      if (row.name != name) continue;
      add({.kind = row.kind, .step = row.step, .offset = row.offset});
      return true;
    }
    return false;
  }

  // None of single conditions.
  bool takeNegation(std::string_view inside) {
    for (const std::string_view condition : partsOf(inside, ',')) {
      if (condition.find(":not") != std::string_view::npos) return false;
      auto parts = Parser(condition).parse();
      if (!parts || parts->size() != 1) return false;
      parts->front().negated = true;
      add(std::move(parts->front()));
    }
    return true;
  }

  // "odd", "even", "3", "2n+1", "-n + 3".
  bool takeCounted(std::string_view name, std::string_view inside) {
    for (const StateRow& row : countedStates) {
      if (row.name != name) continue;
      Part part{.kind = row.kind};
      std::string formula = asciiLowercase(inside);
      std::erase_if(formula, isASCIISpace);
      if (formula == "odd") formula = "2n+1";
      if (formula == "even") formula = "2n";
      if (formula.find_first_not_of("0123456789n+-") != std::string::npos) return false;
      const size_t variable = formula.find('n');
      if (variable != std::string::npos) {
        std::string step = formula.substr(0, variable);
        if (step.empty() || step == "+" || step == "-") step += "1";
        part.step = wholeNumberOf(step);
        formula.erase(0, variable + 1);
      }
      part.offset = wholeNumberOf(formula);
      add(std::move(part));
      return true;
    }
    return false;
  }

  static int wholeNumberOf(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    return static_cast<int>(std::clamp(numberOf(text).value_or(0), -1e6, 1e6));
  }

  std::string_view rest_;
  Selector parts_;
};

}  // namespace

std::optional<Selector> parseSelector(std::string_view text) { return Parser(text).parse(); }

uint32_t specificityOf(const Selector& selector) {
  uint32_t identifiers = 0, classes = 0, types = 0;
  for (const Part& part : selector) {
    if (part.kind == Part::id) {
      ++identifiers;
    } else if (part.kind == Part::type) {
      ++types;
    } else if (part.kind != Part::anything && !part.isCombinator()) {
      ++classes;
    }
  }
  return identifiers << 16 | classes << 8 | types;
}

}  // namespace standin::formats::html::css
