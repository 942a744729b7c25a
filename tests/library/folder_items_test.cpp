// Folder items, paths and URLs on the real file system, existing and not.
#include "bridge/folder_items.hpp"

#include <filesystem>
#include <fstream>

#include "host/runtime/exception.hpp"
#include "host/runtime/folder_item.hpp"
#include "host/runtime/string.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace bridge_test {
namespace {

namespace filesystem = std::filesystem;

constexpr const char* pathMethod = "GetTrueFolderItem(path As String, pathMode As Integer) As FolderItem";

class FolderItems : public BridgeTest {
 protected:
  FolderItems() : folder_(makeFolder()) { std::ofstream(folder_ / "there.txt") << "x"; }
  ~FolderItems() override { filesystem::remove_all(folder_); }

  static plugin::REALfolderItem asItem(host::HostObject* item) {
    return static_cast<plugin::REALfolderItem>(forLibrary(item));
  }
  // The path that the URL of the item at the path leads to.
  static std::string pathThroughURL(const std::string& path) {
    const HostHeld item = host::makeFolderItem(path);
    NSString* const found = bridge::pathFromFolderItem(asItem(item));
    return found == nullptr ? "nil" : NSString::UTF8String(found);
  }
  static std::string itemAt(const std::string& path) {
    NSURL* const url = NSURL::fileURLWithPath(classOf<NSURL>(), text(path.c_str()));
    return show(plugin::adoptHost<plugin::REALobjectStruct>(bridge::NSURLRBFile(url)));
  }
  std::string inFolder(const std::string& name) const { return (folder_ / name).string(); }

 private:
  static filesystem::path makeFolder() {
    std::string name = (filesystem::canonical(filesystem::temp_directory_path()) / "folder_items_XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    return name;
  }
  filesystem::path folder_;
};

TEST_F(FolderItems, BecomeURLsAndComeBack) {
  for (const std::string name : {"there.txt", "not there yet.txt", "100% #1?.txt"}) {
    EXPECT_EQ(pathThroughURL(inFolder(name)), inFolder(name));
    EXPECT_EQ(itemAt(inFolder(name)), "FolderItem " + inFolder(name));
  }
  EXPECT_EQ(pathThroughURL("/"), "/");
  EXPECT_EQ(itemAt("/"), "FolderItem /");
  EXPECT_EQ(bridge::CreateCFURLfromFolderItem(nullptr), nullptr);
  EXPECT_EQ(bridge::NSURLRBFile(nullptr), nullptr);
  EXPECT_EQ(bridge::pathFromFolderItem(nullptr), nullptr);
}

TEST_F(FolderItems, ThatAreNotThereGetDecomposedNames) {
  EXPECT_EQ(pathThroughURL(inFolder("r\u00e9sum\u00e9")), inFolder("re\u0301sume\u0301"));
  EXPECT_EQ(itemAt(inFolder("r\u00e9sum\u00e9")), "FolderItem " + inFolder("re\u0301sume\u0301"));
}

TEST_F(FolderItems, OfAFolderThatIsNotThereAreNil) {
  EXPECT_EQ(pathThroughURL(inFolder("missing/leaf")), "nil");
  EXPECT_EQ(itemAt(inFolder("missing/leaf")), "nil");
}

const HFSUniStr255* keepLeaf(const HFSUniStr255* leaf) {
  static HFSUniStr255 kept;
  if (leaf != nullptr) kept = *leaf;
  return &kept;
}
plugin::REALfolderItem keepingLeaf(const FSRef*, const HFSUniStr255* leaf) {
  keepLeaf(leaf);
  return nullptr;
}

TEST_F(FolderItems, HaveLongNamesCut) {
  intercept("REALFolderItemFromParentFSRef", reinterpret_cast<void*>(&keepingLeaf));
  for (const size_t length : {255U, 256U, 300U}) {
    EXPECT_EQ(itemAt(inFolder(std::string(length, 'n'))), "nil");
    EXPECT_EQ(keepLeaf(nullptr)->length, 255);
    EXPECT_EQ(keepLeaf(nullptr)->unicode[254], u'n');
  }
}

bool realReference(plugin::REALfolderItem item, FSRef* reference, HFSUniStr255* leaf) {
  return hostService<decltype(realReference)>("REALFSRefFromFolderItem")(item, reference, leaf);
}

bool emptyLeaf(plugin::REALfolderItem item, FSRef* reference, HFSUniStr255* leaf) {
  if (leaf == nullptr || !realReference(item, reference, leaf)) return false;
  leaf->length = 0;
  return true;
}

TEST_F(FolderItems, WithoutANameAreNil) {
  intercept("REALFSRefFromFolderItem", reinterpret_cast<void*>(&emptyLeaf));
  EXPECT_EQ(pathThroughURL(inFolder("not there")), "nil");
}

// A reference that leads nowhere, so that no URL can be made of it: the item's own, or its parent's too.
bool parentIsLost;
bool lostReference(plugin::REALfolderItem item, FSRef* reference, HFSUniStr255* leaf) {
  const bool answered = realReference(item, reference, leaf);
  if (leaf == nullptr || parentIsLost) *reference = {};
  return answered;
}

TEST_F(FolderItems, WhoseReferenceIsLostAreFoundInTheirParent) {
  intercept("REALFSRefFromFolderItem", reinterpret_cast<void*>(&lostReference));
  for (const bool lost : {false, true}) {
    parentIsLost = lost;
    EXPECT_EQ(pathThroughURL(inFolder("there.txt")), lost ? "nil" : inFolder("there.txt"));
  }
}

TEST_F(FolderItems, AreNilWhereTheHostCannotHelp) {
  switchOff("REALFSRefFromFolderItem");
  EXPECT_EQ(pathThroughURL(inFolder("there.txt")), "nil");
  switchOff("REALFolderItemFromParentFSRef");
  EXPECT_EQ(itemAt(inFolder("there.txt")), "nil");
  EXPECT_EQ(itemAt(inFolder("not there")), "nil");
}

// The look-up is not repeated: a host that learns the method later has learnt it too late.
TEST_F(FolderItems, OfRootsNeedTheHostsPathMethod) {
  switchOff(pathMethod);
  EXPECT_EQ(itemAt("/"), "nil");
  runtime().faults().clear();
  EXPECT_EQ(itemAt("/"), "nil");
}

// The host's path method: what it was asked for, how often it was looked up, and whether it throws.
struct {
  std::string arguments;
  int lookups;
  bool throws;
} asked;

plugin::REALfolderItem itemByPath(plugin::REALstring path, int64_t mode) {
  asked.arguments = host::utf8Of(reinterpret_cast<host::HostString*>(path)) + " " + std::to_string(mode);
  if (asked.throws) host::throwException("UnsupportedFormatException", "refused");
  return static_cast<plugin::REALfolderItem>(forLibrary(host::makeFolderItem("/usr").detach()));
}

void* loadItemByPath(void* module, const char* declaration) {
  if (declaration != std::string_view(pathMethod)) {
    return hostService<decltype(loadItemByPath)>("REALLoadGlobalMethod")(module, declaration);
  }
  ++asked.lookups;
  return module == nullptr ? reinterpret_cast<void*>(&itemByPath) : nullptr;
}

// The path string is given back in any case.
TEST_F(FolderItems, OfRootsAreAskedForByPath) {
  intercept("REALLoadGlobalMethod", reinterpret_cast<void*>(&loadItemByPath));
  asked = {};
  for (int time = 0; time < 2; ++time) EXPECT_EQ(itemAt("/"), "FolderItem /usr");
  EXPECT_EQ(asked.arguments, "/ 3");
  asked.throws = true;
  EXPECT_THROW(itemAt("/"), host::HostException);
  EXPECT_EQ(asked.lookups, 1);
}

TEST_F(FolderItems, AreToldFromOtherObjects) {
  EXPECT_TRUE(bridge::isFolderItem(forLibrary(host::makeFolderItem("/"))));
  EXPECT_FALSE(bridge::isFolderItem(plugin::newInstance("StrangerZKT")));
}

TEST_F(FolderItems, AndStringsBecomeFileArguments) {
  const struct {
    const char* argument;
    const char* url;
  } cases[] = {
      {"file:///tmp/a%20b", "file:///tmp/a%20b"},
      {"http://example.com/?q=1#f", "http://example.com/?q=1#f"},
      {"~/relative", "~/relative"},
      {"not a url", "nil"},
      {"http://example.com/%zz", "nil"},
  };
  for (const auto& [argument, url] : cases) {
    const auto string = host::HostString::make(argument);
    auto* const hostString = reinterpret_cast<plugin::REALstring>(string.get());
    EXPECT_EQ(show(bridge::urlFromString(hostString)), url) << argument;
    EXPECT_EQ(show(bridge::pathFromString(hostString)), "'" + std::string(argument) + "'");
  }
  EXPECT_EQ(bridge::urlFromString(nullptr), nullptr);
  EXPECT_EQ(bridge::pathFromString(nullptr), nullptr);
}

}  // namespace
}  // namespace bridge_test
