// The plug-ins that the command line works with.
#pragma once

#include <string>

namespace tool {

// The folder of the running executable, where the plug-ins lie.
std::string executableFolder();

// Loads the sibling classes and the library. False, with a message on standard error, when one cannot be loaded.
[[nodiscard]] bool loadPlugins();

}  // namespace tool
