// Paragraph styles, fixed and mutable.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"
#include "platform/appkit.h"

namespace siblings {
namespace {

constexpr char styleClass[] = "NSParagraphStyleZKT";
constexpr char mutableStyleClass[] = "NSMutableParagraphStyleZKT";

// Getter, setter, in points but for the multiple.
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
  X(defaultTabInterval, setDefaultTabInterval)
#define PARAGRAPH_NUMBERS(X) \
  X(alignment, setAlignment) \
  X(baseWritingDirection, setBaseWritingDirection)

template <class Shown, const auto& message>
Shown get(HostObject* self, int64_t) {
  return guarded([self] { return static_cast<Shown>(message(wrapped(self))); });
}

template <class Shown, class Number, const Message<void(Number)>& message>
void set(HostObject* self, int64_t, Shown value) {
  guarded([=] { return message(wrapped(self), static_cast<Number>(value)), true; });
}

template <const Message<void(NSUInteger)>& message>
void setNumber(HostObject* self, int64_t parameter, int64_t value) {
  set<int64_t, NSUInteger, message>(self, parameter, value);
}
template <const Message<void(NSInteger)>& message>
void setNumber(HostObject* self, int64_t parameter, int64_t value) {
  set<int64_t, NSInteger, message>(self, parameter, value);
}

HostObject* defaultStyle() {
  return guarded([] { return wrap(NSParagraphStyle::defaultParagraphStyle(classOf<NSParagraphStyle>()), styleClass); });
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
  fixed.wrapper().shared("defaultParagraphStyle as NSParagraphStyleZKT", defaultStyle);
  changing.method("Constructor", construct);
#define ADD_LENGTH(getter, setter)                                            \
  fixed.property(#getter, "Double", get<double, NSParagraphStyle::getter>);   \
  changing.property(#getter, "Double", get<double, NSParagraphStyle::getter>, \
                    set<double, CGFloat, NSMutableParagraphStyle::setter>);
#define ADD_NUMBER(getter, setter)                                            \
  fixed.property(#getter, "Integer", get<int64_t, NSParagraphStyle::getter>); \
  changing.property(#getter, "Integer", get<int64_t, NSParagraphStyle::getter>, setNumber<NSMutableParagraphStyle::setter>);
  PARAGRAPH_LENGTHS(ADD_LENGTH)
  PARAGRAPH_NUMBERS(ADD_NUMBER)
#undef ADD_LENGTH
#undef ADD_NUMBER
  ClassBuilder::registerWithHost(fixed);
  ClassBuilder::registerWithHost(changing);
}

}  // namespace siblings
