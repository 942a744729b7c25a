// The five classes that the library declares to the host.
#pragma once

#include "plugin/records.hpp"

namespace plugin {

extern ClassRecord NSAttributedStringClass;
extern ClassRecord NSMutableAttributedStringClass;
extern ClassRecord NSTextAttachmentClass;
extern ClassRecord NSFileWrapperClass;
extern ClassRecord NSShadowClass;

}  // namespace plugin
