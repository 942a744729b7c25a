// One table of formats, and the algorithms over it.
#include "standin/appkit/document_formats.hpp"

#include <algorithm>

#include "standin/appkit/document_attributes.hpp"
#include "standin/appkit/file_wrapper.hpp"
#include "standin/appkit/html_options.hpp"
#include "standin/appkit/rtfd.hpp"
#include "standin/appkit/style.hpp"
#include "standin/appkit/web_documents.hpp"
#include "standin/formats/doc/reader.hpp"
#include "standin/formats/doc/writer.hpp"
#include "standin/formats/docx/reader.hpp"
#include "standin/formats/docx/writer.hpp"
#include "standin/formats/odt/reader.hpp"
#include "standin/formats/odt/writer.hpp"
#include "standin/formats/plain/reader.hpp"
#include "standin/formats/plain/writer.hpp"
#include "standin/formats/rtf/reader.hpp"
#include "standin/formats/rtf/writer.hpp"
#include "standin/formats/signatures.hpp"
#include "standin/formats/simple_text/reader.hpp"
#include "standin/formats/webarchive/reader.hpp"
#include "standin/formats/wordml/reader.hpp"
#include "standin/formats/wordml/writer.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/string_encodings.hpp"
#include "standin/text/ascii.hpp"
#include "standin/text/font_faces.hpp"

namespace standin::appkit {
namespace {

using formats::Document;
using formats::DocumentInformation;
using foundation::newError;

std::optional<CFStringEncoding> encodingOf(NSDictionary* attributes, NSString* key) {
  NSObject* number = foundation::find(attributes, key);
  if (!foundation::isNumber(number)) return std::nullopt;
  return foundation::toCFStringEncoding(static_cast<NSUInteger>(foundation::integerOf(number)));
}

// Plain text gets the attributes that the options say, or else the platform's default font.
text::Style plainStyle(NSDictionary* options) {
  NSObject* attributes = foundation::find(options, NSDefaultAttributesDocumentOption);
  if (NSObject::isKindOfClass(attributes, classOf<NSDictionary>())) return styleOf(static_cast<NSDictionary*>(attributes));
  text::Style style;
  style.font = text::fontMeant("Helvetica", 0, 12);
  return style;
}

std::optional<Document> readPlain(const DocumentSource& source) {
  const auto plain = formats::plain::read(source.bytes, encodingOf(source.options, NSCharacterEncodingDocumentOption));
  if (!plain) return std::nullopt;
  Document document;
  document.text.resize(plain->text.size());
  plain->text.copy(0, plain->text.size(), document.text.data());
  if (!document.text.empty()) document.runs = {{plain->text.size(), 0}};
  document.styles = {plainStyle(source.options)};
  document.characterEncoding = foundation::toStringEncoding(plain->encoding);
  return document;
}

std::optional<Document> readWebArchive(const DocumentSource& source) {
  return formats::webarchive::read(source.bytes, htmlOptionsOf(source));
}

std::optional<Document> readSimpleText(const DocumentSource& source) { return formats::simple_text::read(source.bytes); }

std::optional<Document> readRTFBytes(const DocumentSource& source) { return formats::rtf::read(source.bytes); }
std::optional<Document> readDocBytes(const DocumentSource& source) { return formats::doc::read(source.bytes); }

std::optional<Document> readODT(const DocumentSource& source) { return formats::odt::read(source.bytes); }

std::optional<Document> readOfficeOpenXML(const DocumentSource& source) { return formats::docx::read(source.bytes); }
std::optional<Document> readWordML(const DocumentSource& source) { return formats::wordml::read(source.bytes); }

std::optional<Document> readRTFDSource(const DocumentSource& source) {
  return source.package != nullptr ? readRTFD(source.package) : readRTFD(source.bytes);
}

Owned<NSData> writePlain(ExportedRuns& exported, const DocumentInformation& information) {
  const CFStringEncoding encoding =
      information.characterEncoding ? foundation::toCFStringEncoding(*information.characterEncoding) : kCFStringEncodingUTF8;
  auto bytes = formats::plain::write(exported.runs().text, encoding);
  return bytes ? foundation::newData(*std::move(bytes)) : nullptr;
}

Owned<NSData> writeRTF(ExportedRuns& exported, const DocumentInformation& information) {
  exported.embedPictures();
  return foundation::newData(formats::rtf::write(exported.runs(), information));
}

// Formats that hold pictures in their text.
template <std::optional<std::string> (*write)(const formats::StyledRuns&, const DocumentInformation&)>
Owned<NSData> writeWithPictures(ExportedRuns& exported, const DocumentInformation& information) {
  exported.embedPictures();
  auto bytes = write(exported.runs(), information);
  return bytes ? foundation::newData(*std::move(bytes)) : nullptr;
}

struct DocumentFormat {
  NSString* const* type;
  std::initializer_list<std::string_view> extensions;
  bool (*hasSignature)(std::string_view);  // nil: any bytes may be one
  std::optional<Document> (*read)(const DocumentSource&);
  Owned<NSData> (*write)(ExportedRuns&, const DocumentInformation&);
  bool (*isEncrypted)(std::span<const uint8_t>) = nullptr;  // nil: no document of the format is
};

// In the order in which content is looked at.
const DocumentFormat formatTable[] = {
    {&NSRTFTextDocumentType, {"rtf"}, formats::looksLikeRTF, readRTFBytes, writeRTF},
    {&NSRTFDTextDocumentType, {"rtfd"}, formats::looksLikeFileArchive, readRTFDSource, newRTFDData},
    {&NSWebArchiveTextDocumentType, {"webarchive"}, formats::looksLikeWebArchive, readWebArchive, newWebArchiveData},
    {&NSWordMLTextDocumentType, {}, formats::looksLikeWordML, readWordML, writeWithPictures<formats::wordml::write>},
    {&NSHTMLTextDocumentType, {"html", "htm", "xhtml"}, formats::looksLikeHTML, readHTML, newHTMLData},
    {&NSDocFormatTextDocumentType,
     {"doc"},
     formats::looksLikeCompoundFile,
     readDocBytes,
     writeWithPictures<formats::doc::write>,
     formats::doc::isEncrypted},
    {&NSOfficeOpenXMLTextDocumentType,
     {"docx"},
     formats::looksLikeOfficeOpenXML,
     readOfficeOpenXML,
     writeWithPictures<formats::docx::write>,
     formats::doc::isEncrypted},
    {&NSOpenDocumentTextDocumentType,
     {"odt", "ott", "fodt", "sxw"},
     formats::looksLikeOpenDocument,
     readODT,
     writeWithPictures<formats::odt::write>,
     formats::odt::isEncrypted},
    {&NSMacSimpleTextDocumentType, {}, nullptr, readSimpleText, newSimpleTextData},
    {&NSPlainTextDocumentType, {"txt", "text"}, nullptr, readPlain, writePlain},
};
const DocumentFormat& plainFormat = formatTable[std::size(formatTable) - 1];

const DocumentFormat* formatOfType(NSObject* type) {
  for (const DocumentFormat& format : formatTable) {
    if (foundation::isString(type) && foundation::equal(static_cast<NSString*>(type), *format.type)) return &format;
  }
  return nullptr;
}

// Files of some programs have names in capitals.
bool hasExtension(const DocumentFormat& format, std::string_view name) {
  const size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return false;
  return std::any_of(format.extensions.begin(), format.extensions.end(),
                     [&](auto extension) { return text::equalIgnoringCase(name.substr(dot + 1), extension); });
}

// The content says it, then the name, and what nothing is known of is plain text.
const DocumentFormat& formatFound(const DocumentSource& source) {
  const std::string_view bytes(reinterpret_cast<const char*>(source.bytes.data()), source.bytes.size());
  if (source.package != nullptr) return *formatOfType(NSRTFDTextDocumentType);
  for (const DocumentFormat& format : formatTable) {
    if (format.hasSignature != nullptr && format.hasSignature(bytes)) return format;
  }
  for (const DocumentFormat& format : formatTable) {
    if (hasExtension(format, source.name)) return format;
  }
  return plainFormat;
}

// "NSRTF, NSRTFD and NSPlainText": the types that have this function.
template <class Function>
std::string typesWith(Function DocumentFormat::*function) {
  std::vector<std::string> names;
  for (const DocumentFormat& format : formatTable) {
    if (format.*function != nullptr) names.push_back(foundation::utf8Of(*format.type));
  }
  std::string text = names.front();
  for (size_t index = 1; index < names.size(); ++index) text += (index + 1 < names.size() ? ", " : " and ") + names[index];
  return text;
}

Owned<NSError> typeError(NSObject* type, DocumentErrorCode code) {
  const bool reading = code == readInapplicableType;
  const std::string can =
      reading ? "read: " + typesWith(&DocumentFormat::read) : "written: " + typesWith(&DocumentFormat::write);
  const std::string subject =
      type == nullptr ? "No document type is given."
                      : "Documents of type " + foundation::describe(type) + " cannot be " + (reading ? "read." : "written.");
  return newError(NSCocoaErrorDomain, code, subject + " These can be " + can + ".");
}

// The types whose documents are characters alone, which have no signature, fail over their encoding.
Owned<NSError> contentError(const DocumentFormat& format, bool reading) {
  const std::string type = foundation::utf8Of(*format.type);
  if (format.hasSignature != nullptr) {
    return newError(NSCocoaErrorDomain, reading ? foundation::fileReadCorruptFile : foundation::fileWriteUnknown,
                    "The document cannot be " + std::string(reading ? "read" : "written") + " as " + type + ".");
  }
  return newError(NSCocoaErrorDomain, reading ? readInapplicableEncoding : writeInapplicableEncoding,
                  reading ? "The document is no text in the encoding that was asked for."
                          : "The text has characters that the encoding lacks.");
}

Owned<NSError> readError(const DocumentFormat& format, const DocumentSource& source) {
  const bool isEncrypted = format.isEncrypted != nullptr && format.isEncrypted(source.bytes);
  return isEncrypted ? newError(NSCocoaErrorDomain, foundation::fileReadCorruptFile,
                                "The document is encrypted, and cannot be read without its password.")
                     : contentError(format, true);
}

// The format to write, with its error when there is none.
const DocumentFormat* writableFormat(NSDictionary* attributes, NSError** error) {
  NSObject* type = foundation::find(attributes, NSDocumentTypeDocumentAttribute);
  const DocumentFormat* format = formatOfType(type);
  if (format != nullptr && format->write != nullptr) return format;
  foundation::report(error, typeError(type, writeInapplicableType));
  return nullptr;
}

}  // namespace

std::optional<FoundDocument> readDocument(const DocumentSource& source, NSError** error) {
  NSObject* asked = foundation::find(source.options, NSDocumentTypeDocumentOption);
  const DocumentFormat* format = asked != nullptr ? formatOfType(asked) : &formatFound(source);
  if (format == nullptr || format->read == nullptr || (source.package != nullptr && format->read != readRTFDSource)) {
    foundation::report(error, typeError(format != nullptr ? *format->type : asked, readInapplicableType));
    return std::nullopt;
  }
  std::optional<Document> document = format->read(source);
  if (!document) {
    foundation::report(error, readError(*format, source));
    return std::nullopt;
  }
  return FoundDocument{*std::move(document), *format->type};
}

Owned<NSData> newDocumentData(ExportedRuns& exported, NSDictionary* attributes, NSError** error) {
  const DocumentFormat* format = writableFormat(attributes, error);
  if (format == nullptr) return nullptr;
  Owned<NSData> data = format->write(exported, informationOf(attributes));
  if (!data) foundation::report(error, contentError(*format, false));
  return data;
}

Owned<NSFileWrapper> newDocumentFile(ExportedRuns& exported, NSDictionary* attributes, NSError** error) {
  const DocumentFormat* format = writableFormat(attributes, error);
  if (format == nullptr) return nullptr;
  if (format->write == newRTFDData) return newRTFD(exported, informationOf(attributes));
  Owned<NSData> data = newDocumentData(exported, attributes, error);
  return data ? newRegularFile(std::move(data), {}) : nullptr;
}

}  // namespace standin::appkit
