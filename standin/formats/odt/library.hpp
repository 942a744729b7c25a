// The styles of a document: fonts, named and automatic styles, list styles, pages.
#pragma once

#include <map>
#include <unordered_map>

#include "standin/formats/document.hpp"
#include "standin/formats/odt/list_styles.hpp"
#include "standin/formats/odt/properties.hpp"

namespace standin::formats::odt {

enum class Family : uint8_t { paragraph, text, other };

class Library {
 public:
  // What the style and those that it builds on say together; an empty or unknown name is the document's plain style.
  const StyleProperties& style(Family family, std::string_view name) const;
  // Nil for an unknown name.
  const ListStyle* listStyle(std::string_view name) const;
  const ListStyle& outline() const { return outline_; }
  // Of the marks in the text that point to notes of the class.
  std::string_view citationStyle(std::string_view noteClass) const;

  // Page, background and tab interval, by the page that the text starts on.
  void describe(DocumentInformation& information, std::string_view firstMasterPage) const;

  // Positions of tab stops count from the left indent, unless the settings say that they do not.
  bool tabsFollowIndent = true;

 private:
  friend class StyleReader;

  // Automatic styles may bear the names of others.
  struct Key {
    Family family;
    bool isAutomatic;
    std::string name;  // empty: the family's default
    auto operator<=>(const Key&) const = default;
  };
  struct Page {
    PageSetup setup;
    std::optional<text::Color> background;
  };

  StyleSheet<Key, StyleProperties> styles_;
  std::set<Key> known_;
  std::map<std::pair<bool, std::string>, ListStyle, std::less<>> listStyles_;  // automatic, and by name
  ListStyle outline_ = unmarkedListStyle();
  std::map<std::string, std::string, std::less<>> citationStyles_;
  std::map<std::string, Page, std::less<>> pages_;
  std::map<std::string, std::string, std::less<>> layouts_;  // of master pages
  std::string firstMasterPage_;
  std::optional<double> defaultTabInterval_;
};

}  // namespace standin::formats::odt
