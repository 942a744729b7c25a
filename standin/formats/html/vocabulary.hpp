// Which elements a document may be written with.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace standin::formats::html {

// What is neither excluded by name nor by default may be used.
class Vocabulary {
 public:
  // The names that are excluded, in capitals or not. Without a list: "xml", and what strict HTML lacks.
  explicit Vocabulary(const std::optional<std::vector<std::string>>& excluded);

  // By a name in small letters. "doctype" and "xml" (which makes the document XHTML) count as elements.
  bool has(std::string_view element) const { return !excluded_.contains(element); }
  bool isXML() const { return has("xml"); }
  // The first of the elements that may be used; empty for none.
  std::string_view firstOf(std::initializer_list<std::string_view> elements) const;
  // The document type declaration that fits: strict when none of the elements that strict HTML lacks may be used.
  std::string_view documentType() const;
  // What ends the tag of an element without content.
  std::string_view voidEnd() const { return isXML() ? " />" : ">"; }

 private:
  std::set<std::string, std::less<>> excluded_;
};

}  // namespace standin::formats::html
