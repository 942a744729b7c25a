// Host folder items, paths and platform URLs, also of files that do not exist yet. Failures give nil, never an exception.
#pragma once

#include "platform/corefoundation.h"
#include "plugin/service.hpp"

namespace bridge {

// A URL that the caller owns.
[[nodiscard]] CFURLRef CreateCFURLfromFolderItem(plugin::REALfolderItem item);

// A folder item with one reference for the caller.
[[nodiscard]] plugin::REALfolderItem NSURLRBFile(NSURL* url);

// What the platform receives for a file argument: autoreleased, or nil. A URL string is parsed as it is, nothing is escaped.
NSURL* urlFromString(plugin::REALstring text);
NSString* pathFromString(plugin::REALstring text);
NSURL* urlFromFolderItem(plugin::REALfolderItem item);
NSString* pathFromFolderItem(plugin::REALfolderItem item);

// The object answers to a method that folder items alone have.
bool isFolderItem(plugin::REALobject object);

// The host's own method, looked up once and kept, nil included.
inline constinit plugin::Function<plugin::REALfolderItem(plugin::REALstring path, int64_t pathMode)>* GetTrueFolderItem =
    nullptr;
inline constinit bool doneGetTrueFolderItem = false;

}  // namespace bridge
