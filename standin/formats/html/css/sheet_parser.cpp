// Reading of style sheets.
#include <algorithm>

#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/css/style_sheet.hpp"
#include "standin/formats/html/css/values.hpp"

namespace standin::formats::html::css {
namespace {

constexpr size_t mostRules = 65'536, mostSelectorParts = 262'144;
constexpr int mostNesting = 8;

// Comments become spaces; those in strings are none.
std::string withoutComments(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '/' && text.substr(at, 2) == "/*") {
      const size_t end = text.find("*/", at + 2);
      if (end == std::string_view::npos) break;
      at = end + 1;
      result += ' ';
    } else if (c == '"' || c == '\'') {
      const size_t end = std::min(text.find_first_of(std::string{c, '\n'}, at + 1), text.size() - 1);
      result += text.substr(at, end - at + 1);
      at = end;
    } else {
      result += c;
    }
  }
  return result;
}

// "url(a.css)" or a string.
std::string urlIn(std::string_view prelude) {
  const auto words = wordsOf(prelude);
  if (words.empty()) return {};
  std::string_view url = words.front();
  if (url.size() > 5 && equalIgnoringCase(url.substr(0, 4), "url(") && url.ends_with(')'))
    url = url.substr(4, url.size() - 5);
  return stringOf(url);
}

}  // namespace

void forEachDeclaration(std::string_view text, const std::function<void(std::string_view, std::string_view)>& use) {
  for (size_t start = 0; start < text.size();) {
    const size_t end = findOutside(text, ";", start);
    const std::string_view declaration = text.substr(start, end - start);
    start = end + 1;
    const size_t colon = declaration.find(':');
    if (colon == std::string_view::npos) continue;
    use(trimmed(declaration.substr(0, colon)), trimmed(declaration.substr(colon + 1)));
  }
}

void parseDeclarations(std::string_view text, std::vector<Declaration>& out) {
  forEachDeclaration(text, [&](std::string_view name, std::string_view value) {
    const Property property = propertyNamed(name);
    if (property == unknownProperty) return;
    const size_t mark = value.rfind('!');
    const bool isImportant =
        mark != std::string_view::npos && equalIgnoringCase(trimmed(value.substr(mark + 1)), "important");
    if (isImportant) value = trimmed(value.substr(0, mark));
    if (!value.empty()) out.push_back({property, isImportant, value});
  });
}

bool isForScreens(std::string_view mediaQuery) {
  if (trimmed(mediaQuery).empty()) return true;
  const auto isMet = [](std::string_view query) {
    return query.find('(') == std::string_view::npos &&
           (equalIgnoringCase(query, "all") || equalIgnoringCase(query, "screen") ||
            equalIgnoringCase(query, "only screen"));
  };
  const auto queries = partsOf(mediaQuery, ',');
  return std::any_of(queries.begin(), queries.end(), isMet);
}

class SheetParser {
 public:
  SheetParser(StyleSheet& sheet, const StyleSheet::Import& import) : sheet_(sheet), import_(import) {}

  void parse(std::string_view text, int nesting) {
    for (std::string_view rest = text; skipMarks(rest), !rest.empty();) {
      const size_t end = findOutside(rest, rest.front() == '@' ? "{;" : "{");
      const std::string_view prelude = trimmed(rest.substr(0, end));
      const bool hasBlock = end < rest.size() && rest[end] == '{';
      rest.remove_prefix(std::min(end + 1, rest.size()));
      std::string_view block;
      if (hasBlock) {
        const size_t close = findOutside(rest, "}");
        block = rest.substr(0, close);
        rest.remove_prefix(std::min(close + 1, rest.size()));
      }
      if (prelude.starts_with('@')) {
        takeAtRule(prelude, block, nesting);
      } else if (hasBlock) {
        addRules(prelude, block);
      }
    }
  }

 private:
  // Marks that hide a sheet from programs without any, and stray ends.
  static void skipMarks(std::string_view& rest) {
    constexpr std::string_view marks[] = {"<!--", "-->", "<![CDATA[", "]]>", "}", ";"};
    bool skipped = true;
    while (skipped) {
      while (!rest.empty() && isASCIISpace(rest.front())) rest.remove_prefix(1);
      skipped = false;
      for (const std::string_view mark : marks) {
        if (!rest.starts_with(mark)) continue;
        rest.remove_prefix(mark.size());
        skipped = true;
      }
    }
  }

  void takeAtRule(std::string_view prelude, std::string_view block, int nesting) {
    const size_t nameEnd = std::min(prelude.find_first_of(" \t\n\r\f\"'("), prelude.size());
    const std::string name = asciiLowercase(prelude.substr(1, nameEnd - 1));
    const std::string_view rest = trimmed(prelude.substr(nameEnd));
    if (name == "page") {
      sheet_.page_.append(block).append(";");
    } else if (nesting < mostNesting && (name == "media" ? isForScreens(rest) : name == "supports" || name == "layer")) {
      parse(block, nesting + 1);
    } else if (name == "import" && import_ && nesting < mostNesting) {
      const std::string text = import_(urlIn(rest));
      if (!text.empty()) parse(sheet_.texts_.emplace_back(withoutComments(text)), nesting + 1);
    }
  }

  void addRules(std::string_view prelude, std::string_view block) {
    const auto first = static_cast<uint32_t>(sheet_.declarations_.size());
    parseDeclarations(block, sheet_.declarations_);
    const auto count = static_cast<uint32_t>(sheet_.declarations_.size()) - first;
    if (count == 0) return;
    for (const std::string_view text : partsOf(prelude, ',')) {
      if (sheet_.rules_.size() >= mostRules || sheet_.selectorParts_ >= mostSelectorParts) return;
      auto selector = parseSelector(text);
      if (!selector) continue;
      sheet_.selectorParts_ += selector->size();
      const uint32_t specificity = specificityOf(*selector);
      sheet_.rules_.push_back({*std::move(selector), specificity, first, count});
    }
  }

  StyleSheet& sheet_;
  const StyleSheet::Import& import_;
};

void StyleSheet::add(std::string_view text, const Import& import) {
  SheetParser(*this, import).parse(texts_.emplace_back(withoutComments(text)), 0);
}

}  // namespace standin::formats::html::css
