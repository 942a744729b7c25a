// RTFD packages read and written, and the messages for them.
#include "standin/appkit/rtfd.hpp"

#include <unordered_map>

#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/attributed_string_import.hpp"
#include "standin/appkit/document_attributes.hpp"
#include "standin/appkit/file_wrapper.hpp"
#include "standin/appkit/text_attachment.hpp"
#include "standin/formats/rtf/reader.hpp"
#include "standin/formats/rtf/writer.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/string.hpp"

namespace standin::appkit {
namespace {

constexpr char textName[] = "TXT.rtf";

// The package's file that a name in the text means. Text and file system may compose its letters differently.
NSFileWrapper* fileNamed(FileWrapper& package, const std::string& name) {
  if (NSFileWrapper* file = childNamed(package, name)) return file;
  const auto wanted = foundation::decomposedName(name);
  for (const auto& [key, file] : package.children) {
    if (wanted && foundation::decomposedName(key) == wanted) return file;
  }
  return nullptr;
}

// Nil when the package lacks the file.
std::shared_ptr<const text::Attachment> resolved(FileWrapper& package, const text::Attachment& reference) {
  NSFileWrapper* file = fileNamed(package, reference.fileName);
  if (file == nullptr) return nullptr;
  const Owned<NSTextAttachment> attachment = newTextAttachment(file);
  attachmentState(attachment).size = {reference.width, reference.height};
  return attachmentValue(attachment);
}

NSAttributedString* initWithRTFDFileWrapper(NSAttributedString* self, NSFileWrapper* package, NSDictionary** attributes) {
  Owned<NSAttributedString> receiver = adopt(self);
  requireArgument(self, "initWithRTFDFileWrapper:documentAttributes:", package);
  return filledFrom(std::move(receiver), {.package = package, .options = optionsOf(NSRTFDTextDocumentType)}, attributes);
}

NSData* RTFDFromRange(NSAttributedString* self, NSRange range, NSDictionary* attributes) {
  ExportedRuns exported(styledTextOf(self), rangeIn(self, "RTFDFromRange:documentAttributes:", range));
  return newRTFDData(exported, informationOf(attributes)).autorelease();
}

NSFileWrapper* RTFDFileWrapperFromRange(NSAttributedString* self, NSRange range, NSDictionary* attributes) {
  ExportedRuns exported(styledTextOf(self), rangeIn(self, "RTFDFileWrapperFromRange:documentAttributes:", range));
  return newRTFD(exported, informationOf(attributes)).autorelease();
}

// Files are found in the package by the names under which attachments were read from it. A name that leads out of the
// package, which only an archive can give, is no name.
void updateAttachments(NSAttributedString* self, NSString* path) {
  requireArgument(self, "updateAttachmentsFromPath:", path);
  const std::string folder = foundation::existingPath(foundation::utf8Of(path));
  const text::StyledText& styled = styledTextOf(self);
  styled.forEachRun(0, styled.length(), [&](const text::RunPlace& run) {
    NSObject* attachment = attributeIn(run.attributes, NSAttachmentAttributeName);
    NSFileWrapper* file =
        isTextAttachment(attachment) ? attachmentState(static_cast<NSTextAttachment*>(attachment)).file.get() : nullptr;
    if (file == nullptr) return;
    FileWrapper& state = wrapperState(file);
    const bool isNamed = state.name && isFileName(*state.name);
    const std::string place = foundation::joined(folder, isNamed ? *state.name : packagedName(file));
    // What cannot be read stays as it is: the message has no way to tell.
    if (!matchesFile(state, place)) static_cast<void>(readFile(state, place, readImmediately));
  });
}

[[maybe_unused]] const Category packages =
    Category("NSAttributedString")
        .method<initWithRTFDFileWrapper>("initWithRTFDFileWrapper:documentAttributes:")
        .method<RTFDFromRange>("RTFDFromRange:documentAttributes:")
        .method<RTFDFileWrapperFromRange>("RTFDFileWrapperFromRange:documentAttributes:");
[[maybe_unused]] const Category updates =
    Category("NSMutableAttributedString").method<updateAttachments>("updateAttachmentsFromPath:");

}  // namespace

std::optional<formats::Document> readRTFD(NSFileWrapper* package) {
  FileWrapper& folder = wrapperState(package);
  NSFileWrapper* file = childNamed(folder, textName);
  if (file == nullptr || wrapperState(file).kind != FileKind::regular) return std::nullopt;
  std::optional<formats::Document> document = formats::rtf::read(foundation::bytesOf(contentsOf(file)));
  if (!document) return std::nullopt;
  std::unordered_map<const text::Attachment*, std::shared_ptr<const text::Attachment>> known;
  for (text::Style& style : document->styles) {
    if (style.attachment == nullptr || style.attachment->fileName.empty()) continue;
    const auto [entry, isNew] = known.try_emplace(style.attachment.get());
    if (isNew) entry->second = resolved(folder, *style.attachment);
    if (entry->second != nullptr) style.attachment = entry->second;
  }
  return document;
}

std::optional<formats::Document> readRTFD(std::span<const uint8_t> archive) {
  const Owned<NSFileWrapper> package = newDirectory();
  if (!readArchive(wrapperState(package), archive)) return std::nullopt;
  return readRTFD(package);
}

Owned<NSFileWrapper> newRTFD(ExportedRuns& exported, const formats::DocumentInformation& information) {
  Owned<NSFileWrapper> package = newDirectory();
  // Its place is taken before the attachments look for theirs.
  const Owned<NSFileWrapper> text = newRegularFile(nullptr, textName);
  putChild(wrapperState(package), textName, text);
  exported.packageFiles(package);
  wrapperState(text).contents = FileContents::of(foundation::newData(formats::rtf::write(exported.runs(), information)));
  return package;
}

Owned<NSData> newRTFDData(ExportedRuns& exported, const formats::DocumentInformation& information) {
  return newArchive(newRTFD(exported, information));
}

}  // namespace standin::appkit
