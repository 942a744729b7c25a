// NSDirectoryEnumerator: all paths below a folder.
#include "standin/foundation/directory_enumerator.hpp"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"

namespace standin::foundation {
namespace {

struct DirectoryEnumerator : Object {
  std::string folder;
  std::vector<std::string> waiting;  // relative paths, the next one last
  std::string last;                  // answered last and not yet entered
};

std::vector<std::string> namesIn(const std::string& folder, std::error_code& error) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

void enter(DirectoryEnumerator& state, const std::string& relative) {
  const std::string path = relative.empty() ? state.folder : joined(state.folder, relative);
  std::error_code ignored;
  if (!relative.empty() && std::filesystem::is_symlink(path, ignored)) return;
  const std::vector<std::string> names = namesIn(path, ignored);
  for (auto name = names.rbegin(); name != names.rend(); ++name)
    state.waiting.push_back(relative.empty() ? *name : joined(relative, *name));
}

// Names that are no UTF-8 are passed over, as no string can hold them.
NSObject* nextPath(DirectoryEnumerator& self) {
  if (!self.last.empty()) enter(self, std::exchange(self.last, {}));
  while (!self.waiting.empty()) {
    std::string path = std::move(self.waiting.back());
    self.waiting.pop_back();
    if (Owned<NSString> text = newString(std::string_view(path))) {
      self.last = std::move(path);
      return text.autorelease();
    }
  }
  return nullptr;
}

void skipDescendants(DirectoryEnumerator& self) { self.last.clear(); }

const ClassDefinition directoryEnumeratorClass = defineClass<DirectoryEnumerator>("NSDirectoryEnumerator", "NSEnumerator")
                                                     .method<nextPath>("nextObject")
                                                     .method<skipDescendants>("skipDescendants")
                                                     .method<skipDescendants>("skipDescendents");

}  // namespace

Owned<NSArray> newNamesInFolder(const std::string& folder, std::error_code& error) {
  const std::vector<std::string> names = namesIn(folder, error);
  if (error) return nullptr;
  Owned<NSMutableArray> array = newMutableArray();
  for (const std::string& name : names) {
    if (const Owned<NSString> text = newString(std::string_view(name))) append(array, text);
  }
  return array;
}

Owned<NSEnumerator> newDirectoryEnumerator(const std::string& folder) {
  Owned<NSEnumerator> enumerator = create<DirectoryEnumerator, NSEnumerator>(directoryEnumeratorClass);
  auto& state = stateOf<DirectoryEnumerator>(enumerator);
  state.folder = folder;
  enter(state, {});
  return enumerator;
}

}  // namespace standin::foundation
