// What stands for macOS's symbols in this process.
#pragma once

#include <string>

namespace macos {

// The address of a symbol of macOS: ours where the meaning differs or there is none of the name, libc++'s for what is in its
// own namespace, and otherwise what this process has under the name. Nil when nothing stands for it. Throws ImageError when
// this system has no libc++.
void* addressOfImport(const std::string& symbol);

}  // namespace macos
