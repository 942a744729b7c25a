// The entry point: the version handshake, the registration of the classes, and the Foundation bundle of built applications.
#include "plugin/entry.hpp"

#include <vector>

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

}  // namespace

// Stands in front of the platform's: there is no folder of frameworks here.
extern "C" OSErr FSFindFolder(FSVolumeRefNum volume, OSType folder, Boolean create, FSRef*) {
  folderRequest = {folderRequest.count + 1, volume, folder, create != 0};
  return -43;
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

}  // namespace
