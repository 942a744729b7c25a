// Formatting as style sheets give it: what is said, and what is left to the style beneath.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "standin/text/style.hpp"

namespace standin::formats {

// A member that is absent is not said. Members mean what those of text::Style do.
struct CharacterFormatting {
  std::optional<std::string> font{};  // family or face
  std::optional<double> size{};       // points
  std::optional<bool> bold{}, italic{}, hidden{};
  std::optional<int> underline{}, strikethrough{}, superscript{};
  std::optional<std::optional<text::Color>> foreground{}, background{}, underlineColor{};  // an empty colour: automatic
  std::optional<double> baselineOffset{}, kern{}, expansion{}, strokeWidth{};
  std::optional<bool> shadow{};  // the default shadow

  static constexpr auto members() {
    using C = CharacterFormatting;
    return std::tuple(&C::font, &C::size, &C::bold, &C::italic, &C::hidden, &C::underline, &C::strikethrough,
                      &C::superscript, &C::foreground, &C::background, &C::underlineColor, &C::baselineOffset, &C::kern,
                      &C::expansion, &C::strokeWidth, &C::shadow);
  }
  bool operator==(const CharacterFormatting&) const = default;
};

struct ParagraphFormatting {
  std::optional<text::Alignment> alignment{};
  std::optional<text::WritingDirection> direction{};
  std::optional<double> leftIndent{}, rightIndent{}, firstLineIndent{};  // the first line's counts from the left indent
  std::optional<double> spacingBefore{}, spacingAfter{}, lineSpacing{};
  std::optional<double> minimumLineHeight{}, maximumLineHeight{}, lineHeightMultiple{}, defaultTabInterval{};
  std::optional<int> headerLevel{};
  std::optional<std::vector<text::TabStop>> tabs{};
  std::optional<int> list{}, listLevel{};  // which list of the document, level from 0; list 0: in none

  static constexpr auto members() {
    using P = ParagraphFormatting;
    return std::tuple(&P::alignment, &P::direction, &P::leftIndent, &P::rightIndent, &P::firstLineIndent, &P::spacingBefore,
                      &P::spacingAfter, &P::lineSpacing, &P::minimumLineHeight, &P::maximumLineHeight,
                      &P::lineHeightMultiple, &P::defaultTabInterval, &P::headerLevel, &P::tabs, &P::list, &P::listLevel);
  }
  bool operator==(const ParagraphFormatting&) const = default;
};

// What `over` says replaces what `under` says.
template <class Formatting>
void overlay(Formatting& under, const Formatting& over) {
  std::apply([&](auto... member) { ((over.*member ? void(under.*member = over.*member) : void()), ...); },
             Formatting::members());
}

// The character part of a style: font Times New Roman of 12 points where nothing is said.
text::Style styleOf(const CharacterFormatting& formatting);
text::Paragraph paragraphOf(const ParagraphFormatting& formatting);

// Named styles, each with a parent. A style that is its own ancestor inherits nothing past the point where it meets itself,
// and none inherits from more ancestors than real documents have, so that long chains stay cheap.
template <class Key, class Formatting>
class StyleSheet {
 public:
  void add(Key name, std::optional<Key> parent, Formatting own) {
    styles_[std::move(name)] = {std::move(parent), std::move(own)};
    resolved_.clear();
  }
  // What the style and its ancestors say together; nothing for an unknown name.
  const Formatting& resolve(const Key& name) const {
    const auto known = resolved_.find(name);
    return known != resolved_.end() ? known->second : resolved_.emplace(name, resolveAncestry(name)).first->second;
  }

 private:
  struct Entry {
    std::optional<Key> parent;
    Formatting own;
  };

  static constexpr size_t mostAncestors = 64;

  Formatting resolveAncestry(const Key& name) const {
    std::vector<const Formatting*> chain;
    std::set<Key> met;
    for (auto style = styles_.find(name);
         style != styles_.end() && chain.size() < mostAncestors && met.insert(style->first).second;) {
      chain.push_back(&style->second.own);
      style = style->second.parent ? styles_.find(*style->second.parent) : styles_.end();
    }
    Formatting result;
    for (auto own = chain.rbegin(); own != chain.rend(); ++own) overlay(result, **own);
    return result;
  }

  std::map<Key, Entry> styles_;
  mutable std::map<Key, Formatting> resolved_;
};

}  // namespace standin::formats
