// The text attachment: a file or an image that stands in a text.
#include "classes/text_attachment.hpp"

#include "classes/filling.hpp"
#include "classes/members.hpp"
#include "plugin/class_records.hpp"

namespace classes {

REALobject attributedStringWithAttachment(REALobject attachment) {
  const auto wrapped = platformObject<NSTextAttachment>(attachment);
  if (wrapped == nullptr) return nullptr;
  return guarded([&] {
    const auto text = NSAttributedString::attributedStringWithAttachment(classOf<NSAttributedString>(), wrapped);
    return HostForm<NSAttributedString*>::result(text);
  });
}

namespace {

constexpr auto fileWrapper = getterOf<NSTextAttachment::fileWrapper>;
constexpr auto setFileWrapper = setterOf<NSTextAttachment::setFileWrapper>;
constexpr auto attachmentCell = getterOf<NSTextAttachment::attachmentCell>;

Owned<NSTextAttachment> attachmentWith(NSFileWrapper* contents) {
  return adopt(NSTextAttachment::initWithFileWrapper(alloc<NSTextAttachment>(), contents));
}

Owned<NSTextAttachment> attachmentWith(NSImage* image) {
  NSCell* cell = makePlatformObject<NSTextAttachmentCell>().autorelease();
  auto attachment = makePlatformObject<NSTextAttachment>();
  NSCell::setImage(cell, image);
  NSTextAttachment::setAttachmentCell(attachment, cell);
  return attachment;
}

// Both "Constructor" methods: the attachment of a wrapped platform object.
template <class Contents>
void construct(REALobject self, REALobject argument, const char* missing) {
  guarded([&] {
    emptyWrapper(self);
    if (const auto contents = platformObject<Contents>(argument)) {
      fillWrapper(self, attachmentWith(contents));
    } else {
      RaiseException("NilObjectException", missing);
    }
  });
}

void initWithFileWrapper(REALobject self, REALobject contents) {
  construct<NSFileWrapper>(self, contents, "fileWrapper is nil");
}
void initWithImage(REALobject self, REALobject image) { construct<NSImage>(self, image, "image is nil"); }

const PropertyRecord properties[] = {
    handleProperty(),
    property<"fileWrapper", "NSFileWrapperZKT", fileWrapper, setFileWrapper>(),
    property<"attachmentCell", "Variant", attachmentCell>(),
};

const MethodRecord methods[] = {
    method<"Constructor(fileWrapper as NSFileWrapperZKT)", initWithFileWrapper>(),
    method<"Constructor(image as NSImageZKT)", initWithImage>(),
};

const ConstantRecord constants[] = {constant("NSAttachmentCharacter = &hFFFC")};

const MethodRecord sharedMethods[] = {
    sharedMethod<"attributedStringWithAttachment(attachment as NSTextAttachmentZKT) as NSAttributedStringZKT",
                 attributedStringWithAttachment>(),
};

}  // namespace
}  // namespace classes

plugin::ClassRecord plugin::NSTextAttachmentClass = classRecord({.name = "NSTextAttachmentZKT",
                                                                 .instanceDataSize = sizeof(NSTextAttachment*),
                                                                 .constructor = NSTextAttachmentConstructor,
                                                                 .destructor = NSTextAttachmentDestructor,
                                                                 .properties = classes::properties,
                                                                 .methods = classes::methods,
                                                                 .constants = classes::constants,
                                                                 .sharedMethods = classes::sharedMethods});
