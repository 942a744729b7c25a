// The pictures that stand for files which have none of their own.
#pragma once

#include "standin/appkit/file_attributes.hpp"

namespace standin::appkit {

// A new image of the kind's picture.
Owned<NSImage> newFileIcon(FileKind kind);

}  // namespace standin::appkit
