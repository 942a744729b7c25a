// The entry point: the version handshake, the registration of the classes, and the Foundation bundle of built applications.
#include "plugin/entry.hpp"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "platform/guard.h"
#include "platform/owned.h"
#include "plugin/class_records.hpp"
#include "tests/library/offered_services.hpp"

namespace {

using namespace plugin;

struct FolderRequest {
  int count = 0;
  FSVolumeRefNum volume = 0;
  OSType folder = 0;
  bool create = false;
};
FolderRequest folderRequest;
// The folder of frameworks; none when empty.
std::string frameworks;

}  // namespace

// Stands in front of the platform's.
extern "C" OSErr FSFindFolder(FSVolumeRefNum volume, OSType folder, Boolean create, FSRef* found) {
  folderRequest = {folderRequest.count + 1, volume, folder, create != 0};
  if (frameworks.empty()) return -43;
  NSString* const path = NSString::stringWithUTF8String(classOf<NSString>(), frameworks.c_str());
  return CFURLGetFSRef(NSURL::fileURLWithPath(classOf<NSURL>(), path), found) != 0 ? noErr : -43;
}

namespace {

double offeredVersion;
uint32_t announced;
bool built;
double giveVersion() { return offeredVersion; }
void takeVersion(uint32_t version) { announced = version; }
bool inRuntime() { return built; }

struct Registered {
  std::string name;
  int64_t size;
  uint32_t version;
  bool operator==(const Registered&) const = default;
};
std::vector<Registered> registered;
void registerClass(ClassRecord* record) { registered.push_back({record->name, record->instanceDataSize, record->version}); }

class Entry : public frame_test::OfferedServices {
 protected:
  Entry() {
    announced = 0;
    built = false;
    registered.clear();
    folderRequest = {};
    frameworks.clear();
  }
};

TEST_F(Entry, TheHostsVersionDecidesWhichInterfaceIsAnnounced) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const std::pair<double, uint32_t> cases[] = {{2019.01, 13}, {2013.04, 13}, {2013.039, 12}, {2013.03, 12}, {2013.0, 11},
                                               {2012.5, 10},  {2012.0, 10},  {2011.9, 9},    {0.0, 9},      {nan, 9}};
  offer("REALGetRBVersion", giveVersion);
  offer("RegisterPluginVersion", takeVersion);
  for (const auto& [version, expected] : cases) {
    offeredVersion = version;
    REALPluginMain(&resolve);
    EXPECT_EQ(announced, expected) << version;
    EXPECT_EQ(CurrentREALControlVersion, expected) << version;
  }
}

TEST_F(Entry, AHostWithoutAVersionGetsTheOldestInterface) {
  offer("RegisterPluginVersion", takeVersion);
  REALPluginMain(&resolve);
  EXPECT_EQ(announced, 9U);
  EXPECT_EQ(hostVersion, 0.0);
}

TEST_F(Entry, TheClassesAreRegisteredInOrderWithTheirSizesRoundedUp) {
  offer("REALGetRBVersion", giveVersion);
  offer("PluginRegisterClass", registerClass);
  offeredVersion = 2012.0;
  NSShadowClass.instanceDataSize = 32;
  REALPluginMain(&resolve);
  NSShadowClass.instanceDataSize = 8;
  EXPECT_EQ(NSShadowClass.versionHighHalf, 0U);
  const std::vector<Registered> expected = {{"NSAttributedStringZKT", 16, 10},
                                            {"NSMutableAttributedStringZKT", 0, 10},
                                            {"NSTextAttachmentZKT", 16, 10},
                                            {"NSFileWrapperZKT", 16, 10},
                                            {"NSShadowZKT", 32, 10}};
  EXPECT_EQ(registered, expected);
}

TEST_F(Entry, AHostThatOffersNothingIsNoError) {
  REALPluginMain(&resolve);
  EXPECT_TRUE(registered.empty());
  EXPECT_EQ(lookups("PluginRegisterClass"), 5);
  EXPECT_EQ(FoundationFramework, nullptr);
}

// Everything else waits for its first use.
TEST_F(Entry, LooksUpTheServicesThatItCallsAlone) {
  offer("PluginRegisterClass", registerClass);
  REALPluginMain(&resolve);
  for (const char* name : {"REALGetRBVersion", "RegisterPluginVersion", "REALinRuntime", "PluginRegisterClass"}) {
    EXPECT_EQ(lookups(name), 1) << name;
  }
  EXPECT_EQ(namesLookedUp(), 4U);
}

TEST_F(Entry, TheFrameworksFolderIsSoughtOnlyInABuiltApplication) {
  REALPluginMain(&resolve);
  offer("REALinRuntime", inRuntime);
  REALPluginMain(&resolve);
  EXPECT_EQ(folderRequest.count, 0);
  built = true;
  REALPluginMain(&resolve);
  EXPECT_EQ(folderRequest.count, 1);
  EXPECT_EQ(folderRequest.volume, -32767);
  EXPECT_EQ(folderRequest.folder, 0x6672616DU);
  EXPECT_TRUE(folderRequest.create);
  EXPECT_EQ(FoundationFramework, nullptr);
}

// A folder with a Foundation.framework in it, gone again at the end.
class FrameworksFolder {
 public:
  FrameworksFolder() {
    char pattern[] = "/tmp/frameworksXXXXXX";
    path_ = mkdtemp(pattern);
    frameworks = path_;
  }
  ~FrameworksFolder() { std::filesystem::remove_all(path_); }
  FrameworksFolder(const FrameworksFolder&) = delete;
  FrameworksFolder& operator=(const FrameworksFolder&) = delete;
  std::filesystem::path bundle() const { return path_ / "Foundation.framework"; }

 private:
  std::filesystem::path path_;
};

// A library that can be loaded as any framework's code.
std::filesystem::path loadedLibrary() {
  Dl_info found{};
  dladdr(reinterpret_cast<const void*>(&CFBundleCreate), &found);
  return std::filesystem::canonical(found.dli_fname);
}

TEST_F(Entry, TheFoundationBundleIsKeptWhenItsCodeCouldBeLoaded) {
  offer("REALinRuntime", inRuntime);
  built = true;
  const FrameworksFolder folder;
  const auto startOnce = [&] {
    const AutoreleasePool pool;
    REALPluginMain(&resolve);
    return adopt(std::exchange(FoundationFramework, nullptr));
  };
  EXPECT_EQ(startOnce(), nullptr) << "no bundle";
  std::filesystem::create_directory(folder.bundle());
  EXPECT_EQ(startOnce(), nullptr) << "no code";
  std::ofstream(folder.bundle() / "Foundation") << "no code at all";
  EXPECT_EQ(startOnce(), nullptr) << "code that cannot be loaded";
  std::filesystem::remove(folder.bundle() / "Foundation");
  std::filesystem::create_symlink(loadedLibrary(), folder.bundle() / "Foundation");
  const Owned<__CFBundle> kept = startOnce();
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(NSObject::retainCount(reinterpret_cast<NSObject*>(kept.get())), 1U);
}

}  // namespace
