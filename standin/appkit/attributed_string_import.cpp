// Attributed strings from documents: RTF.
#include "standin/appkit/attributed_string.hpp"
#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/document_attributes.hpp"
#include "standin/appkit/document_text.hpp"
#include "standin/formats/rtf/reader.hpp"
#include "standin/foundation/data.hpp"

namespace standin::appkit {
namespace {

// The receiver filled from the document; without one, nil, the receiver released and the attributes untouched.
NSAttributedString* filled(Owned<NSAttributedString> self, const std::optional<formats::Document>& document, NSString* type,
                           NSDictionary** attributes) {
  if (!document) return nullptr;
  stateOf<AttributedString>(self).styled = styledTextOf(*document);
  if (attributes != nullptr) *attributes = documentAttributesOf(*document, type);
  return self.detach();
}

NSAttributedString* initWithRTF(NSAttributedString* self, NSData* data, NSDictionary** attributes) {
  Owned<NSAttributedString> receiver = adopt(self);
  requireArgument(self, "initWithRTF:documentAttributes:", data);
  return filled(std::move(receiver), formats::rtf::read(foundation::bytesOf(data)), NSRTFTextDocumentType, attributes);
}

[[maybe_unused]] const Category imports =
    Category("NSAttributedString").method<initWithRTF>("initWithRTF:documentAttributes:");

}  // namespace
}  // namespace standin::appkit
