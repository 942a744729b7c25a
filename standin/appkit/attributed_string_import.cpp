// The messages that make attributed strings from documents: from data of one type, and from files and data of any.
#include "standin/appkit/attributed_string_import.hpp"

#include <cerrno>

#include "standin/appkit/attributed_string.hpp"
#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/document_attributes.hpp"
#include "standin/appkit/file_wrapper.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/url.hpp"

namespace standin::appkit {
namespace {

using foundation::FileAccess;

NSAttributedString* initWithData(NSAttributedString* self, NSData* data, NSDictionary* options, NSDictionary** attributes,
                                 NSError** error) {
  Owned<NSAttributedString> receiver = adopt(self);
  requireArgument(self, "initWithData:options:documentAttributes:error:", data);
  return filledFrom(std::move(receiver), {.bytes = foundation::bytesOf(data), .options = options}, attributes, error);
}

NSAttributedString* filledFromType(NSAttributedString* self, const char* selector, NSString* type, NSData* data,
                                   NSDictionary** attributes) {
  Owned<NSAttributedString> receiver = adopt(self);
  requireArgument(self, selector, data);
  return filledFrom(std::move(receiver), {.bytes = foundation::bytesOf(data), .options = optionsOf(type)}, attributes);
}

NSAttributedString* initWithRTF(NSAttributedString* self, NSData* data, NSDictionary** attributes) {
  return filledFromType(self, "initWithRTF:documentAttributes:", NSRTFTextDocumentType, data, attributes);
}
NSAttributedString* initWithRTFD(NSAttributedString* self, NSData* data, NSDictionary** attributes) {
  return filledFromType(self, "initWithRTFD:documentAttributes:", NSRTFDTextDocumentType, data, attributes);
}
NSAttributedString* initWithHTML(NSAttributedString* self, NSData* data, NSDictionary** attributes) {
  return filledFromType(self, "initWithHTML:documentAttributes:", NSHTMLTextDocumentType, data, attributes);
}
NSAttributedString* initWithDocFormat(NSAttributedString* self, NSData* data, NSDictionary** attributes) {
  return filledFromType(self, "initWithDocFormat:documentAttributes:", NSDocFormatTextDocumentType, data, attributes);
}

NSAttributedString* initWithHTMLBase(NSAttributedString* self, NSData* data, NSURL* base, NSDictionary** attributes) {
  Owned<NSAttributedString> receiver = adopt(self);
  requireArgument(self, "initWithHTML:baseURL:documentAttributes:", data);
  Owned<NSMutableDictionary> options = foundation::newMutableDictionary(optionsOf(NSHTMLTextDocumentType));
  if (base != nullptr) foundation::set(options, NSBaseURLDocumentOption, base);
  return filledFrom(std::move(receiver), {.bytes = foundation::bytesOf(data), .options = options}, attributes);
}

// A folder is a package, which is read whole.
NSAttributedString* filledFromFolder(Owned<NSAttributedString> self, const std::string& path, NSDictionary* options,
                                     NSDictionary** attributes, NSError** error) {
  const Owned<NSFileWrapper> package = newFileWrapper();
  const FileOutcome outcome = readFile(wrapperState(package), path, readImmediately);
  if (!outcome) {
    outcome.reportTo(error);
    return nullptr;
  }
  return filledFrom(std::move(self), {.package = package, .name = path, .options = options}, attributes, error);
}

NSAttributedString* filledFromFile(Owned<NSAttributedString> self, const std::string& named, NSDictionary* options,
                                   NSDictionary** attributes, NSError** error) {
  const std::string path = foundation::existingPath(named);
  if (foundation::isFolder(path)) return filledFromFolder(std::move(self), path, options, attributes, error);
  const std::optional<std::string> bytes = foundation::readFile(path.c_str());
  if (!bytes) {
    foundation::report(error, foundation::newFileError(FileAccess::reading, errno, path));
    return nullptr;
  }
  const std::span<const uint8_t> span(reinterpret_cast<const uint8_t*>(bytes->data()), bytes->size());
  return filledFrom(std::move(self), {.bytes = span, .name = path, .options = options}, attributes, error);
}

NSAttributedString* initWithURLOptions(NSAttributedString* self, NSURL* url, NSDictionary* options,
                                       NSDictionary** attributes, NSError** error) {
  Owned<NSAttributedString> receiver = adopt(self);
  requireArgument(self, "initWithURL:options:documentAttributes:error:", url);
  if (const auto path = foundation::filePath(url)) {
    return filledFromFile(std::move(receiver), *path, options, attributes, error);
  }
  foundation::report(error, foundation::newError(NSCocoaErrorDomain, foundation::fileReadUnsupportedScheme,
                                                 foundation::describe(url) + " is not the URL of a file."));
  return nullptr;
}

NSAttributedString* initWithURL(NSAttributedString* self, NSURL* url, NSDictionary** attributes) {
  return initWithURLOptions(self, url, nullptr, attributes, nullptr);
}

NSAttributedString* initWithPath(NSAttributedString* self, NSString* path, NSDictionary** attributes) {
  Owned<NSAttributedString> receiver = adopt(self);
  requireArgument(self, "initWithPath:documentAttributes:", path);
  return filledFromFile(std::move(receiver), foundation::utf8Of(path), nullptr, attributes, nullptr);
}

[[maybe_unused]] const Category imports = Category("NSAttributedString")
                                              .method<initWithData>("initWithData:options:documentAttributes:error:")
                                              .method<initWithRTF>("initWithRTF:documentAttributes:")
                                              .method<initWithRTFD>("initWithRTFD:documentAttributes:")
                                              .method<initWithHTML>("initWithHTML:documentAttributes:")
                                              .method<initWithHTMLBase>("initWithHTML:baseURL:documentAttributes:")
                                              .method<initWithDocFormat>("initWithDocFormat:documentAttributes:")
                                              .method<initWithURL>("initWithURL:documentAttributes:")
                                              .method<initWithPath>("initWithPath:documentAttributes:")
                                              .method<initWithURLOptions>("initWithURL:options:documentAttributes:error:");

}  // namespace

NSAttributedString* filledFrom(Owned<NSAttributedString> self, const DocumentSource& source, NSDictionary** attributes,
                               NSError** error) {
  const std::optional<FoundDocument> found = readDocument(source, error);
  if (!found) return nullptr;
  stateOf<AttributedString>(self).styled = styledTextOf(found->document);
  if (attributes != nullptr) *attributes = documentAttributesOf(found->document, found->type);
  return self.detach();
}

NSDictionary* optionsOf(NSString* type) {
  return foundation::newDictionary({{NSDocumentTypeDocumentOption, type}}).autorelease();
}

}  // namespace standin::appkit
