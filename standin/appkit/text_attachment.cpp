// NSTextAttachment: what stands in a text at an attachment character.
#include "standin/appkit/text_attachment.hpp"

#include <algorithm>
#include <functional>

#include "standin/appkit/attributed_string.hpp"
#include "standin/appkit/cell.hpp"
#include "standin/appkit/file_wrapper.hpp"
#include "standin/appkit/image.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/data.hpp"

namespace standin::appkit {
namespace {

NSTextAttachment* initWithFileWrapper(NSTextAttachment* self, NSFileWrapper* file) {
  attachmentState(self).file = retain(file);
  return self;
}

NSFileWrapper* fileWrapper(TextAttachment& self) { return self.file; }

// A cell that is kept elsewhere may outlive its attachment.
void leaveCell(TextAttachment& self) {
  if (self.cell && isCell(self.cell) && stateOf<Cell>(self.cell).attachment == platformObject<NSTextAttachment>(self)) {
    stateOf<Cell>(self.cell).attachment = nullptr;
  }
}

// The cell of the old file would show the wrong picture.
void setFileWrapper(TextAttachment& self, NSFileWrapper* file) {
  if (self.file.get() == file) return;
  self.file = retain(file);
  leaveCell(self);
  self.cell = nullptr;
}

// A picture shows itself, any other file its icon.
Owned<NSImage> imageOfFile(NSFileWrapper* file) {
  if (wrapperState(file).kind == FileKind::regular) {
    if (Owned<NSImage> image = newImage(contentsOf(file))) return image;
  }
  return retain(NSFileWrapper::icon(file));
}

NSCell* attachmentCell(NSTextAttachment* self) {
  TextAttachment& state = attachmentState(self);
  if (!state.cell && state.file) state.cell = newAttachmentCell(imageOfFile(state.file), self);
  return state.cell;
}

void setAttachmentCell(NSTextAttachment* self, NSCell* cell) {
  TextAttachment& state = attachmentState(self);
  leaveCell(state);
  state.cell = retain(cell);
  if (isCell(cell)) stateOf<Cell>(cell).attachment = self;
}

// Whether two regular files have the same name and bytes.
bool sameFile(NSFileWrapper* left, NSFileWrapper* right) {
  const FileWrapper &first = wrapperState(left), &second = wrapperState(right);
  if (first.kind != FileKind::regular || second.kind != FileKind::regular) return false;
  if (packagedName(left) != packagedName(right)) return false;
  NSData *bytes = contentsOf(left), *others = contentsOf(right);
  return (bytes != nullptr && bytes == others) || NSObject::isEqual(bytes, others) != NO;
}

// So that a document that is read twice gives equal texts.
BOOL isEqual(NSTextAttachment* self, NSObject* object) {
  if (self == object) return YES;
  if (!isTextAttachment(object)) return NO;
  const TextAttachment &own = attachmentState(self), &other = attachmentState(static_cast<NSTextAttachment*>(object));
  if (!own.file || !other.file || own.size.width != other.size.width || own.size.height != other.size.height) return NO;
  return own.file == other.file || sameFile(own.file, other.file) ? YES : NO;
}

// Without the contents, which may be a large file that is not read yet.
NSUInteger hash(TextAttachment& self) {
  if (!self.file) return reinterpret_cast<NSUInteger>(&self) >> 4;
  const std::hash<double> hashed;
  return (hashed(self.size.width) * 31 + hashed(self.size.height)) * 31 + std::hash<std::string>()(packagedName(self.file));
}

NSRect bounds(TextAttachment& self) { return {{0, 0}, self.size}; }
void setBounds(TextAttachment& self, NSRect bounds) { self.size = bounds.size; }

const ClassDefinition attachmentClass = defineClass<TextAttachment>("NSTextAttachment", "NSObject")
                                            .method<initWithFileWrapper>("initWithFileWrapper:")
                                            .method<fileWrapper>("fileWrapper")
                                            .method<setFileWrapper>("setFileWrapper:")
                                            .method<attachmentCell>("attachmentCell")
                                            .method<setAttachmentCell>("setAttachmentCell:")
                                            .method<isEqual>("isEqual:")
                                            .method<hash>("hash")
                                            .method<bounds>("bounds")
                                            .method<setBounds>("setBounds:");

NSAttributedString* attributedStringWithAttachment(Class self, NSTextAttachment* attachment) {
  foundation::requireArgument(self, "attributedStringWithAttachment:", attachment);
  const auto attributes = foundation::newDictionary({{NSAttachmentAttributeName, attachment}});
  const text::Text character = text::Text::utf16({&text::attachmentCharacter, 1});
  return newAttributedString({character, attributeSetOf(attributes)}).autorelease();
}

[[maybe_unused]] const Category factory =
    Category("NSAttributedString").classMethod<attributedStringWithAttachment>("attributedStringWithAttachment:");

}  // namespace

TextAttachment::~TextAttachment() { leaveCell(*this); }

bool isTextAttachment(NSObject* object) { return isKindOf(object, attachmentClass.object()); }
TextAttachment& attachmentState(NSTextAttachment* attachment) { return stateOf<TextAttachment>(attachment); }

Owned<NSTextAttachment> newTextAttachment(NSFileWrapper* file) {
  Owned<NSTextAttachment> attachment = create<TextAttachment, NSTextAttachment>(attachmentClass);
  attachmentState(attachment).file = retain(file);
  return attachment;
}

Owned<NSFileWrapper> fileOf(NSTextAttachment* attachment) {
  const TextAttachment& state = attachmentState(attachment);
  if (state.file) return state.file;
  NSData* picture = isCell(state.cell) ? bytesOf(imageOf(state.cell)) : nullptr;
  if (picture == nullptr) return nullptr;
  const auto extension = formats::pictures::extensionOf(formats::pictures::formatOf(foundation::bytesOf(picture)));
  return newRegularFile(retain(picture), "Attachment." + std::string(extension));
}

Owned<NSTextAttachment> newTextAttachment(const text::Attachment& attachment, Owned<NSData> contents) {
  const auto extension = formats::pictures::extensionOf(formats::pictures::formatOf(attachment.contents));
  const Owned<NSFileWrapper> file = newRegularFile(std::move(contents), "Attachment." + std::string(extension));
  Owned<NSTextAttachment> made = newTextAttachment(file);
  attachmentState(made).size = {attachment.width, attachment.height};
  return made;
}

std::string packagedName(NSFileWrapper* file) {
  const FileWrapper& state = wrapperState(file);
  for (const auto* name : {&state.preferredName, &state.name}) {
    if (!*name) continue;
    // A slash in a name is shown and stored as a colon.
    std::string usable = **name;
    std::replace(usable.begin(), usable.end(), '/', ':');
    if (isFileName(usable)) return usable;
  }
  return "Attachment";
}

std::shared_ptr<const text::Attachment> attachmentValue(NSTextAttachment* attachment) {
  auto value = std::make_shared<text::Attachment>();
  value->object =
      std::shared_ptr<void>(retainObject(attachment), [](void* object) { releaseObject(static_cast<NSObject*>(object)); });
  value->width = attachmentState(attachment).size.width;
  value->height = attachmentState(attachment).size.height;
  return value;
}

NSTextAttachment* objectOf(const text::Attachment& attachment) {
  return static_cast<NSTextAttachment*>(attachment.object.get());
}

Owned<NSTextAttachment> attachmentOf(const text::Attachment& attachment) {
  if (attachment.object != nullptr) return retain(objectOf(attachment));
  if (attachment.contents.empty()) return nullptr;
  return newTextAttachment(attachment, foundation::newData(attachment.contents));
}

}  // namespace standin::appkit
