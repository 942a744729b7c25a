// Bundles: folders with code and resources, as NSBundle and as CoreFoundation's own type.
#include <dlfcn.h>
#include <unistd.h>

#include <string>

#include "platform/corefoundation.h"
#include "standin/foundation/checks.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/immortal.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/url.hpp"

namespace standin::foundation {
namespace {

struct Bundle : Object {
  std::string path;
  void* code = nullptr;  // what dlopen gave; kept for the life of the process
};

// "Foundation" of "/x/Foundation.framework".
std::string nameOf(const Bundle& bundle) {
  const std::string leaf = leafOf(bundle.path);
  return leaf.substr(0, leaf.rfind('.'));
}

// Where a framework and an application keep their code; the first that exists, or nothing.
std::string executableOf(const Bundle& bundle) {
  for (const char* folder : {"", "/Versions/Current", "/Contents/MacOS"}) {
    std::string path = joined(bundle.path + folder, nameOf(bundle));
    if (access(path.c_str(), R_OK) == 0 && !isFolder(path)) return path;
  }
  return {};
}

bool load(Bundle& bundle) {
  if (bundle.code != nullptr) return true;
  const std::string path = executableOf(bundle);
  if (!path.empty()) bundle.code = dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL);
  return bundle.code != nullptr;
}

NSObject* text(const std::string& path) { return path.empty() ? nullptr : newString(std::string_view(path)).autorelease(); }

const ClassDefinition bundleClass = defineClass<Bundle>("NSBundle", "NSObject");
const ClassDefinition coreBundleClass = defineClass<Bundle>("__CFBundle", "NSObject");

NSObject* mainBundle(Class) {
  static NSObject* const bundle = [] {
    Bundle& state = *new Bundle;
    state.path = folderOf(executablePath());
    return makeImmortal(state, bundleClass);
  }();
  return bundle;
}

NSObject* initWithPath(NSObject* self, NSString* path) {
  Owned<NSObject> bundle = adopt(self);
  if (path == nullptr || !isFolder(utf8Of(path))) return nullptr;
  stateOf<Bundle>(self).path = utf8Of(path);
  return bundle.detach();
}
NSObject* bundleWithPath(Class self, NSString* path) {
  return adopt(initWithPath(NSObject::alloc(self), path)).autorelease();
}

NSObject* bundlePath(Bundle& self) { return text(self.path); }
NSObject* bundleURL(Bundle& self) { return newFileURL(self.path, true).autorelease(); }
NSObject* executablePathOf(NSObject* self) {
  return text(self == mainBundle(nullptr) ? executablePath() : executableOf(stateOf<Bundle>(self)));
}
NSObject* resourcePath(Bundle& self) {
  const std::string folder = self.path + "/Contents/Resources";
  return text(isFolder(folder) ? folder : self.path);
}
BOOL loadCode(Bundle& self) { return load(self); }

[[maybe_unused]] const ClassDefinition completed = ClassDefinition(bundleClass)
                                                       .classMethod<mainBundle>("mainBundle")
                                                       .classMethod<bundleWithPath>("bundleWithPath:")
                                                       .method<initWithPath>("initWithPath:")
                                                       .method<bundlePath>("bundlePath")
                                                       .method<bundleURL>("bundleURL")
                                                       .method<executablePathOf>("executablePath")
                                                       .method<resourcePath>("resourcePath")
                                                       .method<loadCode>("load");

}  // namespace
}  // namespace standin::foundation

using namespace standin;
using namespace standin::foundation;

extern "C" {

// Any existing folder is a bundle.
CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef url) {
  const std::optional<std::string> path = filePath(url);
  if (!path || !isFolder(*path)) return nullptr;
  Owned<__CFBundle> bundle = create<Bundle, __CFBundle>(coreBundleClass);
  stateOf<Bundle>(bundle).path = *path;
  return bundle.detach();
}

Boolean CFBundleLoadExecutable(CFBundleRef bundle) { return bundle != nullptr && load(stateOf<Bundle>(bundle)); }
}
