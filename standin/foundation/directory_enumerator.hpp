// What is in a folder: its names, and all paths below it one after the other.
#pragma once

#include <string>
#include <system_error>

#include "platform/foundation.h"
#include "platform/owned.h"

namespace standin::foundation {

// Sorted by their bytes. Nil, and the error told, when the folder cannot be read.
Owned<NSArray> newNamesInFolder(const std::string& folder, std::error_code& error);

// Answers paths relative to the folder, a folder before what is in it. Symbolic links are not followed.
Owned<NSEnumerator> newDirectoryEnumerator(const std::string& folder);

}  // namespace standin::foundation
