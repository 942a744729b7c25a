// The classes of a document's style sheet, or the same declarations as style attributes.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace standin::formats::html {

// Classes are numbered by letter in the order of their first use: p1, p2, s1.
class StyleClasses {
 public:
  // Without a sheet each element carries its own declarations.
  explicit StyleClasses(bool hasSheet) : hasSheet_(hasSheet) {}

  // The attribute that gives the element these declarations, a space before it; empty for none. The class is that of any
  // element where none is named: some programs know no others for what is inside of paragraphs.
  std::string attribute(std::string_view element, char letter, const std::string& declarations);
  // The same by a rule for the selector, an element or a class, which is added when it is first asked for.
  std::string ruled(const std::string& selector, const std::string& declarations);

  // The lines of the sheet.
  const std::vector<std::string>& rules() const { return rules_; }

 private:
  const bool hasSheet_;
  std::unordered_map<std::string, std::string> attributes_;  // by what was asked for
  std::unordered_map<char, int> counts_;
  std::vector<std::string> rules_;
};

}  // namespace standin::formats::html
