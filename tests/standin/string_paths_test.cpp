// Strings as paths.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/standin/string_support.hpp"

namespace {

using string_support::raised;
using string_support::text;
using string_support::units;

TEST(Paths, AreTakenApart) {
  const struct {
    std::u16string path, last, folder, extension, standardized;
  } rows[] = {
      {u"/tmp/scratch.tiff", u"scratch.tiff", u"/tmp", u"tiff", u"/tmp/scratch.tiff"},
      {u"/tmp//folder/", u"folder", u"/tmp", u"", u"/tmp/folder"},
      {u"scratch.a.b", u"scratch.a.b", u"", u"b", u"scratch.a.b"},
      {u"/tmp", u"tmp", u"/", u"", u"/tmp"},
      {u"/", u"/", u"/", u"", u"/"},
      {u"", u"", u"", u"", u""},
      {u"/a/.hidden", u".hidden", u"/a", u"", u"/a/.hidden"},
      {u"/a.b/c", u"c", u"/a.b", u"", u"/a.b/c"},
      {u"/a/./b/../c", u"c", u"/a/./b/..", u"", u"/a/c"},
      {u"/../../x.", u"x.", u"/../..", u"", u"/x."},
      {u"../a", u"a", u"..", u"", u"../a"},
  };
  const Message<NSString*()> last{"lastPathComponent"}, folder{"stringByDeletingLastPathComponent"},
      extension{"pathExtension"}, standardize{"stringByStandardizingPath"};
  for (const auto& row : rows) {
    const AutoreleasePool pool;
    SCOPED_TRACE(testing::PrintToString(row.path));
    EXPECT_EQ(units(last(text(row.path))), row.last);
    EXPECT_EQ(units(folder(text(row.path))), row.folder);
    EXPECT_EQ(units(extension(text(row.path))), row.extension);
    EXPECT_EQ(units(standardize(text(row.path))), row.standardized);
  }
}

TEST(Paths, ArePutTogether) {
  const struct {
    std::u16string path, component, joined;
  } rows[] = {
      {u"/tmp", u"a.txt", u"/tmp/a.txt"},
      {u"/tmp/", u"a.txt", u"/tmp/a.txt"},
      {u"/", u"a", u"/a"},
      {u"", u"a", u"a"},
      {u"/tmp", u"/a/", u"/tmp/a"},
      {u"/tmp", u"", u"/tmp"},
  };
  for (const auto& row : rows) {
    const AutoreleasePool pool;
    EXPECT_EQ(units(NSString::stringByAppendingPathComponent(text(row.path), text(row.component))), row.joined);
  }
  const AutoreleasePool pool;
  const Message<NSString*(NSString*)> appendExtension{"stringByAppendingPathExtension:"};
  EXPECT_EQ(units(appendExtension(text(u"/tmp/a/"), text(u"rtf"))), u"/tmp/a.rtf");
  EXPECT_EQ(units(appendExtension(text(u"/"), text(u"rtf"))), u"/");
  EXPECT_NE(raised([] { NSString::stringByAppendingPathComponent(text(u"/"), nullptr); }), "");
}

TEST(Paths, ReachTheFileSystemAsUtf8OrNotAtAll) {
  const AutoreleasePool pool;
  EXPECT_STREQ(NSString::fileSystemRepresentation(text(u"/tmp/é\U0001F600")), "/tmp/é\xF0\x9F\x98\x80");
  EXPECT_EQ(raised([] { NSString::fileSystemRepresentation(text(u"/tmp/\xD800")); }).find("NSCharacterConversionException"),
            0U);
}

TEST(Paths, TheTemporaryFolderFollowsTheEnvironmentAndEndsInASlash) {
  const char* const set = std::getenv("TMPDIR");
  const std::string before = set != nullptr ? set : "";
  const struct {
    const char* variable;
    std::u16string path;
  } rows[] = {{"/var/tmp", u"/var/tmp/"}, {"/var/tmp/", u"/var/tmp/"}, {"", u"/tmp/"}, {nullptr, u"/tmp/"}};
  for (const auto& row : rows) {
    const AutoreleasePool pool;
    row.variable != nullptr ? setenv("TMPDIR", row.variable, 1) : unsetenv("TMPDIR");
    EXPECT_EQ(units(NSTemporaryDirectory()), row.path);
  }
  set != nullptr ? setenv("TMPDIR", before.c_str(), 1) : unsetenv("TMPDIR");
}

}  // namespace
