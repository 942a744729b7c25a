// Attributed strings written as documents.
#include "standin/appkit/attributed_string.hpp"
#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/document_attributes.hpp"
#include "standin/appkit/document_formats.hpp"
#include "standin/foundation/collections.hpp"

namespace standin::appkit {
namespace {

// The attributes of a message that names the type itself.
Owned<NSMutableDictionary> attributesWithType(NSDictionary* attributes, NSString* type) {
  Owned<NSMutableDictionary> typed = foundation::newMutableDictionary(attributes);
  foundation::set(typed, NSDocumentTypeDocumentAttribute, type);
  return typed;
}

NSData* RTFFromRange(NSAttributedString* self, NSRange range, NSDictionary* attributes) {
  ExportedRuns exported(styledTextOf(self), rangeIn(self, "RTFFromRange:documentAttributes:", range));
  return newDocumentData(exported, attributesWithType(attributes, NSRTFTextDocumentType), nullptr).autorelease();
}

NSData* docFormatFromRange(NSAttributedString* self, NSRange range, NSDictionary* attributes) {
  ExportedRuns exported(styledTextOf(self), rangeIn(self, "docFormatFromRange:documentAttributes:", range));
  return newDocumentData(exported, attributesWithType(attributes, NSDocFormatTextDocumentType), nullptr).autorelease();
}

NSData* dataFromRange(NSAttributedString* self, NSRange range, NSDictionary* attributes, NSError** error) {
  ExportedRuns exported(styledTextOf(self), rangeIn(self, "dataFromRange:documentAttributes:error:", range));
  return newDocumentData(exported, attributes, error).autorelease();
}

NSFileWrapper* fileWrapperFromRange(NSAttributedString* self, NSRange range, NSDictionary* attributes, NSError** error) {
  ExportedRuns exported(styledTextOf(self), rangeIn(self, "fileWrapperFromRange:documentAttributes:error:", range));
  return newDocumentFile(exported, attributes, error).autorelease();
}

[[maybe_unused]] const Category exports =
    Category("NSAttributedString")
        .method<RTFFromRange>("RTFFromRange:documentAttributes:")
        .method<docFormatFromRange>("docFormatFromRange:documentAttributes:")
        .method<dataFromRange>("dataFromRange:documentAttributes:error:")
        .method<fileWrapperFromRange>("fileWrapperFromRange:documentAttributes:error:");

}  // namespace
}  // namespace standin::appkit
