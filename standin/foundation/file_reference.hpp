// File references: 80 opaque bytes that stand for a file as long as it exists, also when it is renamed.
#pragma once

#include <optional>
#include <string>

#include "platform/corefoundation.h"

namespace standin::foundation {

// A reference to the file itself, a symbolic link is not followed. False when there is none.
bool makeReference(const std::string& path, FSRef* reference);

// Where the file is now, without symbolic links on the way. Nothing when it is gone, when the bytes are no reference of
// this process, or when the file went to another folder and so many references were made since that its trace is lost.
std::optional<std::string> pathOf(const FSRef* reference);

}  // namespace standin::foundation
