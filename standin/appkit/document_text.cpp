// Attributed strings taken apart for writers, and put together from what readers found.
#include "standin/appkit/document_text.hpp"

#include <unordered_map>

#include "standin/appkit/file_wrapper.hpp"
#include "standin/appkit/style.hpp"
#include "standin/appkit/text_attachment.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/foundation/data.hpp"
#include "standin/text/run_list.hpp"

namespace standin::appkit {
namespace {

// Pictures that documents hold in their text; of these, a writer leaves out those that its format does not.
bool canBeEmbedded(std::span<const uint8_t> bytes) {
  return formats::pictures::formatOf(bytes) != formats::pictures::Format::unknown;
}

// The attachment's file, autoreleased; nil when it has none.
NSFileWrapper* attachedFile(const text::Attachment& attachment) {
  return attachment.object != nullptr ? fileOf(objectOf(attachment)).autorelease() : nullptr;
}

// Nil for what is no regular file.
NSData* bytesIn(NSFileWrapper* file) {
  return file != nullptr && wrapperState(file).kind == FileKind::regular ? contentsOf(file) : nullptr;
}

void hold(text::Attachment& attachment, NSData* contents) {
  attachment.owner =
      std::shared_ptr<void>(retainObject(contents), [](void* data) { releaseObject(static_cast<NSObject*>(data)); });
  attachment.contents = foundation::bytesOf(contents);
}

// The attachment with its picture, if it is one; otherwise as it is.
std::shared_ptr<const text::Attachment> withPicture(const std::shared_ptr<const text::Attachment>& attachment) {
  NSData* contents = bytesIn(attachedFile(*attachment));
  if (!canBeEmbedded(foundation::bytesOf(contents))) return attachment;
  auto embedded = std::make_shared<text::Attachment>(*attachment);
  hold(*embedded, contents);
  return embedded;
}

std::shared_ptr<const text::Attachment> withFile(const std::shared_ptr<const text::Attachment>& attachment) {
  NSFileWrapper* file = attachedFile(*attachment);
  if (file == nullptr) return attachment;
  auto taken = std::make_shared<text::Attachment>(*attachment);
  taken->fileName = packagedName(file);
  if (NSData* contents = bytesIn(file)) hold(*taken, contents);
  return taken;
}

// The contents of a document's attachments, one copy of each however many attachments show it, by where the reader has them.
using SharedContents = std::unordered_map<const uint8_t*, Owned<NSData>>;

// The style with the attachment that its value describes.
text::Style withObject(text::Style style, SharedContents& shared) {
  const text::Attachment& found = *style.attachment;
  if (found.object != nullptr || found.contents.empty()) return style;
  Owned<NSData>& contents = shared[found.contents.data()];
  if (foundation::bytesOf(contents).size() != found.contents.size()) contents = foundation::newData(found.contents);
  style.attachment = attachmentValue(newTextAttachment(found, contents));
  return style;
}

}  // namespace

ExportedRuns::ExportedRuns(const text::StyledText& text, text::UnitRange range) {
  styled_.text = text.text().slice(range.start, range.length);
  SharedLinks links;
  forEachRun(text, range.start, range.length, [&](const text::RunPlace& run, NSDictionary* attributes) {
    const text::Style*& style = byHandle_[run.attributes];
    if (style == nullptr) style = &styles_.emplace_back(styleOf(attributes, links));
    styled_.runs.push_back({run.length, style});
  });
}

void ExportedRuns::embedPictures() {
  for (text::Style& style : styles_) {
    if (style.attachment != nullptr) style.attachment = withPicture(style.attachment);
  }
}

void ExportedRuns::takeFiles() {
  for (text::Style& style : styles_) {
    if (style.attachment != nullptr) style.attachment = withFile(style.attachment);
  }
}

void ExportedRuns::packageFiles(NSFileWrapper* directory) {
  std::unordered_map<NSFileWrapper*, std::string> keys;
  for (text::Style& style : styles_) {
    if (style.attachment == nullptr || style.attachment->object == nullptr) continue;
    const Owned<NSFileWrapper> file = fileOf(objectOf(*style.attachment));
    if (!file) continue;
    std::string& key = keys[file.get()];
    if (key.empty()) key = addChild(wrapperState(directory), file, packagedName(file));
    auto packaged = std::make_shared<text::Attachment>(*style.attachment);
    packaged->fileName = key;
    style.attachment = std::move(packaged);
  }
}

text::StyledText styledTextOf(const formats::Document& document) {
  std::vector<text::AttributeSet> sets;
  SharedContents shared;
  SharedLinks links;
  for (const text::Style& style : document.styles) {
    const bool hasAttachment = style.attachment != nullptr;
    const Owned<NSDictionary> attributes =
        hasAttachment ? attributesOf(withObject(style, shared), links) : attributesOf(style, links);
    sets.push_back(attributeSetOf(attributes));
  }
  text::RunList runs;
  for (const formats::DocumentRun& run : document.runs) runs.add(run.length, sets[run.style].handle());
  return {text::Text::utf16(document.text), runs};
}

}  // namespace standin::appkit
