// Equal declarations of equal elements are one class.
#include "standin/formats/html/style_classes.hpp"

namespace standin::formats::html {

std::string StyleClasses::attribute(std::string_view element, char letter, const std::string& declarations) {
  if (declarations.empty()) return "";
  if (!hasSheet_) return " style=\"" + declarations + "\"";
  std::string& known = attributes_[std::string(element) + letter + declarations];
  if (known.empty()) {
    const std::string name = letter + std::to_string(++counts_[letter]);
    rules_.push_back(std::string(element) + "." + name + " {" + declarations + "}");
    known = " class=\"" + name + "\"";
  }
  return known;
}

std::string StyleClasses::ruled(const std::string& selector, const std::string& declarations) {
  if (!hasSheet_) return " style=\"" + declarations + "\"";
  if (attributes_.emplace(selector, "").second) rules_.push_back(selector + " {" + declarations + "}");
  return selector.starts_with('.') ? " class=\"" + selector.substr(1) + "\"" : "";
}

}  // namespace standin::formats::html
