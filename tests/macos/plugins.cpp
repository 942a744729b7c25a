// The command line's plug-ins, in place of its own: the sibling classes of this system, and the library as macOS's binary.
#include "host/tool/plugins.hpp"

#include <filesystem>

#include "host/runtime/runtime.hpp"
#include "host/tool/documents.hpp"
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

bool findPlugins() { return true; }

void startPlugins() {
  try {
    host::Runtime& runtime = host::Runtime::shared();
    runtime.loadPlugin((std::filesystem::read_symlink("/proc/self/exe").parent_path() / siblings).string());
    startLibrary(runtime);
  } catch (const host::PluginError& error) {
    throw DocumentError{library + (": " + error.message)};
  } catch (const macos::ImageError& error) {
    throw DocumentError{library + std::string(": ") + error.what()};
  }
}

}  // namespace tool
