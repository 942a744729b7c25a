// Functions behind global methods that live beside their classes.
#pragma once

#include <cstdint>

#include "host/runtime/object.hpp"
#include "host/runtime/string.hpp"

namespace host {

// Every path mode takes a POSIX path here. Nil for no path.
HostObject* getFolderItem(HostString* path, int64_t pathMode);

}  // namespace host
