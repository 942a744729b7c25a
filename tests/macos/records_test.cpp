// The class records in macOS's binary: word for word what the library of this system declares.
#include <dlfcn.h>

#include <algorithm>
#include <cstring>

#include "host/runtime/record.hpp"
#include "host/runtime/runtime.hpp"
#include "tests/macos/load_commands.hpp"
#include "tests/macos/support.hpp"

namespace macos {
namespace {

using Words = const uint64_t*;
using EntryPoint = void(host::Resolver);

std::vector<const host::ClassRecord*>* registered;

// What the entry point registers with a host that offers nothing else.
std::vector<const host::ClassRecord*> recordsOf(EntryPoint* entryPoint) {
  std::vector<const host::ClassRecord*> records;
  registered = &records;
  entryPoint([](const char* service) -> void* {
    if (std::strcmp(service, "PluginRegisterClass") != 0) return nullptr;
    return reinterpret_cast<void*>(+[](host::ClassRecord* record) { registered->push_back(record); });
  });
  return records;
}

EntryPoint* entryPointHere() {
  void* library = dlopen(LIBRARY_HERE, RTLD_NOW | RTLD_LOCAL);
  return library == nullptr ? nullptr : reinterpret_cast<EntryPoint*>(dlsym(library, "REALPluginMain"));
}

const char* const classNames[] = {"NSAttributedString", "NSMutableAttributedString", "NSTextAttachment", "NSFileWrapper",
                                  "NSShadow"};

// What the words of a record hold: a number, a text, a function; the tables of a class with the number of their rows.
constexpr char property[] = "nttnffnnnnnn";
constexpr char method[] = "fntnnn";
constexpr char constant[] = "tnnnn";
constexpr char classOf[] =
    "nttnnff"
    "PnMn"
    "nnnnnnn"
    "Cn"
    "nnn"
    "Mn"
    "nnnnn";
static_assert(sizeof(property) - 1 == 96 / 8 && sizeof(method) - 1 == 48 / 8);
static_assert(sizeof(constant) - 1 == 40 / 8 && sizeof(classOf) - 1 == 240 / 8);

const char* rowsOf(char table) { return table == 'P' ? property : table == 'M' ? method : constant; }

class Records : public BinaryTest {
 protected:
  void SetUp() override {
    BinaryTest::SetUp();
    if (!IsSkipped()) image_ = std::make_unique<LoadedImage>(Image(libraryPath), addressOfImport);
  }
  const LoadedImage& image() const { return *image_; }

  std::string sectionAt(uint64_t address) const {
    const Section* section = image_->sectionOf(reinterpret_cast<const void*>(address));
    return section == nullptr ? "outside" : section->segment + "," + section->name;
  }

  // Both lie in data of the library, at the same stride.
  void compareRows(const char* kinds, Words there, Words here, uint64_t count) {
    const size_t stride = std::strlen(kinds);
    for (uint64_t row = 0; row < count; ++row) compare(kinds, there + row * stride, here + row * stride);
  }

  uint64_t rows_ = 0;

 private:
  void compare(const char* kinds, Words there, Words here) {
    for (size_t word = 0; kinds[word] != 0; ++word) {
      SCOPED_TRACE("word " + std::to_string(word));
      compareWord(kinds[word], there + word, here + word);
    }
  }
  void compareWord(char kind, Words there, Words here) {
    if (kind == 'n' || *there == 0 || *here == 0) {
      EXPECT_EQ(*there, *here);
      return;
    }
    if (kind == 't') return compareTexts(there, here);
    if (kind == 'f') return compareFunctions(*there, *here);
    EXPECT_EQ(sectionAt(*there).substr(0, 7), "__DATA,");
    compareRows(rowsOf(kind), reinterpret_cast<Words>(*there), reinterpret_cast<Words>(*here), std::min(there[1], here[1]));
    rows_ += there[1];
  }
  void compareTexts(Words there, Words here) {
    EXPECT_EQ(sectionAt(*there).substr(0, 7), "__TEXT,");
    EXPECT_STREQ(reinterpret_cast<const char*>(*there), reinterpret_cast<const char*>(*here));
  }
  // All ones has the host read and write by itself.
  void compareFunctions(uint64_t there, uint64_t here) {
    const uint64_t hostAccess = reinterpret_cast<uint64_t>(host::directField);
    EXPECT_EQ(there == hostAccess, here == hostAccess);
    EXPECT_EQ(sectionAt(there), there == hostAccess ? "outside" : "__TEXT,__text");
  }
  std::unique_ptr<LoadedImage> image_;
};

TEST_F(Records, AreThoseOfThisSystem) {
  image().initialize();
  const auto there = recordsOf(image().symbol<EntryPoint>("_REALPluginMain"));
  EntryPoint* const entryPoint = entryPointHere();
  ASSERT_NE(entryPoint, nullptr) << dlerror();
  const auto here = recordsOf(entryPoint);
  ASSERT_EQ(there.size(), std::size(classNames));
  ASSERT_EQ(here.size(), std::size(classNames));
  for (size_t index = 0; index < there.size(); ++index) {
    SCOPED_TRACE(here[index]->name);
    compareRows(classOf, reinterpret_cast<Words>(there[index]), reinterpret_cast<Words>(here[index]), 1);
  }
  EXPECT_GT(rows_, 200U);
}

// The classes need no code of the library's to have run: the file's bytes, relocated, are the records.
TEST_F(Records, OfClassesLieRelocatedInTheData) {
  for (const char* name : classNames) {
    SCOPED_TRACE(name);
    const std::string symbol = "__ZN6plugin" + std::to_string(std::strlen(name) + 5) + name + "ClassE";
    const auto* record = image().symbol<const host::ClassRecord>(symbol);
    EXPECT_EQ(sectionAt(reinterpret_cast<uint64_t>(record)), "__DATA,__data");
    EXPECT_EQ(record->name, std::string(name) + "ZKT");
    if (record->constructor != nullptr) {
      EXPECT_EQ(sectionAt(reinterpret_cast<uint64_t>(record->constructor)), "__TEXT,__text");
    }
    EXPECT_EQ(sectionAt(reinterpret_cast<uint64_t>(record->methods)).substr(0, 7), "__DATA,");
    EXPECT_GT(record->methodCount, 0U);
    EXPECT_EQ(record->flags, 4U);
  }
}

}  // namespace
}  // namespace macos
