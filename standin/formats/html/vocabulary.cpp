// The elements that strict HTML lacks, and the document types.
#include "standin/formats/html/vocabulary.hpp"

#include <algorithm>
#include <array>

namespace standin::formats::html {
namespace {

constexpr std::array<std::string_view, 10> transitionalElements = {"applet",  "basefont", "center", "dir",    "font",
                                                                   "isindex", "menu",     "s",      "strike", "u"};

// By whether it is XML and whether it is strict.
constexpr std::string_view documentTypes[2][2] = {
    {"<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\" \"http://www.w3.org/TR/html4/loose.dtd\">",
     "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\" \"http://www.w3.org/TR/html4/strict.dtd\">"},
    {"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" "
     "\"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\">",
     "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\" \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">"},
};

std::string lowercase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
  return text;
}

}  // namespace

Vocabulary::Vocabulary(const std::optional<std::vector<std::string>>& excluded) {
  if (excluded) {
    for (const std::string& name : *excluded) excluded_.insert(lowercase(name));
  } else {
    excluded_.insert(transitionalElements.begin(), transitionalElements.end());
    excluded_.insert("xml");
  }
}

std::string_view Vocabulary::firstOf(std::initializer_list<std::string_view> elements) const {
  const auto found = std::find_if(elements.begin(), elements.end(), [this](auto element) { return has(element); });
  return found != elements.end() ? *found : std::string_view();
}

std::string_view Vocabulary::documentType() const {
  const bool strict = std::none_of(transitionalElements.begin(), transitionalElements.end(),
                                   [this](std::string_view element) { return has(element); });
  return documentTypes[isXML()][strict];
}

}  // namespace standin::formats::html
