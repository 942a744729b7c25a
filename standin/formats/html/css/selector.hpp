// Selectors: which elements a rule is for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "standin/formats/html/tree.hpp"

namespace standin::formats::html::css {

// A selector is a list of these in the order of the sheet; combinators stand between compounds.
struct SelectorPart {
  enum Kind : uint8_t {
    anything,
    type,
    id,
    className,
    attributePresent,
    attributeEquals,
    attributeHasWord,
    attributeStartsWithWord,
    attributeStartsWith,
    attributeEndsWith,
    attributeContains,
    isLink,
    isRoot,
    isEmpty,
    nthChild,
    nthLastChild,
    nthOfType,
    nthLastOfType,
    onlyChild,
    child,
    descendant,
    adjacent,
    sibling,
  };
  Kind kind = anything;
  bool negated = false;
  Tag tag = Tag::unknown;
  std::string name{};        // of a type, an identifier, a class, an attribute
  std::string value{};       // of an attribute
  int step = 0, offset = 0;  // "an+b"
  uint32_t number = 0;       // of a class, which the sheet gives it

  bool isCombinator() const { return kind >= child; }
  bool isOfAttribute() const { return kind >= attributePresent && kind <= attributeContains; }
};
using Selector = std::vector<SelectorPart>;

// Nothing for selectors that are for no element of a document at rest (":hover", "::before") and for what is no selector.
std::optional<Selector> parseSelector(std::string_view text);

// Identifiers count most, then classes, attributes and states, then types.
uint32_t specificityOf(const Selector& selector);

}  // namespace standin::formats::html::css
