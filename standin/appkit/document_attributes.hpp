// What a document says of itself, as the dictionary that the platform hands out and takes.
#pragma once

#include "platform/appkit.h"
#include "standin/formats/document.hpp"

namespace standin::appkit {

// The attributes of a document that was read, its type among them; autoreleased.
NSDictionary* documentAttributesOf(const formats::Document& document, NSString* type);

}  // namespace standin::appkit
