// Loads the plug-ins, with messages.
#include "host/tool/documents.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/plugins.hpp"

namespace tool {

bool loadPlugins() {
  if (!findPlugins()) return false;
  try {
    startPlugins();
    return true;
  } catch (const DocumentError& error) {
    report("the plug-ins cannot be loaded", error.message);
    return false;
  }
}

}  // namespace tool
