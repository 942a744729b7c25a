// Paragraph styles, fixed and mutable.
#include "host/siblings/arrays.hpp"
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"
#include "platform/appkit.h"

namespace siblings {
namespace {

constexpr char styleClass[] = "NSParagraphStyleZKT";
constexpr char mutableStyleClass[] = "NSMutableParagraphStyleZKT";
constexpr char tabClass[] = "NSTextTabZKT";

// Getter and setter; points but for the multiple and the factor.
#define PARAGRAPH_LENGTHS(X)                           \
  X(firstLineHeadIndent, setFirstLineHeadIndent)       \
  X(headIndent, setHeadIndent)                         \
  X(tailIndent, setTailIndent)                         \
  X(lineSpacing, setLineSpacing)                       \
  X(paragraphSpacing, setParagraphSpacing)             \
  X(paragraphSpacingBefore, setParagraphSpacingBefore) \
  X(minimumLineHeight, setMinimumLineHeight)           \
  X(maximumLineHeight, setMaximumLineHeight)           \
  X(lineHeightMultiple, setLineHeightMultiple)         \
  X(defaultTabInterval, setDefaultTabInterval)         \
  X(hyphenationFactor, setHyphenationFactor)
#define PARAGRAPH_NUMBERS(X)                       \
  X(alignment, setAlignment)                       \
  X(baseWritingDirection, setBaseWritingDirection) \
  X(lineBreakMode, setLineBreakMode)               \
  X(headerLevel, setHeaderLevel)

constexpr const char* constants[] = {
    "NSLeftTextAlignment = 0",           "NSRightTextAlignment = 1",          "NSCenterTextAlignment = 2",
    "NSJustifiedTextAlignment = 3",      "NSNaturalTextAlignment = 4",        "NSWritingDirectionNatural = -1",
    "NSWritingDirectionLeftToRight = 0", "NSWritingDirectionRightToLeft = 1", "NSLineBreakByWordWrapping = 0",
    "NSLineBreakByCharWrapping = 1",     "NSLineBreakByClipping = 2",         "NSLineBreakByTruncatingHead = 3",
    "NSLineBreakByTruncatingTail = 4",   "NSLineBreakByTruncatingMiddle = 5",
};

template <class Shown, const auto& message>
Shown get(HostObject* self, int64_t) {
  return guarded([self] { return static_cast<Shown>(message(wrapped(self))); });
}

template <class Number>
Number argumentOf(const Message<void(Number)>&);

template <class Shown, const auto& message>
void set(HostObject* self, int64_t, Shown value) {
  guarded([=] { return message(wrapped(self), static_cast<decltype(argumentOf(message))>(value)), true; });
}

HostObject* tabStops(HostObject* self) {
  return guarded([self] { return wrapElements(NSParagraphStyle::tabStops(wrapped(self)), tabClass); });
}

void setTabStops(HostObject* self, HostObject* tabs) {
  guarded([=] {
    NSArray* const stops = wrappedElements(tabs, tabClass);
    if (stops != nullptr) NSMutableParagraphStyle::setTabStops(wrapped(self), stops);
    return true;
  });
}

// A message that takes the object wrapped by the argument.
template <class Argument, const Message<void(Argument*)>& message>
void send(HostObject* self, HostObject* argument) {
  guarded([=] { return message(wrapped(self), wrapped<Argument>(argument)), true; });
}

HostObject* defaultStyle() {
  return guarded([] { return wrap(NSParagraphStyle::defaultParagraphStyle(classOf<NSParagraphStyle>()), styleClass); });
}

HostObject* mutableCopy(HostObject* self) {
  return guarded([self] { return wrap(adopt(NSObject::mutableCopy(wrapped(self))), mutableStyleClass); });
}

bool isEqual(HostObject* self, HostObject* other) {
  return guarded([=] { return NSObject::isEqual(wrapped(self), wrapped(other)) != NO; });
}

void construct(HostObject* self) {
  guarded([self] {
    empty(self);
    const Owned<NSObject> made = adopt(NSObject::init(alloc<NSMutableParagraphStyle>()));
    return fill(self, made), true;
  });
}

}  // namespace

void registerParagraphStyles() {
  ClassBuilder fixed(styleClass), changing(mutableStyleClass, styleClass);
  fixed.wrapper()
      .method("tabStops as Variant()", tabStops)
      .method("mutableCopy as NSMutableParagraphStyleZKT", mutableCopy)
      .method("isEqual(other as NSParagraphStyleZKT) as Boolean", isEqual)
      .shared("defaultParagraphStyle as NSParagraphStyleZKT", defaultStyle);
  changing.method("Constructor", construct)
      .method("tabStops(assigns tabs() as Variant)", setTabStops)
      .method("addTabStop(tab as NSTextTabZKT)", send<NSTextTab, NSMutableParagraphStyle::addTabStop>)
      .method("removeTabStop(tab as NSTextTabZKT)", send<NSTextTab, NSMutableParagraphStyle::removeTabStop>)
      .method("setParagraphStyle(style as NSParagraphStyleZKT)",
              send<NSParagraphStyle, NSMutableParagraphStyle::setParagraphStyle>);
  for (const char* constant : constants) fixed.constant(constant);
#define ADD_PROPERTY(type, Shown, getter, setter)                      \
  fixed.property(#getter, type, get<Shown, NSParagraphStyle::getter>); \
  changing.property(#getter, type, get<Shown, NSParagraphStyle::getter>, set<Shown, NSMutableParagraphStyle::setter>);
#define ADD_LENGTH(getter, setter) ADD_PROPERTY("Double", double, getter, setter)
#define ADD_NUMBER(getter, setter) ADD_PROPERTY("Integer", int64_t, getter, setter)
  PARAGRAPH_LENGTHS(ADD_LENGTH)
  PARAGRAPH_NUMBERS(ADD_NUMBER)
#undef ADD_NUMBER
#undef ADD_LENGTH
#undef ADD_PROPERTY
  ClassBuilder::registerWithHost(fixed);
  ClassBuilder::registerWithHost(changing);
}

}  // namespace siblings
