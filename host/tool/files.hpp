// Files read and written whole.
#pragma once

#include <string>
#include <string_view>

namespace tool {

// Throw DocumentError.
std::string contentsOf(const std::string& path);
// A file that is there is replaced once the new one is written.
void writeBytes(const std::string& path, std::string_view bytes);

// The file: URL of the path, which may be relative.
std::string fileURL(const std::string& path);

}  // namespace tool
