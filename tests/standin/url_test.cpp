// URLs: what is one, their parts, relative ones, file URLs, and the edits of the last component.
#include "standin/foundation/url.hpp"

#include <gtest/gtest.h>

#include "platform/corefoundation.h"
#include "tests/standin/foundation_support.hpp"

namespace {

using namespace foundation_support;

NSURL* url(std::string_view text) { return newURL(ns(text)).autorelease(); }
std::string part(NSObject* url, const char* message) { return utf8(send(url, message)); }
std::string absolute(NSObject* url) { return url != nullptr ? part(url, "absoluteString") : "(nil)"; }

TEST(URLs, WhatIsRefused) {
  const AutoreleasePool pool;
  for (const char* text :
       {"", "http://a b/", " http://a/", "http://a/%", "http://a/%4", "http://a/%zz", "http://a/<b>", "http://a/\"",
        "http://a/{b}", "http://a/b|c", "http://a/b\\c", "http://a/^", "http://a/`", "http://a/\xC3\xA9", "a#b#c", "a\nb"}) {
    EXPECT_EQ(url(text), nullptr) << text;
    EXPECT_EQ(CFURLCreateWithString(nullptr, ns(text), nullptr), nullptr) << text;
    EXPECT_EQ(NSURL::URLWithString(classOf<NSURL>(), ns(text)), nullptr) << text;
  }
  EXPECT_EQ(CFURLCreateWithString(nullptr, nullptr, nullptr), nullptr);
  EXPECT_EQ(CFURLCreateWithString(nullptr, newString(standin::text::Text::utf16(u"a\xD800")).autorelease(), nullptr),
            nullptr);
}

TEST(URLs, Parts) {
  const AutoreleasePool pool;
  struct Case {
    const char *text, *scheme, *host, *path, *query, *fragment, *last;
  };
  const Case cases[] = {
      {"http://www.example.org/a/b.html?x=1#top", "http", "www.example.org", "/a/b.html", "x=1", "top", "b.html"},
      {"http://example.org", "http", "example.org", "", "(nil)", "(nil)", ""},
      {"http://example.org/", "http", "example.org", "/", "(nil)", "(nil)", "/"},
      {"http://me:secret@[::1]:8080/x/", "http", "[::1]", "/x", "(nil)", "(nil)", "x"},
      {"file:///tmp/a%20b%C3%A9.txt", "file", "(nil)", "/tmp/a b\xC3\xA9.txt", "(nil)", "(nil)", "a b\xC3\xA9.txt"},
      {"file:///bad%FF", "file", "(nil)", "(nil)", "(nil)", "(nil)", "(nil)"},
      {"mailto:me@example.org", "mailto", "(nil)", "(nil)", "(nil)", "(nil)", "(nil)"},
      {"relative/path?", "(nil)", "(nil)", "relative/path", "", "(nil)", "path"},
      {"1a:b", "(nil)", "(nil)", "1a:b", "(nil)", "(nil)", "1a:b"},
      {"#only", "(nil)", "(nil)", "", "(nil)", "only", ""},
      {"x:/a%3Fb", "x", "(nil)", "/a?b", "(nil)", "(nil)", "a?b"},
  };
  for (const Case& row : cases) {
    NSURL* const made = url(row.text);
    ASSERT_NE(made, nullptr) << row.text;
    EXPECT_EQ(absolute(made), row.text);
    EXPECT_EQ(part(made, "scheme"), row.scheme) << row.text;
    EXPECT_EQ(part(made, "host"), row.host) << row.text;
    EXPECT_EQ(part(made, "path"), row.path) << row.text;
    EXPECT_EQ(part(made, "query"), row.query) << row.text;
    EXPECT_EQ(part(made, "fragment"), row.fragment) << row.text;
    EXPECT_EQ(part(made, "lastPathComponent"), row.last) << row.text;
  }
  NSURL* const full = url("http://me:secret@[::1]:8080/x.tar.gz");
  EXPECT_EQ(part(full, "user"), "me");
  EXPECT_EQ(part(full, "password"), "secret");
  EXPECT_EQ(NSNumber::intValue(send(full, "port")), 8080);
  EXPECT_EQ(part(full, "pathExtension"), "gz");
  EXPECT_EQ(part(url("file:///.profile"), "pathExtension"), "");
}

// The examples of RFC 2396, appendix C, but for those that climb above the root, which lose their dots.
TEST(URLs, RelativeOnesAreSeenFromTheirBase) {
  const AutoreleasePool pool;
  struct Case {
    const char *reference, *absolute;
  };
  const Case cases[] = {
      {"g:h", "g:h"},
      {"g", "http://a/b/c/g"},
      {"./g", "http://a/b/c/g"},
      {"g/", "http://a/b/c/g/"},
      {"/g", "http://a/g"},
      {"//g", "http://g"},
      {"g?y", "http://a/b/c/g?y"},
      {"#s", "http://a/b/c/d;p?q#s"},
      {"g#s", "http://a/b/c/g#s"},
      {"g?y#s", "http://a/b/c/g?y#s"},
      {";x", "http://a/b/c/;x"},
      {".", "http://a/b/c/"},
      {"./", "http://a/b/c/"},
      {"..", "http://a/b/"},
      {"../", "http://a/b/"},
      {"../g", "http://a/b/g"},
      {"../..", "http://a/"},
      {"../../g", "http://a/g"},
      {"../../../g", "http://a/g"},
      {"g.", "http://a/b/c/g."},
      {"..g", "http://a/b/c/..g"},
      {"./../g", "http://a/b/g"},
      {"g/./h", "http://a/b/c/g/h"},
      {"g/../h", "http://a/b/c/h"},
  };
  NSURL* const base = url("http://a/b/c/d;p?q");
  for (const Case& row : cases) {
    NSObject* const made = send(classNamed("NSURL"), "URLWithString:relativeToURL:", ns(row.reference), base);
    EXPECT_EQ(absolute(made), row.absolute) << row.reference;
    EXPECT_EQ(part(made, "relativeString"), row.reference);
    EXPECT_EQ(absolute(send(made, "absoluteURL")), row.absolute);
    EXPECT_EQ(send(send(made, "absoluteURL"), "baseURL"), nullptr);
  }
}

TEST(URLs, EqualityIsOfTextAndBase) {
  const AutoreleasePool pool;
  EXPECT_TRUE(NSObject::isEqual(url("http://a/b"), url("http://a/b")));
  EXPECT_EQ(NSObject::hash(url("http://a/b")), NSObject::hash(url("http://a/b")));
  EXPECT_FALSE(NSObject::isEqual(url("http://a/b"), url("http://a/b/")));
  EXPECT_FALSE(NSObject::isEqual(url("http://a/b"), ns("http://a/b")));
  NSURL* const relative = newURL(ns("b"), url("http://a/")).autorelease();
  EXPECT_TRUE(NSObject::isEqual(relative, newURL(ns("b"), url("http://a/"))));
  EXPECT_FALSE(NSObject::isEqual(relative, newURL(ns("b"), url("http://x/"))));
  EXPECT_FALSE(NSObject::isEqual(relative, url("b")));
}

TEST(FileURLs, FromPathsAndBack) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  struct Case {
    std::string path, absolute, posix;
  };
  const Case cases[] = {
      {"/no/such file", "file:///no/such%20file", "/no/such file"},
      {"/a;b?c#d%e", "file:///a%3Bb%3Fc%23d%25e", "/a;b?c#d%e"},
      {"/\xC3\xA9\xF0\x9F\x98\x80", "file:///%C3%A9%F0%9F%98%80", "/\xC3\xA9\xF0\x9F\x98\x80"},
      {folder.path(), "file://" + folder.path() + "/", folder.path()},
      {"/", "file:///", "/"},
      {"/none/", "file:///none/", "/none"},
      {"here.txt", "file://" + std::filesystem::current_path().string() + "/here.txt", "here.txt"},
      {"a:b", "file://" + std::filesystem::current_path().string() + "/a:b", "./a:b"},
  };
  for (const Case& row : cases) {
    NSURL* const made = NSURL::fileURLWithPath(classOf<NSURL>(), ns(row.path));
    EXPECT_EQ(absolute(made), row.absolute);
    EXPECT_EQ(utf8(adopt(CFURLCopyFileSystemPath(made, kCFURLPOSIXPathStyle)).get()), row.posix);
    EXPECT_TRUE(send<BOOL>(made, "isFileURL"));
  }
  EXPECT_NE(raised([] { NSURL::fileURLWithPath(classOf<NSURL>(), nullptr); }), "");
  EXPECT_FALSE(send<BOOL>(url("http://a/"), "isFileURL"));
  EXPECT_EQ(filePath(url("FILE://localhost/x")), "/x");
  EXPECT_EQ(filePath(url("file://elsewhere/x")), std::nullopt);
  EXPECT_EQ(filePath(url("file:///a%00b")), std::nullopt);
}

TEST(FileURLs, LastComponentEdits) {
  const AutoreleasePool pool;
  struct Case {
    const char *text, *appended, *folderAppended, *deleted, *last;
  };
  const Case cases[] = {
      {"file:///a/b", "file:///a/b/x%20y", "file:///a/b/x%20y/", "file:///a/", "b"},
      {"file:///a/b/", "file:///a/b/x%20y", "file:///a/b/x%20y/", "file:///a/", "b"},
      {"file:///", "file:///x%20y", "file:///x%20y/", "file:///../", "/"},
      {"http://a", "http://a/x%20y", "http://a/x%20y/", "http://a/../", ""},
      {"http://a/b?q#f", "http://a/b/x%20y?q#f", "http://a/b/x%20y/?q#f", "http://a/?q#f", "b"},
      {"b", "b/x%20y", "b/x%20y/", "./", "b"},
      {"mailto:x", "(nil)", "(nil)", "(nil)", "(nil)"},
  };
  for (const Case& row : cases) {
    NSURL* const made = url(row.text);
    const auto text = [](CFURLRef result) { return absolute(adopt(result).autorelease()); };
    EXPECT_EQ(text(CFURLCreateCopyAppendingPathComponent(nullptr, made, ns("x y"), 0)), row.appended);
    EXPECT_EQ(text(CFURLCreateCopyAppendingPathComponent(nullptr, made, ns("x y"), 1)), row.folderAppended);
    EXPECT_EQ(text(CFURLCreateCopyDeletingLastPathComponent(nullptr, made)), row.deleted);
    EXPECT_EQ(utf8(adopt(CFURLCopyLastPathComponent(made)).get()), row.last);
  }
}

}  // namespace
