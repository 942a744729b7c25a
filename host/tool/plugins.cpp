// Loads the plug-ins from beside the executable.
#include "host/tool/plugins.hpp"

#include <filesystem>

#include "host/runtime/runtime.hpp"
#include "host/tool/messages.hpp"

namespace tool {
namespace {

// The library asks the siblings for what all plug-ins of the family share, so they come first.
constexpr const char* kPlugins[] = {"SiblingsZKT.so", "StyledTextZKT.so"};

}  // namespace

std::string executableFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path().string(); }

bool loadPlugins() {
  for (const char* name : kPlugins) {
    try {
      host::Runtime::shared().loadPlugin(executableFolder() + "/" + name);
    } catch (const host::PluginError& error) {
      report(name, error.message);
      return false;
    }
  }
  return true;
}

}  // namespace tool
