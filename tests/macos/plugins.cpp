// The command line's plug-ins, in place of its own: the sibling classes of this system, and the library as macOS's binary.
#include "host/tool/plugins.hpp"

#include <filesystem>

#include "host/runtime/runtime.hpp"
#include "host/tool/messages.hpp"
#include "tests/macos/bindings.hpp"
#include "tests/macos/loaded_image.hpp"

namespace tool {
namespace {

constexpr char siblings[] = "SiblingsZKT.so";
constexpr char library[] = MACOS_FOLDER "/StyledTextZKT.dylib";

void startLibrary(host::Runtime& runtime) {
  static const macos::LoadedImage image(macos::Image(library), macos::addressOfImport);
  image.initialize();
  runtime.startPlugin(image.symbol<void(host::Resolver)>("_REALPluginMain"));
}

}  // namespace

std::string executableFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path().string(); }

bool loadPlugins() {
  try {
    host::Runtime& runtime = host::Runtime::shared();
    runtime.loadPlugin(executableFolder() + "/" + siblings);
    startLibrary(runtime);
    return true;
  } catch (const host::PluginError& error) {
    report(library, error.message);
  } catch (const macos::ImageError& error) {
    report(library, error.what());
  }
  return false;
}

}  // namespace tool
