// Cells: the state behind every NSCell.
#pragma once

#include "platform/appkit.h"
#include "standin/runtime/class_definition.hpp"

namespace standin::appkit {

struct Cell : Object {
  Owned<NSImage> image;
  NSTextAttachment* attachment = nullptr;  // of an attachment's cell; not retained: the attachment holds the cell
};

// A new cell of an attachment, showing the image.
Owned<NSCell> newAttachmentCell(NSImage* image, NSTextAttachment* attachment);
NSImage* imageOf(NSCell* cell);
bool isCell(NSObject* object);

}  // namespace standin::appkit
