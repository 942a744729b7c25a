// The plug-ins that the command line works with.
#pragma once

namespace tool {

// Whether they are there. Reports the one that is not.
[[nodiscard]] bool findPlugins();

// Loads the sibling classes and the library. Throws DocumentError when one cannot be loaded.
void startPlugins();

// Does both, and reports what goes wrong.
[[nodiscard]] bool loadPlugins();

}  // namespace tool
