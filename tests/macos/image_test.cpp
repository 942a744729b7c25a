// The library's file for macOS: what kind of file it is, what it exports, and what it asks of the system.
#include <cxxabi.h>

#include <fstream>
#include <memory>
#include <regex>
#include <set>

#include "tests/macos/load_commands.hpp"
#include "tests/macos/support.hpp"

namespace macos {
namespace {

using Names = std::set<std::string>;

// A text stub: the library that it stands for, and what it lists.
struct Stub {
  std::string library;
  Names symbols, weak, exceptionTypes;
};

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream stream(path);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

Names listed(const std::string& stub, const std::string& key, const std::string& prefix = "") {
  Names names;
  std::smatch list;
  if (!std::regex_search(stub, list, std::regex("\n +" + key + ": +\\[([^\\]]*)\\]"))) return names;
  const std::string items = list[1];
  const std::regex item("[^\\s,']+");
  for (std::sregex_iterator at(items.begin(), items.end(), item), end; at != end; ++at) names.insert(prefix + at->str());
  return names;
}

std::vector<Stub> stubs() {
  std::vector<Stub> found;
  for (const auto& file : std::filesystem::directory_iterator(STUBS_FOLDER)) {
    const std::string text = contentsOf(file.path());
    std::smatch name;
    if (!std::regex_search(text, name, std::regex("install-name: '([^']*)'"))) continue;
    found.push_back(
        {name[1], listed(text, "symbols"), listed(text, "weak-symbols"), listed(text, "objc-eh-types", "_OBJC_EHTYPE_$_")});
  }
  return found;
}

std::string demangled(const std::string& symbol) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> name(abi::__cxa_demangle(symbol.c_str() + 1, nullptr, nullptr, &status),
                                                    free);
  return status == 0 ? name.get() : symbol;
}

class File : public BinaryTest {
 protected:
  void SetUp() override {
    BinaryTest::SetUp();
    if (!IsSkipped()) image_ = std::make_unique<Image>(libraryPath);
  }
  const Image& image() const { return *image_; }

 private:
  std::unique_ptr<Image> image_;
};

TEST_F(File, IsALibraryForIntelAndMacOS10_13) {
  EXPECT_EQ(image().cpuType(), cpuX86_64);
  EXPECT_EQ(image().fileType(), dynamicLibrary);
  EXPECT_EQ(image().flags() & (undefinedNone | twoLevelNames), undefinedNone | twoLevelNames);
  EXPECT_EQ(image().minimumSystem(), 0x000A0D00U);
  EXPECT_EQ(image().ownName().name, "@rpath/StyledTextZKT.dylib");
  std::vector<uint32_t> commands = {segment64,          segment64,   segment64,        fixups,       symbolTable,
                                    dynamicSymbolTable, libraryName, uniqueIdentifier, minimumMacOS, functionStarts};
  commands.insert(commands.end(), stubs().size(), loadLibrary);
  std::vector<uint32_t> found = image().commands();
  std::erase(found, dataInCode);
  std::sort(commands.begin(), commands.end());
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, commands);
}

TEST_F(File, KeepsCodeUnwritableAndDataUnexecutable) {
  std::map<std::string, uint32_t> protections;
  for (const Segment& segment : image().segments()) protections[segment.name] = segment.protection;
  EXPECT_EQ(protections, (std::map<std::string, uint32_t>{{"__TEXT", 5}, {"__DATA", 3}, {"__LINKEDIT", 1}}));
}

TEST_F(File, ExportsItsEntryPointAlone) {
  const auto exports = image().exports();
  ASSERT_EQ(exports.size(), 1U);
  EXPECT_EQ(exports.begin()->first, "_REALPluginMain");
  ASSERT_NE(image().sectionAt(exports.begin()->second), nullptr);
  EXPECT_EQ(image().sectionAt(exports.begin()->second)->name, "__text");
}

// Also that the C++ library is linked and not inside: what is inside is not undefined.
TEST_F(File, AsksOfEachLibraryWhatItsStubListsAndNothingElse) {
  std::map<std::string, Names> asked, offered;
  for (const Symbol& symbol : image().symbols()) {
    if (!symbol.undefined) continue;
    ASSERT_TRUE(symbol.library >= 1 && symbol.library <= image().libraries().size()) << symbol.name;
    asked[image().libraries()[symbol.library - 1].name].insert(symbol.name);
  }
  for (const Stub& stub : stubs()) {
    Names& names = offered[stub.library];
    for (const Names& list : {stub.symbols, stub.weak, stub.exceptionTypes}) names.insert(list.begin(), list.end());
  }
  EXPECT_EQ(asked, offered);
  EXPECT_EQ(asked.count("/usr/lib/libc++.1.dylib"), 1U);
}

TEST_F(File, DoesWithoutTheFourConstantsOfNewerSystems) {
  Names weak;
  for (const Symbol& symbol : image().symbols()) {
    if (symbol.undefined && symbol.weakReference) weak.insert(symbol.name);
  }
  EXPECT_EQ(weak, (Names{"_NSTextEffectAttributeName", "_NSTextAlternativesAttributeName", "_NSTextEffectLetterpressStyle",
                         "_NSDefaultAttributesDocumentAttribute"}));
}

TEST_F(File, HasNothingOfTheStandInsInside) {
  size_t defined = 0;
  for (const Symbol& symbol : image().symbols()) {
    if (symbol.undefined) continue;
    ++defined;
    const std::string name = demangled(symbol.name);
    for (const char* folder : {"standin::", "host::", "siblings::", "language::", "testing::"}) {
      EXPECT_EQ(name.find(folder), std::string::npos) << name;
    }
  }
  EXPECT_GT(defined, 500U);
}

TEST_F(File, HasNoThreadLocalStorage) {
  for (const Section& section : image().sections()) {
    EXPECT_FALSE(section.type >= firstThreadLocal && section.type <= lastThreadLocal) << section.name;
  }
}

TEST(Reader, RefusesWhatIsNoImage) {
  EXPECT_THROW(Image("/nowhere"), ImageError);
  EXPECT_THROW(Image(__FILE__), ImageError);
}

}  // namespace
}  // namespace macos
