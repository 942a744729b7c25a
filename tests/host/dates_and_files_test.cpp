// Dates, and folder items on the real file system.
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "host/runtime/date.hpp"
#include "host/runtime/folder_item.hpp"
#include "host/runtime/memory_block.hpp"
#include "platform/corefoundation.h"
#include "tests/host/runtime_support.hpp"

namespace host_test {
namespace {

namespace fs = std::filesystem;

class DatesTest : public RuntimeTest {};

TEST_F(DatesTest, CarryOverWhatIsOutOfRange) {
  const struct {
    DateComponents components;
    const char* text;
  } cases[] = {
      {{2014, 3, 5, 6, 7, 8}, "2014-03-05 06:07:08"},   {{2014, 13, 1, 0, 0, 0}, "2015-01-01 00:00:00"},
      {{2014, 3, 0, 0, 0, 0}, "2014-02-28 00:00:00"},   {{2000, 2, 30, 0, 0, 0}, "2000-03-01 00:00:00"},
      {{1900, 2, 29, 0, 0, 0}, "1900-03-01 00:00:00"},  {{2014, 0, 1, 0, 0, 0}, "2013-12-01 00:00:00"},
      {{2014, -11, 1, 0, 0, 0}, "2013-01-01 00:00:00"}, {{2013, 12, 31, 23, 59, 60}, "2014-01-01 00:00:00"},
      {{2014, 1, 1, 0, 0, -1}, "2013-12-31 23:59:59"},  {{1969, 12, 31, 24, 0, 0}, "1970-01-01 00:00:00"},
      {{1, 1, 1, 0, 0, 0}, "0001-01-01 00:00:00"},      {{2016, 2, 29, 12, 0, 0}, "2016-02-29 12:00:00"},
  };
  for (const auto& each : cases) {
    const HostOwned<HostObject> date = makeDate(each.components);
    EXPECT_EQ(toUtf8(read(date, "SQLDateTime")), each.text);
    date->type->findProperty("TotalSeconds")->write(date, read(date, "TotalSeconds"));
    EXPECT_EQ(toUtf8(read(date, "SQLDateTime")), each.text);
  }
  EXPECT_NE(thrownBy([] { makeDate({int64_t{1} << 62, 1, 1, 0, 0, 0}); }), "");
}

// Set from year to day, a date that no constructor has run for is never carried over.
TEST_F(DatesTest, BeginAtTheEpochUntilTheyAreConstructed) {
  for (const auto& [name, value] : {std::pair("2015-06-30", DateComponents{2015, 6, 30}), {"2023-02-28", {2023, 2, 28}}}) {
    const HostOwned<HostObject> date = runtime.newInstance("Date");
    EXPECT_EQ(toUtf8(read(date, "SQLDateTime")), "1904-01-01 00:00:00");
    const char* const properties[] = {"Year", "Month", "Day"};
    for (size_t index = 0; index < 3; ++index) {
      date->type->findProperty(properties[index])->write(date, Value::integer(value[index]));
    }
    EXPECT_EQ(toUtf8(read(date, "SQLDate")), name);
  }
  const HostOwned<HostObject> date = runtime.newInstance("Date");
  call(date, "Constructor");
  EXPECT_GT(toInteger(read(date, "Year")), 2020);
}

TEST_F(DatesTest, KnowTheirPlaceInWeekAndYear) {
  const HostOwned<HostObject> date = makeDate({2024, 12, 31, 1, 2, 3});
  EXPECT_EQ(toInteger(read(date, "DayOfYear")), 366);
  EXPECT_EQ(toInteger(read(date, "DayOfWeek")), 3);
  date->type->findProperty("SQLDateTime")->write(date, Value::string("1904-01-01"));
  EXPECT_EQ(toDouble(read(date, "TotalSeconds")), 0);
  EXPECT_EQ(toInteger(read(date, "DayOfWeek")), 6);
  EXPECT_EQ(thrownBy([&] { date->type->findProperty("SQLDate")->write(date, Value::string("soon")); }),
            "UnsupportedFormatException: \"soon\" is no SQL date.");
}

class FilesTest : public RuntimeTest {
 protected:
  void SetUp() override {
    RuntimeTest::SetUp();
    std::string pattern = (fs::temp_directory_path() / "host-test-XXXXXX").string();
    folder_ = fs::canonical(mkdtemp(pattern.data()));
  }
  void TearDown() override {
    fs::remove_all(folder_);
    RuntimeTest::TearDown();
  }
  HostOwned<HostObject> item(const std::string& name) const { return makeFolderItem((folder_ / name).string()); }

  fs::path folder_;
};

TEST_F(FilesTest, AreMadeReadAndDeleted) {
  const HostOwned<HostObject> file = item("new file.txt");
  EXPECT_FALSE(toBoolean(read(file, "Exists")));
  EXPECT_NE(thrownBy([&] { call(file, "ReadBytes"); }).find("IOException: "), std::string::npos);
  call(file, "WriteBytes", {Value::string("content")});
  EXPECT_EQ(toInteger(read(file, "Length")), 7);
  EXPECT_EQ(toUtf8(call(file, "ReadBytes")), "content");
  EXPECT_EQ(toUtf8(read(file, "URLPath")), "file://" + folder_.string() + "/new%20file.txt");
  EXPECT_FALSE(toBoolean(read(file, "Directory")));
  const Value parent = read(file, "Parent");
  EXPECT_TRUE(toBoolean(read(parent.asObject(), "Directory")));
  EXPECT_EQ(toUtf8(read(call(parent.asObject(), "TrueItem", {Value::integer(1)}).asObject(), "Name")), "new file.txt");
  EXPECT_TRUE(call(parent.asObject(), "TrueItem", {Value::integer(2)}).isNil());
  call(file, "Delete");
  EXPECT_FALSE(toBoolean(read(file, "Exists")));
  EXPECT_TRUE(read(makeFolderItem("/"), "Parent").isNil());
  EXPECT_EQ(pathOf(makeFolderItem(folder_.string() + "/a/../b/")), (folder_ / "b").string());
}

// A disk that is full, as far as one process can have it.
TEST_F(FilesTest, KeepWhatTheyHoldWhenWritingFails) {
  const HostOwned<HostObject> file = item("file"), link = item("link");
  call(file, "WriteBytes", {Value::string("content")});
  fs::permissions(folder_ / "file", fs::perms::owner_all);
  fs::create_symlink("file", folder_ / "link");
  call(link, "WriteBytes", {Value::string("through the link")});
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(fs::status(folder_ / "file").permissions(), fs::perms::owner_all);
  rlimit usual{};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit small{4096, usual.rlim_max};
  const auto ending = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const std::string thrown = thrownBy([&] { call(link, "WriteBytes", {Value::string(std::string(10000, 'x'))}); });
  setrlimit(RLIMIT_FSIZE, &usual);
  std::signal(SIGXFSZ, ending);
  EXPECT_TRUE(thrown.starts_with("IOException: ")) << thrown;
  EXPECT_EQ(toUtf8(call(file, "ReadBytes")), "through the link");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 2);
}

TEST_F(FilesTest, FoldersAreMadeAndCopied) {
  const HostOwned<HostObject> folder = item("folder"), copy = item("copy");
  call(folder, "CreateAsFolder");
  EXPECT_TRUE(toBoolean(read(folder, "IsFolder")));
  const Value file = call(folder, "Child", {Value::string("a")});
  call(file.asObject(), "WriteBytes", {Value::string("1")});
  call(folder, "CopyTo", {Value::object(copy)});
  EXPECT_EQ(toUtf8(call(call(copy, "Child", {Value::string("a")}).asObject(), "ReadBytes")), "1");
  EXPECT_EQ(toInteger(read(copy, "Count")), 1);
  const struct {
    const char* what;
    std::string exception;
    const char* expected;
  } cases[] = {
      {"reading a folder", thrownBy([&] { call(folder, "ReadBytes"); }), "IOException"},
      {"writing a folder", thrownBy([&] { call(folder, "WriteBytes", {Value::string("1")}); }), "IOException"},
      {"deleting a full folder", thrownBy([&] { call(folder, "Delete"); }), "IOException"},
      {"a folder in the place of a file", thrownBy([&] { call(file.asObject(), "CreateAsFolder"); }), "IOException"},
      {"a folder in no folder", thrownBy([&] { call(item("no/x"), "CreateAsFolder"); }), "IOException"},
      {"a name that is a path", thrownBy([&] { call(folder, "Child", {Value::string("a/b")}); }),
       "InvalidArgumentException"},
      {"no path", thrownBy([&] { call(folder, "Constructor", {Value()}); }), "InvalidArgumentException"},
      {"no destination", thrownBy([&] { call(folder, "CopyTo", {Value()}); }), "NilObjectException"},
  };
  for (const auto& each : cases) EXPECT_EQ(each.exception.substr(0, each.exception.find(':')), each.expected) << each.what;
}

TEST_F(FilesTest, AreFoundHoweverTheirNamesAreSpelled) {
  const char *composed = "\xC3\xA9t\xC3\xA9.txt", *decomposed = "e\xCC\x81te\xCC\x81.txt";
  for (const char* spelling : {composed, decomposed}) {
    std::ofstream(folder_ / spelling) << "x";
    for (const char* asked : {composed, decomposed}) {
      EXPECT_EQ(pathOf(item(asked)), (folder_ / spelling).string());
      EXPECT_TRUE(toBoolean(read(item(asked), "Exists")));
    }
    fs::remove(folder_ / spelling);
  }
}

// There and back through the platform's references: an existing file by itself, a new one by its folder and name.
TEST_F(FilesTest, TravelAsFileReferences) {
  const auto reference = service<bool(HostObject*, FSRef*, HFSUniStr255*)>("REALFSRefFromFolderItem");
  const auto back = service<HostObject*(const FSRef*, const HFSUniStr255*)>("REALFolderItemFromParentFSRef");
  FSRef found;
  HFSUniStr255 name = {};
  EXPECT_FALSE(reference(item("new"), &found, nullptr));
  EXPECT_TRUE(reference(makeFolderItem(folder_.string()), &found, nullptr));
  ASSERT_TRUE(reference(item("n\xC3\xA9w\xF0\x9F\x98\x80"), &found, &name));
  EXPECT_EQ(name.length, 5);
  const HostOwned<HostObject> again = adopt(back(&found, &name));
  EXPECT_EQ(pathOf(again), (folder_ / "n\xC3\xA9w\xF0\x9F\x98\x80").string());
  EXPECT_FALSE(reference(item("no folder/x"), &found, &name));
  EXPECT_FALSE(reference(makeFolderItem("/"), &found, &name));
  EXPECT_FALSE(reference(item(std::string(256, 'x')), &found, &name));
  EXPECT_TRUE(reference(item(std::string(255, 'x')), &found, &name));
  EXPECT_FALSE(reference(nullptr, &found, &name));
}

}  // namespace
}  // namespace host_test
