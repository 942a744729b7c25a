// Loads the plug-ins from beside the executable, or from where they are installed.
#include "host/tool/plugins.hpp"

#include <filesystem>

#include "host/runtime/runtime.hpp"
#include "host/tool/documents.hpp"
#include "host/tool/messages.hpp"

namespace tool {
namespace {

namespace fs = std::filesystem;

// The library asks the siblings for what all plug-ins of the family share, so they come first.
constexpr const char* plugins[] = {"SiblingsZKT.so", "StyledTextZKT.so"};

// In the build everything lies in one folder; installed, the plug-ins have one of their own.
fs::path pathOf(const char* plugin) {
  const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
  const fs::path installed = folder.parent_path() / STYLEDTEXT_PLUGIN_FOLDER / plugin;
  return !fs::exists(folder / plugin) && fs::exists(installed) ? installed : folder / plugin;
}

}  // namespace

bool findPlugins() {
  for (const char* plugin : plugins) {
    if (fs::exists(pathOf(plugin))) continue;
    report(plugin, "this part of the program is not installed: there is no " + pathOf(plugin).string());
    return false;
  }
  return true;
}

void startPlugins() {
  for (const char* plugin : plugins) {
    try {
      host::Runtime::shared().loadPlugin(pathOf(plugin).string());
    } catch (const host::PluginError& error) {
      throw DocumentError{std::string(plugin) + ": " + error.message};
    }
  }
}

}  // namespace tool
