// What a document says of itself, as the dictionary that the platform hands out and takes.
#pragma once

#include "platform/appkit.h"
#include "platform/owned.h"
#include "standin/formats/document.hpp"

namespace standin::appkit {

// The attributes of a document that was read, its type among them; autoreleased.
NSDictionary* documentAttributesOf(const formats::DocumentInformation& document, NSString* type);

// What the attributes say; nil says nothing. Values of other classes than the key asks for are left out.
formats::DocumentInformation informationOf(NSDictionary* attributes);

}  // namespace standin::appkit
