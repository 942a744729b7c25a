// The document formats: which there are, how a document's is found, and documents read and written by type.
#pragma once

#include <optional>
#include <string_view>

#include "standin/appkit/document_text.hpp"
#include "standin/foundation/error.hpp"

namespace standin::appkit {

// Codes of NSCocoaErrorDomain.
enum DocumentErrorCode : NSInteger {
  readInapplicableEncoding = 261,
  writeInapplicableEncoding = 517,
  readInapplicableType = 65806,
  writeInapplicableType = 66062,
};

// A document to be read: bytes, or a package.
struct DocumentSource {
  std::span<const uint8_t> bytes{};
  NSFileWrapper* package = nullptr;
  std::string_view name{};          // of its file, where there is one
  NSDictionary* options = nullptr;  // the platform's; a type among them is not looked for
};

struct FoundDocument {
  formats::Document document;
  NSString* type;
};

// Nothing, and an error, when the type is unknown or has no reader, or the document cannot be read.
std::optional<FoundDocument> readDocument(const DocumentSource& source, NSError** error);

// Nil, and an error, when the attributes name no type, or one that cannot be written or not with this text.
Owned<NSData> newDocumentData(ExportedRuns& exported, NSDictionary* attributes, NSError** error);
// The same as a file, or as the package that documents of the type are.
Owned<NSFileWrapper> newDocumentFile(ExportedRuns& exported, NSDictionary* attributes, NSError** error);

}  // namespace standin::appkit
