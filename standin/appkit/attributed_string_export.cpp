// Attributed strings written as documents.
#include "standin/appkit/attributed_string.hpp"
#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/document_text.hpp"
#include "standin/formats/rtf/writer.hpp"
#include "standin/foundation/data.hpp"

namespace standin::appkit {
namespace {

NSData* RTFFromRange(NSAttributedString* self, NSRange range, NSDictionary*) {
  ExportedRuns exported(styledTextOf(self), rangeIn(self, "RTFFromRange:documentAttributes:", range));
  exported.embedPictures();
  return foundation::newData(formats::rtf::write(exported.runs())).autorelease();
}

[[maybe_unused]] const Category exports =
    Category("NSAttributedString").method<RTFFromRange>("RTFFromRange:documentAttributes:");

}  // namespace
}  // namespace standin::appkit
