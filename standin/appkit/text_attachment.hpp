// Attachments: the state behind every NSTextAttachment, and its value in styled text.
#pragma once

#include <memory>
#include <string>

#include "platform/appkit.h"
#include "standin/runtime/class_definition.hpp"
#include "standin/text/attachment.hpp"

namespace standin::appkit {

struct TextAttachment : Object {
  TextAttachment() = default;
  TextAttachment(const TextAttachment&) = delete;
  ~TextAttachment();

  Owned<NSFileWrapper> file;
  Owned<NSCell> cell;  // nil until it is set or asked for
  NSSize size{0, 0};   // points; 0: the picture's own
};

bool isTextAttachment(NSObject* object);
Owned<NSTextAttachment> newTextAttachment(NSFileWrapper* file);
// Of a value that has contents, which the data holds too.
Owned<NSTextAttachment> newTextAttachment(const text::Attachment& attachment, Owned<NSData> contents);
TextAttachment& attachmentState(NSTextAttachment* attachment);

// The attachment's file; of one that has only a cell, its picture as a file. Nil when there is neither.
Owned<NSFileWrapper> fileOf(NSTextAttachment* attachment);
// The name that the file is to have in a package: one that a file can have.
std::string packagedName(NSFileWrapper* file);

// The value that keeps the attachment, and the attachment that a value keeps; nil for none.
std::shared_ptr<const text::Attachment> attachmentValue(NSTextAttachment* attachment);
NSTextAttachment* objectOf(const text::Attachment& attachment);
// The attachment of a value: the one it keeps, or a new one of its contents. Nil when it has neither.
Owned<NSTextAttachment> attachmentOf(const text::Attachment& attachment);

}  // namespace standin::appkit
