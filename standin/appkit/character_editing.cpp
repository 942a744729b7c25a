// NSMutableAttributedString: raising and lowering characters, and giving their fonts other traits.
#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/editing.hpp"
#include "standin/appkit/font.hpp"
#include "standin/appkit/font_conversion.hpp"
#include "standin/foundation/number.hpp"

namespace standin::appkit {
namespace {

using text::AttributeSet;
using text::StyledText;
using text::UnitRange;

// Gives each run of the range the attributes that restyled(attributes) answers.
template <class Restyled>
void restyleRuns(NSAttributedString* self, const char* selector, NSRange range, Restyled&& restyled) {
  const UnitRange part = rangeIn(self, selector, range);
  restyle(self, part, [&](StyledText& styled) { styled.restyle(part.start, part.length, restyled); });
}

// Level 0 is the line itself, which needs no attribute.
AttributeSet moved(const AttributeSet& attributes, int levels) {
  const int64_t level = foundation::integerOf(attributeIn(attributes.handle(), NSSuperscriptAttributeName)) + levels;
  if (level == 0) return attributes.without(NSSuperscriptAttributeName);
  return attributes.with(NSSuperscriptAttributeName, foundation::newNumber(static_cast<int>(level)).get());
}

void superscriptRange(NSAttributedString* self, NSRange range) {
  restyleRuns(self, "superscriptRange:", range, [](const AttributeSet& attributes) { return moved(attributes, 1); });
}
void subscriptRange(NSAttributedString* self, NSRange range) {
  restyleRuns(self, "subscriptRange:", range, [](const AttributeSet& attributes) { return moved(attributes, -1); });
}
void unscriptRange(NSAttributedString* self, NSRange range) {
  restyleRuns(self, "unscriptRange:", range,
              [](const AttributeSet& attributes) { return attributes.without(NSSuperscriptAttributeName); });
}

void applyFontTraits(NSAttributedString* self, NSFontTraitMask traits, NSRange range) {
  restyleRuns(self, "applyFontTraits:range:", range, [&](const AttributeSet& attributes) {
    const text::Font font = fontIn(attributes.handle()), converted = withTraits(font, traits);
    return converted == font ? attributes : attributes.with(NSFontAttributeName, fontObject(converted).get());
  });
}

[[maybe_unused]] const Category characters = Category("NSMutableAttributedString")
                                                 .method<superscriptRange>("superscriptRange:")
                                                 .method<subscriptRange>("subscriptRange:")
                                                 .method<unscriptRange>("unscriptRange:")
                                                 .method<applyFontTraits>("applyFontTraits:range:");

}  // namespace
}  // namespace standin::appkit
