// The library's one exported function: takes the host's resolver and declares the five classes.
#include "plugin/entry.hpp"
#include "platform/owned.h"
#include "plugin/class_records.hpp"
#include "plugin/services.hpp"

namespace plugin {

namespace {

struct InterfaceVersion {
  double hostVersion;
  int64_t version;
};
constexpr InterfaceVersion interfaceVersions[] = {{2013.04, 13}, {2013.03, 12}, {2013.0, 11}, {2012.0, 10}};
constexpr int64_t oldestInterfaceVersion = 9;

void announceVersion() {
  if (const auto version = REALGetRBVersion.find()) hostVersion = version();
  CurrentREALControlVersion = interfaceVersionFor(hostVersion);
  RegisterPluginVersion(static_cast<uint32_t>(CurrentREALControlVersion));
}

// The Foundation bundle among the frameworks of a built application, loaded; nil when any step fails.
Owned<__CFBundle> loadFoundation() {
  FSRef frameworks;
  if (FSFindFolder(kOnAppropriateDisk, kFrameworksFolderType, true, &frameworks) != noErr) return nullptr;
  const auto folder = adopt(CFURLCreateFromFSRef(kCFAllocatorSystemDefault, &frameworks));
  if (!folder) return nullptr;
  const auto name = __CFStringMakeConstantString("Foundation.framework");
  const auto url = adopt(CFURLCreateCopyAppendingPathComponent(kCFAllocatorSystemDefault, folder, name, false));
  if (!url) return nullptr;
  auto bundle = adopt(CFBundleCreate(kCFAllocatorSystemDefault, url));
  if (!bundle || !CFBundleLoadExecutable(bundle)) return nullptr;
  return bundle;
}

// The host reserves instance data in units of this many bytes.
constexpr int64_t instanceDataUnit = 16;

void registerClass(ClassRecord& record) {
  record.instanceDataSize = (record.instanceDataSize + instanceDataUnit - 1) / instanceDataUnit * instanceDataUnit;
  record.version = static_cast<uint32_t>(CurrentREALControlVersion);
  REALRegisterClass(&record);
}

}  // namespace

int64_t interfaceVersionFor(double version) {
  for (const InterfaceVersion& row : interfaceVersions) {
    if (version >= row.hostVersion) return row.version;
  }
  return oldestInterfaceVersion;
}

}  // namespace plugin

extern "C" __attribute__((visibility("default"))) void REALPluginMain(plugin::Resolver* resolver) {
  using namespace plugin;
  gResolver = resolver;
  announceVersion();
  if (REALinRuntime()) FoundationFramework = loadFoundation().detach();
  for (ClassRecord* record : {&NSAttributedStringClass, &NSMutableAttributedStringClass, &NSTextAttachmentClass,
                              &NSFileWrapperClass, &NSShadowClass}) {
    registerClass(*record);
  }
}
