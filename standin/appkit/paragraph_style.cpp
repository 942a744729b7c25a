// NSParagraphStyle and its mutable subclass: one state, its fields read and set by rows.
#include "standin/appkit/paragraph_style.hpp"

#include <algorithm>
#include <functional>

#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/runtime/exception.hpp"
#include "standin/text/style_hash.hpp"

using standin::text::Paragraph;

namespace standin::appkit {
namespace {

struct ParagraphStyle : Object {
  Paragraph paragraph;
};

template <auto Paragraph::*field>
CGFloat length(ParagraphStyle& self) {
  return self.paragraph.*field;
}
template <auto Paragraph::*field>
void setLength(ParagraphStyle& self, CGFloat value) {
  self.paragraph.*field = value;
}
float hyphenationFactor(ParagraphStyle& self) { return static_cast<float>(self.paragraph.hyphenationFactor); }
void setHyphenationFactor(ParagraphStyle& self, float factor) { self.paragraph.hyphenationFactor = factor; }
// Numbers and closed sets alike travel as integers.
template <auto Paragraph::*field>
NSInteger number(ParagraphStyle& self) {
  return static_cast<NSInteger>(self.paragraph.*field);
}
template <auto Paragraph::*field, NSInteger lowest, NSInteger highest>
void setNumber(NSObject* self, NSInteger value) {
  if (value < lowest || value > highest) {
    raise(NSInvalidArgumentException, describeMethod(self, "set…:") + ": no such value: " + std::to_string(value));
  }
  auto& target = stateOf<ParagraphStyle>(self).paragraph.*field;
  target = static_cast<std::remove_reference_t<decltype(target)>>(value);
}

// What a style has that names no tabs: twelve left ones, 28 points apart.
std::vector<text::TabStop> tabsOf(const Paragraph& paragraph) {
  if (paragraph.tabs) return *paragraph.tabs;
  std::vector<text::TabStop> standard;
  for (int index = 1; index <= 12; ++index) standard.push_back({28.0 * index, text::TabKind::left});
  return standard;
}

NSArray* tabStops(ParagraphStyle& self) {
  Owned<NSMutableArray> stops = foundation::newMutableArray();
  for (const text::TabStop& tab : tabsOf(self.paragraph)) foundation::append(stops, newTextTab(tab));
  return stops.autorelease();
}

void setTabStops(ParagraphStyle& self, NSArray* stops) {
  std::vector<text::TabStop>& tabs = self.paragraph.tabs.emplace();
  for (NSObject* stop : foundation::arraySpan(stops)) tabs.push_back(tabStopOf(static_cast<NSTextTab*>(stop)));
}

// Tabs stand in the order of their places.
void addTabStop(NSObject* self, NSTextTab* stop) {
  foundation::requireArgument(self, "addTabStop:", stop);
  Paragraph& paragraph = stateOf<ParagraphStyle>(self).paragraph;
  std::vector<text::TabStop> tabs = tabsOf(paragraph);
  const text::TabStop& added = tabStopOf(stop);
  tabs.insert(std::upper_bound(tabs.begin(), tabs.end(), added), added);
  paragraph.tabs = std::move(tabs);
}

void removeTabStop(ParagraphStyle& self, NSTextTab* stop) {
  if (stop == nullptr) return;
  std::vector<text::TabStop> tabs = tabsOf(self.paragraph);
  std::erase(tabs, tabStopOf(stop));
  self.paragraph.tabs = std::move(tabs);
}

void setParagraphStyle(NSObject* self, NSParagraphStyle* other) {
  foundation::requireArgument(self, "setParagraphStyle:", other);
  stateOf<ParagraphStyle>(self).paragraph = paragraphOf(other);
}

NSParagraphStyle* defaultStyle(Class) {
  static NSObject* const style = makeImmortal(newParagraphStyle({}).detach());
  return static_cast<NSParagraphStyle*>(style);
}

BOOL isEqual(NSParagraphStyle* self, NSObject* other) {
  static ClassObject* const styles = reinterpret_cast<ClassObject*>(classOf<NSParagraphStyle>());
  return self == other ||
         (isKindOf(other, styles) && paragraphOf(self) == paragraphOf(static_cast<NSParagraphStyle*>(other)));
}

NSUInteger hash(ParagraphStyle& self) { return text::hashOf(self.paragraph); }

NSString* description(ParagraphStyle& self) {
  const Paragraph& paragraph = self.paragraph;
  return foundation::newString("Alignment " + std::to_string(static_cast<int>(paragraph.alignment)) + ", indents " +
                               std::to_string(paragraph.firstLineIndent) + " " + std::to_string(paragraph.headIndent) + " " +
                               std::to_string(paragraph.tailIndent))
      .autorelease();
}

// A style that cannot change is its own copy.
NSObject* copyWithZone(NSParagraphStyle* self, void*) {
  static ClassObject* const changing = reinterpret_cast<ClassObject*>(classOf<NSMutableParagraphStyle>());
  return isKindOf(self, changing) ? newParagraphStyle(paragraphOf(self)).detach() : retainObject(self);
}
NSObject* mutableCopyWithZone(ParagraphStyle& self, void*) { return newMutableParagraphStyle(self.paragraph).detach(); }

// The fields, each with its getter here and its setter in the mutable class.
#define LENGTH_FIELDS(X)                                                   \
  X(firstLineIndent, "firstLineHeadIndent", "setFirstLineHeadIndent:")     \
  X(headIndent, "headIndent", "setHeadIndent:")                            \
  X(tailIndent, "tailIndent", "setTailIndent:")                            \
  X(lineSpacing, "lineSpacing", "setLineSpacing:")                         \
  X(spacingAfter, "paragraphSpacing", "setParagraphSpacing:")              \
  X(spacingBefore, "paragraphSpacingBefore", "setParagraphSpacingBefore:") \
  X(minimumLineHeight, "minimumLineHeight", "setMinimumLineHeight:")       \
  X(maximumLineHeight, "maximumLineHeight", "setMaximumLineHeight:")       \
  X(lineHeightMultiple, "lineHeightMultiple", "setLineHeightMultiple:")    \
  X(defaultTabInterval, "defaultTabInterval", "setDefaultTabInterval:")
#define NUMBER_FIELDS(X)                                                  \
  X(alignment, 0, 4, "alignment", "setAlignment:")                        \
  X(direction, -1, 1, "baseWritingDirection", "setBaseWritingDirection:") \
  X(lineBreakMode, 0, 5, "lineBreakMode", "setLineBreakMode:")            \
  X(headerLevel, 0, 6, "headerLevel", "setHeaderLevel:")

#define LENGTH_GETTER(field, getter, setter) .method<length<&Paragraph::field>>(getter)
#define LENGTH_SETTER(field, getter, setter) .method<setLength<&Paragraph::field>>(setter)
#define NUMBER_GETTER(field, lowest, highest, getter, setter) .method<number<&Paragraph::field>>(getter)
#define NUMBER_SETTER(field, lowest, highest, getter, setter) .method<setNumber<&Paragraph::field, lowest, highest>>(setter)

const ClassDefinition styles = defineClass<ParagraphStyle>("NSParagraphStyle", "NSObject")
                                   .classMethod<defaultStyle>("defaultParagraphStyle") LENGTH_FIELDS(LENGTH_GETTER)
                                       NUMBER_FIELDS(NUMBER_GETTER)
                                   .method<hyphenationFactor>("hyphenationFactor")
                                   .method<tabStops>("tabStops")
                                   .method<isEqual>("isEqual:")
                                   .method<hash>("hash")
                                   .method<description>("description")
                                   .method<copyWithZone>("copyWithZone:")
                                   .method<mutableCopyWithZone>("mutableCopyWithZone:");

const ClassDefinition mutableStyles = defineClass<ParagraphStyle>("NSMutableParagraphStyle", "NSParagraphStyle")
                                          LENGTH_FIELDS(LENGTH_SETTER) NUMBER_FIELDS(NUMBER_SETTER)
                                              .method<setHyphenationFactor>("setHyphenationFactor:")
                                              .method<setTabStops>("setTabStops:")
                                              .method<addTabStop>("addTabStop:")
                                              .method<removeTabStop>("removeTabStop:")
                                              .method<setParagraphStyle>("setParagraphStyle:");

}  // namespace

Owned<NSParagraphStyle> newParagraphStyle(const Paragraph& paragraph) {
  return create<ParagraphStyle, NSParagraphStyle>(styles, paragraph);
}

Owned<NSMutableParagraphStyle> newMutableParagraphStyle(const Paragraph& paragraph) {
  return create<ParagraphStyle, NSMutableParagraphStyle>(mutableStyles, paragraph);
}

const Paragraph& paragraphOf(NSParagraphStyle* style) { return stateOf<ParagraphStyle>(style).paragraph; }

}  // namespace standin::appkit
