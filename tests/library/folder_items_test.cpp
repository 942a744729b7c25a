// Folder items, paths and URLs on the real file system, existing and not.
#include "bridge/folder_items.hpp"

#include <filesystem>
#include <fstream>

#include "host/runtime/folder_item.hpp"
#include "host/runtime/string.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace bridge_test {
namespace {

namespace filesystem = std::filesystem;

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

bool emptyLeaf(plugin::REALfolderItem item, FSRef* reference, HFSUniStr255* leaf) {
  auto* const real = reinterpret_cast<bool (*)(plugin::REALfolderItem, FSRef*, HFSUniStr255*)>(
      host::Runtime::resolve("REALFSRefFromFolderItem"));
  if (leaf == nullptr || !real(item, reference, leaf)) return false;
  leaf->length = 0;
  return true;
}

TEST_F(FolderItems, WithoutANameAreNil) {
  intercept("REALFSRefFromFolderItem", reinterpret_cast<void*>(&emptyLeaf));
  EXPECT_EQ(pathThroughURL(inFolder("not there")), "nil");
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
  switchOff("GetTrueFolderItem(path As String, pathMode As Integer) As FolderItem");
  EXPECT_EQ(itemAt("/"), "nil");
  runtime().faults().clear();
  EXPECT_EQ(itemAt("/"), "nil");
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
