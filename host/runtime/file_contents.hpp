// Files written whole.
#pragma once

#include <string>
#include <string_view>

namespace host {

// Gives the file these contents in one step: it holds what it held, or all of them, whenever the process or the disk comes
// to its end. Devices, pipes, files of another owner and files in folders that take no new ones are written in place.
// False, with `errno` set, when it fails.
[[nodiscard]] bool replaceContents(const std::string& path, std::string_view contents);

}  // namespace host
