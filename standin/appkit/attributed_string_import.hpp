// Filling attributed strings from documents.
#pragma once

#include "standin/appkit/document_formats.hpp"

namespace standin::appkit {

// The receiver with what the document holds. Without a document nil and an error, the receiver released and the attributes
// untouched. `attributes` and `error` may be nil.
NSAttributedString* filledFrom(Owned<NSAttributedString> self, const DocumentSource& source, NSDictionary** attributes,
                               NSError** error = nullptr);

// Options that ask for the type; autoreleased.
NSDictionary* optionsOf(NSString* type);

}  // namespace standin::appkit
