// Images: the state behind every NSImage.
#pragma once

#include <span>

#include "platform/appkit.h"
#include "standin/runtime/class_definition.hpp"

namespace standin::appkit {

struct Image : Object {
  Owned<NSData> bytes;  // as they were read; nil in an image without a picture
  NSSize size{0, 0};    // points
};

// Nil when the bytes are no picture.
Owned<NSImage> newImage(NSData* bytes);
// The bytes that the image came from; nil when there are none.
NSData* bytesOf(NSImage* image);
NSSize sizeOf(NSImage* image);

}  // namespace standin::appkit
