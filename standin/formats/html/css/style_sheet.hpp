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

// By number.
using Steps = std::vector<uint32_t>;

// A compound of a selector with all before it. Selectors that begin alike share their first steps, and equal ones their
// last.
struct SelectorStep {
  static constexpr uint32_t none = UINT32_MAX;

  uint32_t before = none;                               // where the combinator comes from
  SelectorPart::Kind combinator = SelectorPart::child;  // when there is a step before
  bool goesOn = false, goesOnToSiblings = false;        // there are steps behind; behind "~"
  Selector conditions{};                                // without the one that the step is found by
  std::vector<uint32_t> rules{};                        // that end here, in the order of the sheet
};

// Where the steps are found that may hold of an element.
struct StepIndex {
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  using Numbers = std::unordered_map<std::string, uint32_t, Hash, std::equal_to<>>;
  using ByName = std::unordered_map<std::string, Steps, Hash, std::equal_to<>>;

  ByName byId, byAttribute, byUnknownTag;
  Numbers classNumbers;
  std::vector<Steps> byClass;
  std::array<Steps, static_cast<size_t>(Tag::count)> byTag;
  Steps others;
};

class StyleSheet {
 public:
  // Gives the text of the sheet that an "@import" names; it may be empty.
  using Import = std::function<std::string(std::string_view url)>;

  // Adds the rules of a sheet behind those that there are. "@page" declarations go to `page`.
  void add(std::string_view text, const Import& import = {});
  // To be called once, when all rules are there.
  void finish();

  const StepIndex& index() const { return index_; }
  const std::vector<SelectorStep>& steps() const { return steps_; }
  // Whether elements must be told apart by those around them; by their place among those of their type.
  bool dependsOnOthers() const { return dependsOnOthers_; }
  bool countsTypes() const { return countsTypes_; }

  size_t ruleCount(std::span<const uint32_t> steps) const;
  // Appends the numbers of the rules that end in the steps, the weakest first.
  void appendRules(std::span<const uint32_t> steps, std::vector<uint32_t>& out) const;
  std::span<const Declaration> declarationsOf(uint32_t rule) const;

  // The contents of the "@page" rules.
  const std::string& page() const { return page_; }

 private:
  friend class SheetParser;

  struct Rule {
    Selector selector;  // until the steps are made
    uint32_t specificity, firstDeclaration, declarationCount;
  };

  uint32_t lastStepOf(const Selector& selector, StepIndex::Numbers& known);
  uint32_t addStep(SelectorStep step);
  Steps& placeFor(Selector& conditions);
  uint32_t classNumber(const std::string& name);

  std::deque<std::string> texts_;
  std::vector<Rule> rules_;
  std::vector<Declaration> declarations_;
  std::string page_;
  size_t selectorParts_ = 0;
  std::vector<SelectorStep> steps_;
  StepIndex index_;
  bool dependsOnOthers_ = false, countsTypes_ = false;
};

// How browsers show elements of which a document says nothing.
const StyleSheet& defaultSheet();

}  // namespace standin::formats::html::css
