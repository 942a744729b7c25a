// Makes the attributed string in one piece and styles it run by run.
#include "html/styled_text.hpp"

#include "html/text.hpp"

namespace html {

void StyledText::style(std::size_t from, const Owned<NSDictionary>& attributes) {
  if (!runs_.empty()) {
    Run& last = runs_.back();
    if (last.range.location + last.range.length == from && last.attributes.get() == attributes.get()) {
      last.range.length = length() - last.range.location;
      return;
    }
  }
  runs_.push_back({{from, length() - from}, attributes});
}

Owned<NSMutableAttributedString> StyledText::build() const {
  NSAttributedString* made =
      NSAttributedString::initWithString(alloc<NSMutableAttributedString>(), newString({text_, length_}));
  auto styled = adopt(static_cast<NSMutableAttributedString*>(made));
  NSMutableAttributedString::beginEditing(styled);
  for (const Run& run : runs_) NSMutableAttributedString::addAttributes(styled, run.attributes, run.range);
  NSMutableAttributedString::endEditing(styled);
  return styled;
}

}  // namespace html
