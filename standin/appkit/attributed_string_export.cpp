// Attributed strings written as documents.
#include <deque>
#include <unordered_map>

#include "standin/appkit/attributed_string.hpp"
#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/style.hpp"
#include "standin/formats/rtf/writer.hpp"
#include "standin/foundation/data.hpp"

namespace standin::appkit {
namespace {

// The runs of a range with their styles, each style made once an attribute set.
class ExportedRuns {
 public:
  ExportedRuns(const text::StyledText& text, text::UnitRange range) {
    styled_.text = text.text().slice(range.start, range.length);
    forEachRun(text, range.start, range.length, [this](const text::RunPlace& run, NSDictionary* attributes) {
      const text::Style*& style = byHandle_[run.attributes];
      if (style == nullptr) style = &styles_.emplace_back(styleOf(attributes));
      styled_.runs.push_back({run.length, style});
    });
  }

  const formats::StyledRuns& runs() const { return styled_; }

 private:
  formats::StyledRuns styled_;
  std::deque<text::Style> styles_;
  std::unordered_map<text::AttributeHandle, const text::Style*> byHandle_;
};

NSData* RTFFromRange(NSAttributedString* self, NSRange range, NSDictionary*) {
  const ExportedRuns exported(styledTextOf(self), rangeIn(self, "RTFFromRange:documentAttributes:", range));
  return foundation::newData(formats::rtf::write(exported.runs())).autorelease();
}

[[maybe_unused]] const Category exports =
    Category("NSAttributedString").method<RTFFromRange>("RTFFromRange:documentAttributes:");

}  // namespace
}  // namespace standin::appkit
