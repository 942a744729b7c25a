// Files: references that survive renames, the catalog, the file manager, errors, bundles, data by URL.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "platform/corefoundation.h"
#include "standin/foundation/data.hpp"
#include "standin/foundation/error.hpp"
#include "standin/foundation/file_reference.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/url.hpp"
#include "tests/standin/foundation_support.hpp"

namespace {

using namespace foundation_support;

NSURL* fileURL(const std::string& path) { return newFileURL(path, false).autorelease(); }

FSRef reference(const std::string& path) {
  FSRef made{};
  EXPECT_TRUE(CFURLGetFSRef(fileURL(path), &made)) << path;
  return made;
}

// "error N" when there is none.
std::string pathOfReference(const FSRef& reference) {
  uint8_t path[4096] = {};
  const OSStatus status = FSRefMakePath(&reference, path, sizeof path);
  return status == noErr ? reinterpret_cast<const char*>(path) : "error " + std::to_string(status);
}

std::u16string leafName(const FSRef& reference) {
  HFSUniStr255 name;
  EXPECT_EQ(FSGetCatalogInfo(&reference, kFSCatInfoNone, nullptr, &name, nullptr, nullptr), noErr);
  return std::u16string(name.unicode, name.length);
}

TEST(FileReferences, FollowTheirFile) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  const FSRef file = reference(folder.file("a/b/file.txt"));
  const FSRef inner = reference(folder / "a/b");
  EXPECT_EQ(pathOfReference(file), folder / "a/b/file.txt");
  ASSERT_EQ(rename((folder / "a/b/file.txt").c_str(), (folder / "a/b/other.txt").c_str()), 0);
  EXPECT_EQ(pathOfReference(file), folder / "a/b/other.txt");
  ASSERT_EQ(rename((folder / "a/b/other.txt").c_str(), (folder / "moved.txt").c_str()), 0);
  EXPECT_EQ(pathOfReference(file), folder / "moved.txt");
  ASSERT_EQ(rename((folder / "a").c_str(), (folder / "z").c_str()), 0);
  EXPECT_EQ(pathOfReference(inner), folder / "z/b");
  EXPECT_EQ(utf8(send(adopt(CFURLCreateFromFSRef(nullptr, &file)).autorelease(), "path")), folder / "moved.txt");
}

// More files than descriptors are kept: those left behind are found by their folder.
TEST(FileReferences, FollowAlsoWhenThereAreMany) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  std::vector<FSRef> references;
  for (int number = 0; number < 200; ++number) references.push_back(reference(folder.file("in/" + std::to_string(number))));
  for (int number = 0; number < 200; ++number) {
    const std::string name = std::to_string(number);
    ASSERT_EQ(rename((folder / ("in/" + name)).c_str(), (folder / ("in/new" + name)).c_str()), 0);
  }
  ASSERT_EQ(rename((folder / "in").c_str(), (folder / "out").c_str()), 0);
  for (const int number : {0, 1, 100, 199})
    EXPECT_EQ(pathOfReference(references[static_cast<size_t>(number)]), folder / ("out/new" + std::to_string(number)));
}

TEST(FileReferences, FailForWhatIsGone) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  const FSRef file = reference(folder.file("file"));
  ASSERT_EQ(unlink((folder / "file").c_str()), 0);
  FSRef garbage;
  memset(&garbage, 0x5A, sizeof garbage);
  for (const FSRef& dead : {file, FSRef{}, garbage}) {
    EXPECT_EQ(pathOfReference(dead), "error -43");
    EXPECT_NE(FSGetCatalogInfo(&dead, kFSCatInfoNone, nullptr, nullptr, nullptr, nullptr), noErr);
    EXPECT_EQ(CFURLCreateFromFSRef(nullptr, &dead), nullptr);
  }
  FSRef unused;
  EXPECT_FALSE(CFURLGetFSRef(fileURL(folder / "never"), &unused));
  EXPECT_FALSE(CFURLGetFSRef(newURL(ns("http://a/b")).autorelease(), &unused));
  EXPECT_FALSE(CFURLGetFSRef(nullptr, &unused));
  uint8_t tiny[4];
  const FSRef own = reference(folder.path());
  EXPECT_NE(FSRefMakePath(&own, tiny, sizeof tiny), noErr);
}

TEST(FileReferences, SymbolicAndHardLinksAreFilesOfTheirOwn) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  folder.file("real/file");
  std::filesystem::create_symlink(folder / "real/file", folder / "symbolic");
  std::filesystem::create_directory_symlink(folder / "real", folder / "way");
  std::filesystem::create_hard_link(folder / "real/file", folder / "hard");
  EXPECT_EQ(pathOfReference(reference(folder / "symbolic")), folder / "symbolic");
  EXPECT_EQ(pathOfReference(reference(folder / "way/file")), folder / "real/file");
  const FSRef hard = reference(folder / "hard");
  const FSRef file = reference(folder / "real/file");
  EXPECT_EQ(pathOfReference(hard), folder / "hard");
  EXPECT_EQ(pathOfReference(file), folder / "real/file");
}

TEST(Catalog, NodesNamesAndParents) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  const FSRef file = reference(folder.file("caf\xC3\xA9\xF0\x9F\x98\x80"));
  EXPECT_EQ(leafName(file), u"cafe\u0301\U0001F600");
  EXPECT_EQ(leafName(reference("/")), u"/");
  FSCatalogInfo info{};
  FSRef parent;
  ASSERT_EQ(FSGetCatalogInfo(&file, kFSCatInfoNodeID, &info, nullptr, nullptr, &parent), noErr);
  EXPECT_NE(info.nodeID, 2u);
  EXPECT_EQ(pathOfReference(parent), folder.path());
  const FSRef root = reference("/");
  ASSERT_EQ(FSGetCatalogInfo(&root, kFSCatInfoNodeID, &info, nullptr, nullptr, &parent), noErr);
  EXPECT_EQ(info.nodeID, 2u);
  EXPECT_NE(FSGetCatalogInfo(&parent, kFSCatInfoNone, nullptr, nullptr, nullptr, nullptr), noErr);
  EXPECT_NE(FSGetCatalogInfo(&root, 0x8000, &info, nullptr, nullptr, nullptr), noErr);
  EXPECT_NE(FSGetCatalogInfo(&root, kFSCatInfoNodeID, nullptr, nullptr, nullptr, nullptr), noErr);
}

// A name that no string can hold still has a path.
TEST(Catalog, NamesThatAreNoText) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  FSRef file;
  ASSERT_TRUE(makeReference(folder.file("bad\xFF"), &file));
  HFSUniStr255 name;
  EXPECT_NE(FSGetCatalogInfo(&file, kFSCatInfoNone, nullptr, &name, nullptr, nullptr), noErr);
  EXPECT_EQ(pathOfReference(file), folder / "bad\xFF");
}

// The platform knows a file by its name however that is composed.
TEST(FileNames, ComposedAndDecomposedNamesAreOne) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  const std::string composed = folder.file("\xC3\xA9t\xC3\xA9/caf\xC3\xA9.txt", "inside");
  const std::string decomposed = folder / "e\xCC\x81te\xCC\x81/cafe\xCC\x81.txt";
  EXPECT_EQ(existingPath(decomposed), composed);
  EXPECT_EQ(existingPath(folder / "e\xCC\x81te\xCC\x81/new\xCC\x81"), folder / "\xC3\xA9t\xC3\xA9/new\xCC\x81");
  EXPECT_EQ(pathOfReference(reference(decomposed)), composed);
  EXPECT_EQ(bytesOf(NSData::dataWithContentsOfURL(classOf<NSData>(), fileURL(decomposed))).size(), 6u);
}

TEST(FrameworksFolder, LiesBesideTheProgram) {
  const AutoreleasePool pool;
  FSRef found;
  const std::string expected = folderOf(executablePath()) + "/Frameworks";
  const bool existed = isFolder(expected);
  if (!existed) {
    EXPECT_NE(FSFindFolder(kOnAppropriateDisk, kFrameworksFolderType, 0, &found), noErr);
  }
  EXPECT_EQ(FSFindFolder(kOnAppropriateDisk, kFrameworksFolderType, 1, &found), noErr);
  EXPECT_EQ(pathOfReference(found), expected);
  EXPECT_NE(FSFindFolder(kOnAppropriateDisk, 0x74656D70, 1, &found), noErr);
  if (!existed) rmdir(expected.c_str());
}

TEST(Bundles, LoadTheirCode) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  const auto bundle = [&](const std::string& path) {
    return adopt(CFBundleCreate(nullptr, newFileURL(path, true))).autorelease();
  };
  EXPECT_EQ(bundle(folder / "None.framework"), nullptr);
  std::filesystem::create_directory(folder / "Empty.framework");
  EXPECT_FALSE(CFBundleLoadExecutable(bundle(folder / "Empty.framework")));
  folder.file("Broken.framework/Broken", "no code");
  EXPECT_FALSE(CFBundleLoadExecutable(bundle(folder / "Broken.framework")));
  std::filesystem::create_directory(folder / "Good.framework");
  std::error_code error;
  for (const auto& line : {"/lib/x86_64-linux-gnu/libz.so.1", "/lib/aarch64-linux-gnu/libz.so.1"})
    std::filesystem::create_symlink(line, folder / "Good.framework/Good", error), error.clear();
  if (std::filesystem::exists(folder / "Good.framework/Good")) {
    EXPECT_TRUE(CFBundleLoadExecutable(bundle(folder / "Good.framework")));
  }
  EXPECT_FALSE(CFBundleLoadExecutable(nullptr));
  EXPECT_EQ(CFGetTypeID(bundle(folder.path())), CFBundleGetTypeID());
  NSObject* const main = send(classNamed("NSBundle"), "mainBundle");
  EXPECT_EQ(utf8(send(main, "executablePath")), executablePath());
  EXPECT_EQ(send(classNamed("NSBundle"), "bundleWithPath:", ns(folder / "none")), nullptr);
}

TEST(FileManager, AnswersAndErrors) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  NSFileManager* const manager = NSFileManager::defaultManager(classOf<NSFileManager>());
  folder.file("d/b"), folder.file("d/a"), folder.file("d/sub/c");
  BOOL isDirectory = NO;
  EXPECT_TRUE(send<BOOL>(manager, "fileExistsAtPath:isDirectory:", ns(folder / "d"), &isDirectory));
  EXPECT_TRUE(isDirectory);
  EXPECT_FALSE(send<BOOL>(manager, "fileExistsAtPath:", ns(folder / "none")));
  EXPECT_FALSE(send<BOOL>(manager, "fileExistsAtPath:", static_cast<NSString*>(nullptr)));
  EXPECT_EQ(utf8(NSFileManager::stringWithFileSystemRepresentation(manager, "a\xC3\xA9-and-more", 3)), "a\xC3\xA9");
  EXPECT_EQ(NSFileManager::stringWithFileSystemRepresentation(manager, "\xFF", 1), nullptr);

  NSError** const ignored = nullptr;
  NSObject* const names = send(manager, "contentsOfDirectoryAtPath:error:", ns(folder / "d"), ignored);
  EXPECT_EQ(utf8(send(names, "componentsJoinedByString:", ns(","))), "a,b,sub");
  NSObject* const paths = send(send(manager, "enumeratorAtPath:", ns(folder / "d")), "allObjects");
  EXPECT_EQ(utf8(send(paths, "componentsJoinedByString:", ns(","))), "a,b,sub,sub/c");

  NSError* error = nullptr;
  EXPECT_EQ(send(manager, "contentsOfDirectoryAtPath:error:", ns(folder / "none"), &error), nullptr);
  EXPECT_EQ(NSError::code(error), fileReadNoSuchFile);
  const char* const create = "createDirectoryAtPath:withIntermediateDirectories:attributes:error:";
  NSDictionary* const none = nullptr;
  EXPECT_FALSE(send<BOOL>(manager, create, ns(folder / "x/y"), NO, none, &error));
  EXPECT_EQ(NSError::code(error), fileNoSuchFile);
  EXPECT_TRUE(send<BOOL>(manager, create, ns(folder / "x/y"), YES, none, &error));
  EXPECT_FALSE(send<BOOL>(manager, create, ns(folder / "x/y"), NO, none, &error));
  EXPECT_EQ(NSError::code(error), fileWriteFileExists);
  EXPECT_FALSE(send<BOOL>(manager, "moveItemAtPath:toPath:error:", ns(folder / "d/a"), ns(folder / "d/b"), &error));
  EXPECT_TRUE(send<BOOL>(manager, "moveItemAtPath:toPath:error:", ns(folder / "d/a"), ns(folder / "x/a"), &error));

  std::filesystem::create_directory_symlink(folder / "d", folder / "link");
  EXPECT_TRUE(NSFileManager::removeItemAtURL(manager, fileURL(folder / "link"), &error));
  EXPECT_TRUE(std::filesystem::exists(folder / "d/b"));
  EXPECT_TRUE(NSFileManager::removeItemAtURL(manager, fileURL(folder / "d"), &error));
  EXPECT_FALSE(std::filesystem::exists(folder / "d"));
  error = nullptr;
  EXPECT_FALSE(NSFileManager::removeItemAtURL(manager, fileURL(folder / "d"), &error));
  EXPECT_TRUE(NSObject::isEqual(NSError::domain(error), NSCocoaErrorDomain));
  EXPECT_EQ(NSError::code(error), fileNoSuchFile);
  EXPECT_FALSE(NSFileManager::removeItemAtURL(manager, newURL(ns("http://a/b")), ignored));
}

TEST(Errors, SayWhatWentWrong) {
  const AutoreleasePool pool;
  NSError* error = nullptr;
  const TemporaryFolder folder;
  const std::string path = folder / "missing.txt";
  NSUInteger const options = 0;
  EXPECT_EQ(send(classNamed("NSData"), "dataWithContentsOfURL:options:error:", fileURL(path), options, &error), nullptr);
  EXPECT_EQ(NSError::code(error), 260);
  EXPECT_NE(utf8(NSError::localizedDescription(error)).find("missing.txt"), std::string::npos);
  EXPECT_EQ(utf8(NSDictionary::objectForKey(NSError::userInfo(error), NSFilePathErrorKey)), path);
  auto* const cause = static_cast<NSError*>(NSDictionary::objectForKey(NSError::userInfo(error), NSUnderlyingErrorKey));
  EXPECT_EQ(utf8(NSError::domain(cause)), "NSPOSIXErrorDomain");
  EXPECT_EQ(NSError::code(cause), ENOENT);
  struct Case {
    int systemError;
    NSInteger reading, writing;
  };
  for (const Case& row : {Case{EACCES, 257, 513}, {ENOSPC, 256, 640}, {EROFS, 256, 642}, {EIO, 256, 512}}) {
    EXPECT_EQ(NSError::code(newFileError(FileAccess::reading, row.systemError, "/x")), row.reading);
    EXPECT_EQ(NSError::code(newFileError(FileAccess::writing, row.systemError, "/x")), row.writing);
  }
}

TEST(Errors, AreValues) {
  const AutoreleasePool pool;
  const Class cls = classOf<NSError>();
  NSError* const bare = NSError::errorWithDomain(cls, ns("domain"), -7, nullptr);
  EXPECT_EQ(NSError::code(bare), -7);
  EXPECT_EQ(NSDictionary::count(NSError::userInfo(bare)), 0u);
  EXPECT_NE(utf8(NSError::localizedDescription(bare)).find("domain -7"), std::string::npos);
  EXPECT_TRUE(NSObject::isEqual(bare, NSError::errorWithDomain(cls, ns("domain"), -7, nullptr)));
  EXPECT_FALSE(NSObject::isEqual(bare, NSError::errorWithDomain(cls, ns("domain"), 7, nullptr)));
  EXPECT_EQ(utf8(NSError::localizedDescription(newError(NSPOSIXErrorDomain, 1, "what happened"))), "what happened");
  EXPECT_NE(raised([&] { NSError::errorWithDomain(cls, nullptr, 1, nullptr); }), "");
}

TEST(DataByURL, ReadsAndWrites) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  NSData* const data = NSData::dataWithBytes(classOf<NSData>(), "a\0b", 3);
  EXPECT_TRUE(send<BOOL>(data, "writeToURL:atomically:", fileURL(folder / "out file"), YES));
  NSData* const read = NSData::dataWithContentsOfURL(classOf<NSData>(), fileURL(folder / "out file"));
  EXPECT_TRUE(NSObject::isEqual(read, data));
  EXPECT_FALSE(send<BOOL>(data, "writeToURL:atomically:", fileURL(folder / "none/out"), YES));
  EXPECT_EQ(NSData::dataWithContentsOfURL(classOf<NSData>(), fileURL(folder / "none")), nullptr);
  EXPECT_EQ(NSData::dataWithContentsOfURL(classOf<NSData>(), fileURL(folder.path())), nullptr);
  EXPECT_EQ(NSData::dataWithContentsOfURL(classOf<NSData>(), newURL(ns("http://a/"))), nullptr);
  EXPECT_EQ(NSData::dataWithContentsOfURL(classOf<NSData>(), nullptr), nullptr);
}

}  // namespace
