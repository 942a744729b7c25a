// The cascade: the default sheet, hints, the document's sheet, the style attribute, then what is important.
#include "standin/formats/html/element_styles.hpp"

#include "standin/formats/html/presentation.hpp"

namespace standin::formats::html {
namespace {

// A document of more styles shows the rest of them as the elements around.
constexpr size_t mostStyles = 65'536;
constexpr uint64_t leastWork = 48'000'000, workPerNode = 200, workPerByte = 4;
// To find what a property does; its value counts by its characters.
constexpr uint64_t workPerDeclaration = 16;

bool setsTopMargin(css::Property property) {
  static const css::Property properties[] = {css::propertyNamed("margin"), css::propertyNamed("margin-top"),
                                             css::propertyNamed("margin-block-start")};
  return property == properties[0] || property == properties[1] || property == properties[2];
}

void append(std::string& key, uint32_t number) { key.append(reinterpret_cast<const char*>(&number), sizeof number); }

}  // namespace

ElementStyles::ElementStyles(const Tree& tree, const css::StyleSheet& sheet, css::ComputedStyle root)
    : tree_(tree),
      sheet_(sheet),
      work_(leastWork + workPerNode * tree.size() + workPerByte * tree.sourceSize()),
      defaultFinder_(css::defaultSheet(), tree),
      finder_(sheet, tree) {
  styles_.push_back(std::move(root));
}

ElementStyles::Index ElementStyles::styleOf(NodeIndex element, Index parent) {
  collect(element);
  makeKey(parent);
  const auto known = indices_.find(key_);
  if (known != indices_.end()) return known->second;
  if (styles_.size() >= mostStyles) return parent;
  if (!findDeclarations()) return plainStyle(element, parent);
  return make(element, parent);
}

// Once the work is spent: as browsers show the element by themselves.
ElementStyles::Index ElementStyles::plainStyle(NodeIndex element, Index parent) {
  steps_.clear();
  rules_.clear();
  hints_.clear();
  inlined_.clear();
  styleAttribute_ = {};
  makeKey(parent);
  const auto known = indices_.find(key_);
  return known != indices_.end() ? known->second : make(element, parent);
}

ElementStyles::Index ElementStyles::make(NodeIndex element, Index parent) {
  defaultRules_.clear();
  css::defaultSheet().appendRules(defaultSteps_, defaultRules_);
  styles_.push_back(compute(element, parent));
  return indices_[key_] = static_cast<Index>(styles_.size() - 1);
}

void ElementStyles::collect(NodeIndex element) {
  Work unbounded(UINT64_MAX);
  defaultSteps_.clear();
  steps_.clear();
  hints_.clear();
  defaultFinder_.find(element, unbounded, defaultSteps_);
  finder_.find(element, work_, steps_);
  styleAttribute_ = tree_.attribute(element, AttributeName::style).value_or("");
  if (!work_.spend(styleAttribute_.size())) styleAttribute_ = {};
  forEachHint(tree_, element, [this](std::string_view property, std::string value) {
    if (work_.spend(value.size())) hints_.push_back({css::propertyNamed(property), std::move(value)});
  });
}

// False when it is more than may still be done.
bool ElementStyles::findDeclarations() {
  rules_.clear();
  inlined_.clear();
  if (!work_.spend(sheet_.ruleCount(steps_) + styleAttribute_.size())) return false;
  sheet_.appendRules(steps_, rules_);
  css::parseDeclarations(styleAttribute_, inlined_);
  uint64_t units = 0;
  const auto add = [&units](std::span<const css::Declaration> declarations) {
    for (const css::Declaration& declaration : declarations) units += workPerDeclaration + declaration.value.size();
  };
  for (const uint32_t rule : rules_) add(sheet_.declarationsOf(rule));
  add(inlined_);
  return work_.spend(units);
}

// Elements with the same key look the same.
void ElementStyles::makeKey(Index parent) {
  key_.clear();
  append(key_, parent);
  for (const css::Steps* steps : {&defaultSteps_, &steps_}) {
    append(key_, static_cast<uint32_t>(steps->size()));
    for (const uint32_t step : *steps) append(key_, step);
  }
  for (const Hint& hint : hints_) {
    append(key_, hint.property);
    append(key_, static_cast<uint32_t>(hint.value.size()));
    key_ += hint.value;
  }
  key_ += styleAttribute_;
}

// From the weakest to the strongest; `isSaid`: the document says it.
template <class Use>
void ElementStyles::forEachDeclaration(Use use) const {
  const auto useRules = [&](const css::StyleSheet& sheet, const std::vector<uint32_t>& rules, bool isImportant,
                            bool isSaid) {
    for (const uint32_t rule : rules) {
      for (const css::Declaration& declaration : sheet.declarationsOf(rule)) {
        if (declaration.isImportant == isImportant) use(declaration.property, declaration.value, isSaid);
      }
    }
  };
  const auto useInlined = [&](bool isImportant) {
    for (const css::Declaration& declaration : inlined_) {
      if (declaration.isImportant == isImportant) use(declaration.property, declaration.value, true);
    }
  };
  useRules(css::defaultSheet(), defaultRules_, false, false);
  for (const Hint& hint : hints_) use(hint.property, std::string_view(hint.value), false);
  useRules(sheet_, rules_, false, true);
  useInlined(false);
  useRules(sheet_, rules_, true, true);
  useInlined(true);
}

// Lengths count in the font's size, so that is settled first.
css::ComputedStyle ElementStyles::compute(NodeIndex element, Index parent) const {
  css::ComputedStyle style = css::inheritedFrom(styles_[parent]);
  const css::Surroundings surroundings{styles_[parent], styles_[outermost].fontSize};
  forEachDeclaration([&](css::Property property, std::string_view value, bool) {
    if (css::setsFontSize(property)) css::apply(property, value, style, surroundings);
  });
  forEachDeclaration([&](css::Property property, std::string_view value, bool isSaid) {
    css::apply(property, value, style, surroundings);
    if (isSaid && setsTopMargin(property)) style.hasDefaultMargin = false;
  });
  style.isPage = element == tree_.html() || element == tree_.body();
  css::drawLines(style);
  return style;
}

}  // namespace standin::formats::html
