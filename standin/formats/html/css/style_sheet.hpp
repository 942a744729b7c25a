// Style sheets: rules and what they declare, found by the elements that they are for.
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "standin/formats/html/css/properties.hpp"
#include "standin/formats/html/css/selector.hpp"

namespace standin::formats::html::css {

struct Declaration {
  Property property;
  bool isImportant;
  std::string_view value;
};

// The declarations of properties that are known, as in a style attribute; their values are parts of the text.
void parseDeclarations(std::string_view text, std::vector<Declaration>& out);
// Calls `use` with the name and the value of each declaration, known or not.
void forEachDeclaration(std::string_view text,
                        const std::function<void(std::string_view name, std::string_view value)>& use);

// What a medium must be for a sheet or a block to count: paper and windows of special kinds are not meant.
bool isForScreens(std::string_view mediaQuery);

class StyleSheet {
 public:
  // Gives the text of the sheet that an "@import" names; it may be empty.
  using Import = std::function<std::string(std::string_view url)>;

  // Adds the rules of a sheet behind those that there are. "@page" declarations go to `page`.
  void add(std::string_view text, const Import& import = {});
  // To be called once, when all rules are there.
  void finish();

  // Appends the numbers of the rules that are for the element, the weakest first.
  void collect(const Tree& tree, NodeIndex element, uint64_t& steps, std::vector<uint32_t>& out) const;
  std::span<const Declaration> declarationsOf(uint32_t rule) const;

  // The contents of the "@page" rules.
  const std::string& page() const { return page_; }

 private:
  friend class SheetParser;

  struct Rule {
    Selector selector;
    uint32_t specificity, firstDeclaration, declarationCount;
  };
  using Bucket = std::vector<uint32_t>;

  void collectFrom(const Bucket& bucket, const Tree& tree, NodeIndex element, uint64_t& steps,
                   std::vector<uint32_t>& out) const;
  Bucket& bucketFor(const Selector& selector);

  std::deque<std::string> texts_;
  std::vector<Rule> rules_;
  std::vector<Declaration> declarations_;
  std::string page_;
  std::unordered_map<std::string_view, Bucket> byId_, byClass_;
  std::array<Bucket, static_cast<size_t>(Tag::count)> byTag_;
  Bucket others_;
};

// How browsers show elements of which a document says nothing.
const StyleSheet& defaultSheet();

}  // namespace standin::formats::html::css
