// Temporary files: nobody else can read them, and they are gone when the call ends.
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "tests/library/member_calls.hpp"

namespace {

namespace fs = std::filesystem;

// What the file that is being removed looked like.
struct stat removed;
IMP removeItem = nullptr;

BOOL noteAndRemove(NSObject* self, SEL selector, NSURL* url, NSError** error) {
  EXPECT_EQ(::lstat(NSString::UTF8String(Message<NSString*()>("path")(url)), &removed), 0);
  return reinterpret_cast<BOOL (*)(NSObject*, SEL, NSURL*, NSError**)>(removeItem)(self, selector, url, error);
}

using TemporaryFiles = calls::MemberTest;

// Whatever the process lets others do with its files otherwise.
TEST_F(TemporaryFiles, OfPDFsAreTheOwnersAloneAndGo) {
  std::string folder = (fs::temp_directory_path() / "temporaryXXXXXX").string();
  ASSERT_NE(::mkdtemp(folder.data()), nullptr);
  ::setenv("TMPDIR", folder.c_str(), 1);
  const mode_t mask = ::umask(0);
  const SEL selector = NSFileManager::removeItemAtURL.selector();
  const Class manager = objc_getClass("NSFileManager");
  removeItem = class_replaceMethod(manager, selector, reinterpret_cast<IMP>(&noteAndRemove), "c@:@@");
  testing::internal::CaptureStderr();
  {
    const AutoreleasePool pool;
    const auto pdf = calls::call(calls::text("private"), "GeneratePDF(PrintOptions as variant = nil) as MemoryBlock", {{}});
    EXPECT_FALSE(pdf.isNil());
  }
  testing::internal::GetCapturedStderr();
  class_replaceMethod(manager, selector, removeItem, "c@:@@");
  ::umask(mask);
  ::unsetenv("TMPDIR");
  EXPECT_EQ(removed.st_mode, S_IFREG | 0600U);
  EXPECT_GT(removed.st_size, 0) << "the PDF was not in it";
  EXPECT_TRUE(fs::is_empty(folder));
  fs::remove_all(folder);
}

}  // namespace
