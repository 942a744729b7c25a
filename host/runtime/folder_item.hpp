// Host folder items: files and folders of the real file system, existing or not.
#pragma once

#include <string>
#include <string_view>

#include "host/runtime/object.hpp"

namespace host {

// A path that is not absolute is taken from the working folder.
HostOwned<HostObject> makeFolderItem(std::string_view path);
bool isFolderItem(const HostObject* object);
// REQUIRES a folder item. The absolute path, UTF-8; where a file exists whose name is the same but for normalisation, that
// one's.
std::string pathOf(const HostObject* folderItem);

}  // namespace host
