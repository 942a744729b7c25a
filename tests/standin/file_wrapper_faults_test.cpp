// File wrappers when things go wrong: what was there stays whole, nothing is left over, and the error says what it was.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <thread>

#include "tests/standin/file_wrapper_support.hpp"

// A file system that cannot exchange files, and where files went.
static bool exchangesFail = false;
static std::vector<std::string> movedFiles;

// Stand in front of the system's own.
extern "C" int renameat2(int oldFolder, const char* oldPath, int newFolder, const char* newPath, unsigned flags) {
  if (!exchangesFail) return static_cast<int>(syscall(SYS_renameat2, oldFolder, oldPath, newFolder, newPath, flags));
  errno = EINVAL;
  return -1;
}
extern "C" int rename(const char* from, const char* to) {
  movedFiles.emplace_back(from);
  return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

namespace {

using namespace file_wrapper_support;
namespace fs = std::filesystem;

TEST(FileWrapperFaults, ReadingSaysWhatWasWrong) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  fs::create_symlink("loop", scratch / "loop");
  scratch.file("file");
  ASSERT_EQ(mknod((scratch / "socket").c_str(), S_IFSOCK | 0600, 0), 0);
  const std::tuple<std::string, std::string, long> rows[] = {
      {"nowhere", "NSCocoaErrorDomain 260", ENOENT},   {"file/below", "NSCocoaErrorDomain 260", ENOTDIR},
      {"loop/below", "NSCocoaErrorDomain 256", ELOOP}, {std::string(300, 'n'), "NSCocoaErrorDomain 258", ENAMETOOLONG},
      {"socket", "NSCocoaErrorDomain 256", EINVAL},
  };
  NSFileWrapper* kept = fileWith("kept");
  for (const auto& [name, code, cause] : rows) {
    NSError* error = nullptr;
    EXPECT_EQ(read(scratch / name, 0, &error), nullptr);
    EXPECT_EQ(codeOf(error), code) << name;
    const auto under = static_cast<NSError*>(NSDictionary::objectForKey(NSError::userInfo(error), NSUnderlyingErrorKey));
    EXPECT_EQ(NSError::code(under), cause) << name;
    EXPECT_FALSE(NSFileWrapper::readFromURL(kept, url(scratch / name), immediate, nullptr));
    EXPECT_FALSE(NSFileWrapper::matchesContentsOfURL(kept, url(scratch / name)));
  }
  EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(kept)), "kept");
  for (NSURL* none : {static_cast<NSURL*>(nullptr), NSURL::URLWithString(classOf<NSURL>(), ns("http://example.org/x"))}) {
    NSError* error = nullptr;
    EXPECT_FALSE(NSFileWrapper::readFromURL(kept, none, 0, &error));
    EXPECT_EQ(codeOf(error), none == nullptr ? "NSCocoaErrorDomain 258" : "NSCocoaErrorDomain 262");
    EXPECT_FALSE(NSFileWrapper::writeToURL(kept, none, 0, nullptr, &error));
    EXPECT_EQ(codeOf(error), none == nullptr ? "NSCocoaErrorDomain 514" : "NSCocoaErrorDomain 518");
  }
}

// Files that go, change or shrink after they were found and before they were read.
TEST(FileWrapperFaults, FilesVanish) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  const auto make = [&] {
    scratch.file("t/gone", "1");
    scratch.file("t/changed", "2");
    scratch.file("t/folder/x", "3");
    scratch.file("t/large", std::string(2 << 20, 'm'));
    NSFileWrapper* tree = read(scratch / "t");
    NSFileWrapper::fileWrappers(tree);
    return tree;
  };
  NSFileWrapper* tree = make();
  NSFileWrapper* whole = read(scratch / "t", immediate);
  fs::remove(scratch / "t/gone");
  scratch.file("t/changed", "longer than before");
  fs::remove_all(scratch / "t/folder");
  fs::resize_file(scratch / "t/large", 10);
  for (const char* name : {"gone", "changed", "large"}) {
    EXPECT_EQ(NSFileWrapper::regularFileContents(child(tree, name)), nullptr) << name;
  }
  EXPECT_EQ(NSFileWrapper::fileWrappers(child(tree, "folder")), nullptr);
  EXPECT_EQ(NSFileWrapper::serializedRepresentation(tree), nullptr);
  EXPECT_EQ(NSFileWrapper::regularFileContents(child(whole, "large")), nullptr);
  EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(child(whole, "gone"))), "1");
  for (const NSUInteger options : {0UL, 1UL}) {
    for (const char* name : {"gone", "changed", "folder"}) {
      NSError* error = nullptr;
      NSFileWrapper* fresh = make();
      if (std::string(name) == "changed") {
        scratch.file("t/changed", "again longer than before");
      } else {
        fs::remove_all(scratch / ("t/" + std::string(name)));
      }
      EXPECT_FALSE(write(fresh, scratch / "out", options, &error)) << name;
      EXPECT_EQ(codeOf(error), std::string(name) == "changed" ? "NSCocoaErrorDomain 256" : "NSCocoaErrorDomain 260") << name;
      EXPECT_FALSE(fs::exists(scratch / "out"));
      fs::remove_all(scratch / "t");
    }
  }
  EXPECT_TRUE(fs::is_empty(scratch.path()));
}

// Names that no file can have are kept in memory and never reach the file system, there or elsewhere.
TEST(FileWrapperFaults, NamesThatAreNoFileNames) {
  for (const NSUInteger options : {0UL, 1UL}) {
    for (const std::string& name : {std::string(".."), std::string("."), std::string("/"), std::string("../escaped"),
                                    std::string("/tmp/escaped"), std::string("a/b"), std::string(256, 'n')}) {
      const TemporaryFolder scratch;
      AutoreleasePool pool;
      NSFileWrapper* tree = directory();
      add(tree, "fine", "1");
      EXPECT_EQ(add(tree, name.c_str(), "bad"), name);
      NSData* archive = NSFileWrapper::serializedRepresentation(tree);
      NSFileWrapper* thawed = pooled(NSFileWrapper::initWithSerializedRepresentation(alloc<NSFileWrapper>(), archive));
      for (NSFileWrapper* wrapper : {tree, thawed}) {
        NSError* error = nullptr;
        EXPECT_FALSE(write(wrapper, scratch / "in/t", options, &error));
        fs::create_directories(scratch / "in");
        EXPECT_FALSE(write(wrapper, scratch / "in/t", options, &error));
        EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 514") << name;
        EXPECT_TRUE(fs::is_empty(scratch / "in")) << name;
      }
      EXPECT_EQ(std::distance(fs::directory_iterator(scratch.path()), {}), 1);
    }
  }
}

// Runs the body as a user without rights of its own, where the tests run as root.
template <class Body>
void withoutRights(Body&& body) {
  const bool isRoot = geteuid() == 0;
  if (isRoot && seteuid(65534) != 0) return;
  body();
  if (isRoot && seteuid(0) != 0) abort();
}

TEST(FileWrapperFaults, FoldersThatMayNotBeWrittenOrRead) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  scratch.file("t/old", "old");
  scratch.file("t/secret", "secret");
  fs::permissions(scratch.path(), fs::perms(0755));
  fs::permissions(scratch / "t", fs::perms(0555));
  fs::permissions(scratch / "t/secret", fs::perms(0));
  const auto before = treeAt(scratch.path());
  NSFileWrapper* tree = directory();
  add(tree, "new", "new");
  withoutRights([&] {
    for (const NSUInteger options : {0UL, 1UL}) {
      for (const char* target : {"t/made", "t/old"}) {
        NSError* error = nullptr;
        EXPECT_FALSE(write(fileWith("x"), scratch / target, options, &error));
        EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 513") << target;
      }
      NSError* error = nullptr;
      EXPECT_FALSE(write(tree, scratch / "t/made", options, &error));
      EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 513");
    }
    NSError* error = nullptr;
    EXPECT_EQ(read(scratch / "t", immediate, &error), nullptr);
    EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 257");
    NSFileWrapper* lazy = read(scratch / "t", 0, &error);
    ASSERT_NE(lazy, nullptr);
    EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(child(lazy, "old"))), "old");
    EXPECT_EQ(NSFileWrapper::regularFileContents(child(lazy, "secret")), nullptr);
  });
  EXPECT_EQ(treeAt(scratch.path()), before);
}

// A tree whose folders may not be written is replaced and removed by its owner all the same.
TEST(FileWrapperFaults, TreesOfReadOnlyFolders) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  fs::permissions(scratch.path(), fs::perms(0777));
  withoutRights([&] {
    scratch.file("t/ro/x", "1");
    fs::permissions(scratch / "t/ro", fs::perms(0555));
    NSFileWrapper* tree = read(scratch / "t", immediate);
    for (int times = 0; times < 2; ++times) EXPECT_TRUE(write(tree, scratch / "t", atomic));
    add(tree, "..", "bad");
    EXPECT_FALSE(write(tree, scratch / "t", atomic));
    EXPECT_FALSE(write(tree, scratch / "u"));
    EXPECT_EQ(readFile((scratch / "t/ro/x").c_str()), "1");
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch.path()), {}), 1);
    fs::permissions(scratch / "t/ro", fs::perms(0755));
  });
}

void expectNothingLost(const std::string& folder, NSFileWrapper* tree, const char* code) {
  ASSERT_TRUE(write(fileWith("old"), folder + "/file"));
  NSFileWrapper* small = directory();
  add(small, "small", "fits");
  ASSERT_TRUE(write(small, folder + "/tree"));
  const auto before = treeAt(folder);
  NSError* error = nullptr;
  for (const auto& [wrapper, path, options] : {std::tuple(tree, "/tree", NSUInteger{1}),
                                               {tree, "/new", 0},
                                               {tree, "/new", 1},
                                               {child(tree, "large"), "/file", 0},
                                               {child(tree, "large"), "/file", 1}}) {
    EXPECT_FALSE(write(wrapper, folder + path, options, &error)) << path;
    EXPECT_EQ(codeOf(error), code) << path;
    EXPECT_EQ(treeAt(folder), before) << path;
  }
}

TEST(FileWrapperFaults, NoSpace) {
  AutoreleasePool pool;
  NSFileWrapper* tree = directory();
  add(tree, "first", "fits");
  add(tree, "large", std::string(4 << 20, 'x'));
  {
    // As a limit on the size of files.
    const TemporaryFolder scratch;
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit small{1 << 20, old.rlim_max};
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    expectNothingLost(scratch.path(), tree, "NSCocoaErrorDomain 512");
    setrlimit(RLIMIT_FSIZE, &old);
    signal(SIGXFSZ, handler);
  }
  const TemporaryFolder volume;
  if (mount("tmpfs", volume.path().c_str(), "tmpfs", 0, "size=1m") != 0) GTEST_SKIP() << "no right to mount a small volume";
  expectNothingLost(volume.path(), tree, "NSCocoaErrorDomain 640");
  umount(volume.path().c_str());
}

// Where files cannot be exchanged a file is never missing, and everything else is replaced all the same.
TEST(FileWrapperFaults, FileSystemsThatCannotExchange) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  NSFileWrapper* tree = directory();
  add(tree, "in", "side");
  const std::string target = scratch.file("target", "old");
  exchangesFail = true;
  const std::tuple<NSFileWrapper*, const char*, bool> rows[] = {
      {fileWith("new"), "file over file", false},   {linkTo("/"), "link over file", false},
      {fileWith("again"), "file over link", false}, {tree, "folder over file", true},
      {tree, "folder over folder", true},           {fileWith("last"), "file over folder", true}};
  for (const auto& [wrapper, what, mayBeMissing] : rows) {
    movedFiles.clear();
    EXPECT_TRUE(write(wrapper, target, atomic)) << what;
    EXPECT_EQ(std::find(movedFiles.begin(), movedFiles.end(), target) != movedFiles.end(), mayBeMissing) << what;
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch.path()), {}), 1) << what;
  }
  exchangesFail = false;
  EXPECT_EQ(readFile(target.c_str()), "last");
}

// A file that is cut while it is read gives all of its contents or none.
TEST(FileWrapperFaults, FilesShrinkWhileTheyAreRead) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  const std::string path = scratch.file("large");
  constexpr size_t size = 32 << 20;
  for (int times = 0; times < 10; ++times) {
    AutoreleasePool inner;
    fs::resize_file(path, size);
    NSFileWrapper* file = read(path, immediate);
    std::atomic<bool> isReading = false;
    std::thread cutting([&] {
      while (!isReading) std::this_thread::yield();
      std::this_thread::sleep_for(std::chrono::milliseconds(times));
      fs::resize_file(path, 0);
    });
    isReading = true;
    NSData* contents = NSFileWrapper::regularFileContents(file);
    cutting.join();
    EXPECT_TRUE(contents == nullptr || bytesOf(contents).size() == size);
    if (contents == nullptr) {
      EXPECT_EQ(NSFileWrapper::regularFileContents(file), nullptr);
    }
  }
}

TEST(FileWrapperFaults, ErrorsSayWhatBefellTheFile) {
  const struct {
    int systemError;
    NSInteger reading, writing;
    const char* text;
  } rows[] = {{EISDIR, 256, 512, "is a folder"},
              {ENOTEMPTY, 256, 512, "is a folder that is not empty"},
              {EMFILE, 256, 512, "cannot be opened while so many other files are open"},
              {EFBIG, 263, 512, "is too large"},
              {EDQUOT, 256, 640, "does not fit on the volume"}};
  AutoreleasePool pool;
  for (const auto& row : rows) {
    const auto reading = newFileError(FileAccess::reading, row.systemError, "/a/b");
    EXPECT_EQ(NSError::code(reading), row.reading) << row.text;
    EXPECT_EQ(NSError::code(newFileError(FileAccess::writing, row.systemError, "/a/b")), row.writing) << row.text;
    EXPECT_EQ(utf8(NSError::localizedDescription(reading)), "\"b\" " + std::string(row.text) + ".");
  }
}

TEST(FileWrapperFaults, EveryAlteredArchiveIsRefused) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  scratch.file("t/a", "alpha");
  scratch.file("t/b/c", "gamma");
  fs::create_symlink("a", scratch / "t/l");
  const std::string archive = contentOf(NSFileWrapper::serializedRepresentation(read(scratch / "t")));
  const auto opens = [](std::string bytesGiven) {
    return pooled(NSFileWrapper::initWithSerializedRepresentation(alloc<NSFileWrapper>(), bytes(std::move(bytesGiven)))) !=
           nullptr;
  };
  ASSERT_TRUE(opens(archive));
  for (size_t position = 0; position < archive.size(); ++position) {
    AutoreleasePool inner;
    EXPECT_FALSE(opens(archive.substr(0, position))) << position;
    for (const int altered : {0x01, 0x80, 0xFF}) {
      std::string changed = archive;
      changed[position] = static_cast<char>(changed[position] ^ altered);
      EXPECT_FALSE(opens(changed)) << position;
    }
  }
  for (const char* junk : {"", "plain", "{\\rtf1}"}) EXPECT_FALSE(opens(junk));
  EXPECT_FALSE(opens(archive + std::string(1, '\0')));
  EXPECT_EQ(pooled(NSFileWrapper::initWithSerializedRepresentation(alloc<NSFileWrapper>(), nullptr)), nullptr);
}

}  // namespace
