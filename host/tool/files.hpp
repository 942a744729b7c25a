// Files read and written whole.
#pragma once

#include <string>
#include <string_view>

namespace tool {

// Throw DocumentError.
std::string contentsOf(const std::string& path);
void writeBytes(const std::string& path, std::string_view bytes);

// False too where that cannot be found out.
bool isFolder(const std::string& path);

// Everything that the source still holds. False, with `errno` set, when some of it could not be read or written.
[[nodiscard]] bool copyAll(int source, int destination);

// What the system says of the error number.
std::string systemMessage(int error);

// The file: URL of the path, which may be relative.
std::string fileURL(const std::string& path);

}  // namespace tool
