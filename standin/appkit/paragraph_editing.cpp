// NSMutableAttributedString: alignment and writing direction of paragraphs.
#include <string>

#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/editing.hpp"
#include "standin/appkit/paragraph_style.hpp"
#include "standin/runtime/class_object.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::appkit {
namespace {

using text::AttributeSet;
using text::Paragraph;
using text::StyledText;
using text::UnitRange;

// The style that paragraphs with these attributes have.
Paragraph paragraphIn(const AttributeSet& attributes) {
  static const ClassObject* const styles = findClass("NSParagraphStyle");
  NSObject* const style = attributeIn(attributes.handle(), NSParagraphStyleAttributeName);
  return isKindOf(style, styles) ? paragraphOf(static_cast<NSParagraphStyle*>(style)) : Paragraph();
}

// Sets the field in the styles of all paragraphs that the range touches, from their first character to their last. An empty
// range touches none.
template <class Field>
void setInParagraphs(NSAttributedString* self, const char* selector, NSRange range, Field Paragraph::*field, NSInteger value,
                     NSInteger lowest, NSInteger highest) {
  const UnitRange part = rangeIn(self, selector, range);
  if (value < lowest || value > highest) {
    raise(NSInvalidArgumentException, describeMethod(self, selector) + ": no such value: " + std::to_string(value));
  }
  if (part.length == 0) return;
  const UnitRange whole = styledTextOf(self).text().paragraphs(part.start, part.length);
  restyle(self, whole, [&](StyledText& styled) {
    styled.restyle(whole.start, whole.length, [&](const AttributeSet& attributes) {
      Paragraph paragraph = paragraphIn(attributes);
      paragraph.*field = static_cast<Field>(value);
      return attributes.with(NSParagraphStyleAttributeName, newParagraphStyle(paragraph).get());
    });
  });
}

void setAlignment(NSAttributedString* self, NSUInteger alignment, NSRange range) {
  setInParagraphs(self, "setAlignment:range:", range, &Paragraph::alignment, static_cast<NSInteger>(alignment), 0, 4);
}
void setBaseWritingDirection(NSAttributedString* self, NSInteger direction, NSRange range) {
  setInParagraphs(self, "setBaseWritingDirection:range:", range, &Paragraph::direction, direction, -1, 1);
}

[[maybe_unused]] const Category paragraphs = Category("NSMutableAttributedString")
                                                 .method<setAlignment>("setAlignment:range:")
                                                 .method<setBaseWritingDirection>("setBaseWritingDirection:range:");

}  // namespace
}  // namespace standin::appkit
