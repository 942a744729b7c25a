// Questions to the file system that several classes ask. Paths are bytes, as the system has them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace standin::foundation {

bool isFolder(const std::string& path);
std::string currentFolder();
// The path of the running program.
std::string executablePath();

// "/a" of "/a/b", "/" of "/a", "." of "a".
std::string folderOf(const std::string& path);
std::string leafOf(const std::string& path);
std::string joined(const std::string& folder, const std::string& leaf);

// The name in canonically decomposed form, as the platform's file manager tells it; nothing when it is no UTF-8.
std::optional<std::u16string> decomposedName(const std::string& name);
// The path under which the file exists. The platform knows a file by its name however that is composed, so where the
// exact bytes name nothing, a name that is canonically the same is looked for. Otherwise the path as it came.
std::string existingPath(const std::string& path);

// False when the system refuses; errno says why.
bool writeAll(int descriptor, std::span<const uint8_t> bytes);

}  // namespace standin::foundation
