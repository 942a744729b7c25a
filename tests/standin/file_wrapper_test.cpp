// File wrappers in memory and on disk: children and their names, reading, writing, matching, attributes, archives.
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/standin/file_wrapper_support.hpp"

namespace {

using namespace file_wrapper_support;
namespace fs = std::filesystem;

TEST(FileWrapper, ChildrenHaveUniqueNames) {
  AutoreleasePool pool;
  NSFileWrapper* folder = directory();
  EXPECT_EQ(add(folder, "a", "1"), "a");
  EXPECT_EQ(add(folder, "a", "2"), "1__#$!@%!#__a");
  EXPECT_EQ(add(folder, "a", "3"), "2__#$!@%!#__a");
  NSFileWrapper* second = child(folder, "1__#$!@%!#__a");
  EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(second)), "2");
  EXPECT_EQ(utf8(NSFileWrapper::keyForFileWrapper(folder, second)), "1__#$!@%!#__a");
  NSFileWrapper::removeFileWrapper(folder, second);
  EXPECT_EQ(NSFileWrapper::keyForFileWrapper(folder, second), nullptr);
  EXPECT_EQ(add(folder, "a", "4"), "1__#$!@%!#__a");
  // A new preferred name gives a child a new key, in every directory that holds it.
  NSFileWrapper *shared = named("s", fileWith("shared")), *other = directory();
  EXPECT_EQ(utf8(NSFileWrapper::addFileWrapper(folder, shared)), "s");
  EXPECT_EQ(utf8(NSFileWrapper::addFileWrapper(other, shared)), "s");
  NSFileWrapper::setPreferredFilename(shared, ns("a"));
  EXPECT_EQ(utf8(NSFileWrapper::keyForFileWrapper(folder, shared)), "3__#$!@%!#__a");
  EXPECT_EQ(utf8(NSFileWrapper::keyForFileWrapper(other, shared)), "a");
  EXPECT_EQ(NSDictionary::count(NSFileWrapper::fileWrappers(folder)), 4U);
}

// Names as long as names can be stay names that files can have, and different ones.
TEST(FileWrapper, ClashesOfTheLongestNames) {
  const std::string accents = [] {
    std::string text;
    while (text.size() < 250) text += "\xC3\xA9";
    return text;
  }();
  for (const auto& [name, ending] : {std::pair(std::string(255, 'n'), std::string("nnn")),
                                     {std::string(251, 'n') + ".png", "n.png"},
                                     {accents + "x.png", ".png"},
                                     {"." + std::string(254, 'h'), "h"}}) {
    const TemporaryFolder scratch;
    AutoreleasePool pool;
    NSFileWrapper* folder = directory();
    for (const char* content : {"1", "2", "3"}) {
      NSFileWrapper* file = fileWith(content);
      NSFileWrapper::setPreferredFilename(file, ns(name));
      const std::string key = utf8(NSFileWrapper::addFileWrapper(folder, file));
      EXPECT_TRUE(key.ends_with(ending)) << key;
      EXPECT_EQ(key.find("\xC3\x83"), key.npos) << "a letter was cut: " << key;
    }
    EXPECT_TRUE(write(folder, scratch / "f")) << name;
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch / "f"), {}), 3) << name;
  }
}

// What a clash made of the names is undone by reading.
TEST(FileWrapper, ClashingNamesComeBack) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  NSFileWrapper* folder = directory();
  add(folder, "a.txt", "1");
  add(folder, "a.txt", "2");
  ASSERT_TRUE(write(folder, scratch / "f"));
  NSFileWrapper* again = child(read(scratch / "f"), "1__#$!@%!#__a.txt");
  EXPECT_EQ(utf8(NSFileWrapper::preferredFilename(again)), "a.txt");
  EXPECT_EQ(utf8(NSFileWrapper::filename(again)), "1__#$!@%!#__a.txt");
}

TEST(FileWrapper, RefusesWhatThePlatformRefuses) {
  AutoreleasePool pool;
  NSFileWrapper *file = fileWith("x"), *folder = directory(), *link = linkTo("/tmp");
  NSFileWrapper* nameless = fileWith("y");
  NSFileWrapper* inner = named("inner", directory());
  NSFileWrapper::addFileWrapper(folder, inner);
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"NSInternalInconsistencyException", [&] { NSFileWrapper::fileWrappers(file); }},
      {"NSInternalInconsistencyException", [&] { NSFileWrapper::regularFileContents(folder); }},
      {"NSInternalInconsistencyException", [&] { NSFileWrapper::symbolicLinkDestinationURL(file); }},
      {"NSInternalInconsistencyException", [&] { NSFileWrapper::addFileWrapper(link, file); }},
      {"NSInternalInconsistencyException", [&] { NSFileWrapper::removeFileWrapper(file, folder); }},
      {"NSInternalInconsistencyException", [&] { NSFileWrapper::keyForFileWrapper(file, folder); }},
      {"NSInvalidArgumentException", [&] { NSFileWrapper::addFileWrapper(folder, nameless); }},
      {"NSInvalidArgumentException", [&] { NSFileWrapper::addFileWrapper(folder, nullptr); }},
      {"NSInvalidArgumentException", [&] { NSFileWrapper::addFileWrapper(inner, named("loop", folder)); }},
      {"NSInvalidArgumentException", [&] { NSFileWrapper::addFileWrapper(folder, folder); }},
      {"NSInvalidArgumentException", [&] { NSFileWrapper::addRegularFileWithContents(folder, bytes(""), ns("")); }},
      {"NSInvalidArgumentException", [&] { NSFileWrapper::setPreferredFilename(file, nullptr); }},
      {"NSInvalidArgumentException", [&] { NSFileWrapper::setFilename(file, ns("")); }},
      {"NSInvalidArgumentException",
       [&] {
         NSFileWrapper::initDirectoryWithFileWrappers(alloc<NSFileWrapper>(), newDictionary({{ns("k"), ns("v")}}));
       }},
  };
  for (const auto& [name, message] : rows) EXPECT_EQ(raised(message).substr(0, std::string_view(name).size()), name);
}

// A tree of every kind of file and name, written in each way and read in each way, with nothing changed.
TEST(FileWrapper, TreesComeBackAsTheyWere) {
  const TemporaryFolder scratch;
  const std::string longest(255, 'x');
  for (const char* name : {"plain.txt", "sp ace", "\xC3\xA9 accent", "deep/er/still/x", "empty/.keep", "\xFF not UTF-8"}) {
    scratch.file("tree/" + std::string(name), std::string(name) + std::string("\0\xFF", 2));
  }
  scratch.file("tree/" + longest, std::string((1 << 20) + 1, 'L'));
  scratch.file("tree/nothing", "");
  fs::remove(scratch / "tree/empty/.keep");
  fs::create_symlink("../plain.txt", scratch / "tree/deep/link");
  fs::create_symlink("loop", scratch / "tree/loop");
  fs::create_symlink("/nowhere at all", scratch / "tree/dangling");
  fs::permissions(scratch / "tree/plain.txt", fs::perms(0640));
  fs::permissions(scratch / "tree/deep", fs::perms(0711));
  const auto before = treeAt(scratch / "tree");
  ASSERT_EQ(before.size(), 14U);
  int number = 0;
  for (const NSUInteger reading : {0UL, 1UL, 3UL}) {
    for (const NSUInteger writing : {0UL, 1UL, 3UL}) {
      AutoreleasePool pool;
      NSError* error = nullptr;
      NSFileWrapper* tree = read(scratch / "tree", reading, &error);
      ASSERT_NE(tree, nullptr) << codeOf(error);
      const std::string copy = scratch / ("copy" + std::to_string(number++));
      ASSERT_TRUE(write(tree, copy, writing, &error)) << codeOf(error);
      EXPECT_EQ(treeAt(copy), before) << "reading " << reading << ", writing " << writing;
      EXPECT_TRUE(NSFileWrapper::matchesContentsOfURL(tree, url(copy)));
      NSData* archive = NSFileWrapper::serializedRepresentation(tree);
      NSFileWrapper* thawed = pooled(NSFileWrapper::initWithSerializedRepresentation(alloc<NSFileWrapper>(), archive));
      ASSERT_TRUE(write(thawed, copy + "a", writing, &error)) << codeOf(error);
      EXPECT_EQ(treeAt(copy + "a"), before);
    }
  }
  EXPECT_EQ(treeAt(scratch / "tree"), before);
  for (const auto& entry : fs::directory_iterator(scratch.path())) EXPECT_NE(entry.path().filename().string()[0], '.');
}

TEST(FileWrapper, ManyFiles) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  for (int index = 0; index < 10'000; ++index) {
    const std::string name = "t/" + std::to_string(index % 40) + "/" + std::to_string(index);
    if (index % 100 == 99) {
      fs::create_symlink(std::to_string(index - 40), scratch / name);
    } else {
      scratch.file(name, std::string(static_cast<size_t>(index % 700), 'q'));
    }
  }
  NSFileWrapper* tree = read(scratch / "t", immediate);
  ASSERT_TRUE(write(tree, scratch / "u", atomic));
  EXPECT_EQ(treeAt(scratch / "t"), treeAt(scratch / "u"));
}

TEST(FileWrapper, WritingOverWhatIsThere) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  NSFileWrapper *file = fileWith("new"), *folder = directory();
  add(folder, "in", "side");
  const std::string oldFile = scratch.file("file", "old"), oldFolder = fs::path(scratch.file("folder/old")).parent_path();
  NSError* error = nullptr;
  // In place a folder is not replaced, and a file not by a folder.
  for (const auto& [wrapper, path] :
       {std::pair(folder, oldFolder), {folder, oldFile}, {file, oldFolder}, {linkTo("/"), oldFile}}) {
    EXPECT_FALSE(write(wrapper, path, 0, &error));
    EXPECT_NE(error, nullptr);
  }
  EXPECT_FALSE(write(folder, oldFolder, 0, &error));
  EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 516");
  EXPECT_TRUE(fs::exists(oldFolder + "/old"));
  EXPECT_TRUE(write(file, oldFile));
  EXPECT_EQ(readFile(oldFile.c_str()), "new");
  // In one piece everything is.
  EXPECT_TRUE(write(folder, oldFolder, atomic));
  EXPECT_FALSE(fs::exists(oldFolder + "/old"));
  EXPECT_TRUE(fs::exists(oldFolder + "/in"));
  EXPECT_TRUE(write(folder, oldFile, atomic));
  EXPECT_TRUE(write(file, oldFolder, atomic));
  EXPECT_EQ(readFile(oldFolder.c_str()), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(scratch.path()), {}), 2);
}

// A file that is overwritten keeps its place: its permissions, the link it is reached by, the right to refuse.
TEST(FileWrapper, OverwrittenFiles) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  const std::string path = scratch.file("file", "old");
  fs::permissions(path, fs::perms(0604));
  fs::create_symlink("file", scratch / "link");
  NSFileWrapper* file = fileWith("new");
  for (const char* name : {"file", "link"}) {
    ASSERT_TRUE(write(file, scratch / name, updatingNames));
    EXPECT_EQ(utf8(NSFileWrapper::filename(file)), name);
    EXPECT_EQ(readFile(path.c_str()), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0604));
  }
  EXPECT_TRUE(fs::is_symlink(scratch / "link"));
  for (const NSUInteger options : {NSUInteger{updatingNames}, NSUInteger{0}}) {
    fs::last_write_time(path, fs::file_time_type(std::chrono::hours(1)));
    EXPECT_FALSE(NSFileWrapper::matchesContentsOfURL(file, url(path)));
    ASSERT_TRUE(write(file, path, options));
    EXPECT_TRUE(NSFileWrapper::matchesContentsOfURL(file, url(path)));
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(scratch.path()), {}), 2);
}

// Contents that were never read are not lost when the tree is written over itself.
TEST(FileWrapper, WritingOverItsOwnFiles) {
  for (const NSUInteger options : {0UL, 1UL, 3UL}) {
    const TemporaryFolder scratch;
    AutoreleasePool pool;
    const std::string file = scratch.file("lone", "lazy");
    NSFileWrapper* lone = read(file);
    EXPECT_TRUE(write(lone, file, options));
    EXPECT_EQ(readFile(file.c_str()), "lazy");
    EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(lone)), "lazy");
    if (options == 0) continue;
    scratch.file("t/a", "alpha");
    scratch.file("t/b/c", "gamma");
    NSFileWrapper* tree = read(scratch / "t");
    NSFileWrapper* alpha = child(tree, "a");
    NSFileWrapper::setPreferredFilename(alpha, ns("renamed"));
    ASSERT_TRUE(write(tree, scratch / "t", options));
    EXPECT_EQ(readFile((scratch / "t/renamed").c_str()), "alpha");
    EXPECT_FALSE(fs::exists(scratch / "t/a"));
    EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(alpha)), "alpha");
    EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(child(child(tree, "b"), "c"))), "gamma");
    EXPECT_EQ(utf8(NSFileWrapper::filename(alpha)), options == 3 ? "renamed" : "a");
  }
}

// Files that are unchanged since they were written share their storage with the previous revision.
TEST(FileWrapper, UnchangedFilesAreLinked) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  NSFileWrapper* tree = directory();
  add(tree, "same", "same");
  add(tree, "other", "other");
  ASSERT_TRUE(write(tree, scratch / "one", atomic | updatingNames));
  NSFileWrapper::removeFileWrapper(tree, child(tree, "other"));
  add(tree, "other", "changed");
  NSFileWrapper* closed = child(tree, "same");
  ASSERT_TRUE(write(tree, scratch / "two", atomic | updatingNames, nullptr, url(scratch / "one")));
  EXPECT_TRUE(fs::equivalent(scratch / "one/same", scratch / "two/same"));
  EXPECT_FALSE(fs::equivalent(scratch / "one/other", scratch / "two/other"));
  EXPECT_EQ(readFile((scratch / "two/other").c_str()), "changed");
  // A file that was changed behind the wrapper's back, or has new attributes, is not linked.
  scratch.file("two/same", "behind");
  ASSERT_TRUE(write(tree, scratch / "three", atomic | updatingNames, nullptr, url(scratch / "two")));
  EXPECT_EQ(readFile((scratch / "three/same").c_str()), "same");
  NSFileWrapper::setFileAttributes(
      closed, newDictionary({{ns("NSFilePosixPermissions"), NSNumber::numberWithInt(classOf<NSNumber>(), 0600)}}));
  ASSERT_TRUE(write(tree, scratch / "four", atomic, nullptr, url(scratch / "three")));
  EXPECT_FALSE(fs::equivalent(scratch / "three/same", scratch / "four/same"));
  // Overwriting a linked file in place leaves the other revision alone.
  ASSERT_TRUE(write(tree, scratch / "five", atomic | updatingNames));
  fs::create_hard_link(scratch / "five/other", scratch / "twin");
  ASSERT_TRUE(write(fileWith("in place"), scratch / "twin"));
  EXPECT_EQ(readFile((scratch / "five/other").c_str()), "changed");
}

TEST(FileWrapper, MatchesWhatItWasReadFrom) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  scratch.file("t/a", "alpha");
  scratch.file("t/b/c", "gamma");
  fs::create_symlink("a", scratch / "t/l");
  NSFileWrapper* tree = read(scratch / "t", immediate);
  const auto matches = [&] { return NSFileWrapper::matchesContentsOfURL(tree, url(scratch / "t")) != NO; };
  EXPECT_TRUE(matches());
  scratch.file("t/b/more");
  EXPECT_FALSE(matches());
  fs::remove(scratch / "t/b/more");
  EXPECT_TRUE(matches());
  fs::remove(scratch / "t/l");
  EXPECT_FALSE(matches());
  fs::create_symlink("b", scratch / "t/l");
  EXPECT_FALSE(matches());
  NSFileWrapper* nested = child(child(tree, "b"), "c");
  fs::remove(scratch / "t/l");
  scratch.file("t/b/c", "other");
  ASSERT_TRUE(NSFileWrapper::readFromURL(tree, url(scratch / "t"), immediate, nullptr));
  EXPECT_TRUE(matches());
  // What is still there stays the same object, with the new contents.
  EXPECT_EQ(child(child(tree, "b"), "c"), nested);
  EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(nested)), "other");
  EXPECT_EQ(child(tree, "l"), nullptr);
  // One that was never on disk is compared byte for byte.
  EXPECT_TRUE(NSFileWrapper::matchesContentsOfURL(fileWith("alpha"), url(scratch / "t/a")));
  EXPECT_FALSE(NSFileWrapper::matchesContentsOfURL(fileWith("alpHa"), url(scratch / "t/a")));
  EXPECT_FALSE(NSFileWrapper::matchesContentsOfURL(tree, nullptr));
}

TEST(FileWrapper, AttributesBothWays) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  const auto attribute = [](NSFileWrapper* wrapper, const char* key) {
    return NSDictionary::objectForKey(NSFileWrapper::fileAttributes(wrapper), ns(key));
  };
  NSFileWrapper* file = fileWith("12345");
  NSFileWrapper::setFileAttributes(
      file,
      newDictionary({{ns("NSFilePosixPermissions"), NSNumber::numberWithInt(classOf<NSNumber>(), 04604)},
                     {ns("NSFileModificationDate"), NSDate::dateWithTimeIntervalSinceReferenceDate(classOf<NSDate>(), -1.5)},
                     {ns("NSFileType"), ns("NSFileTypeDirectory")},
                     {ns("Own"), ns("kept")}}));
  EXPECT_EQ(utf8(attribute(file, "NSFileType")), "NSFileTypeRegular");
  EXPECT_EQ(utf8(attribute(file, "Own")), "kept");
  for (const NSUInteger options : {0UL, 1UL}) {
    const std::string path = scratch / ("f" + std::to_string(options));
    ASSERT_TRUE(write(file, path, options));
    NSFileWrapper* again = read(path);
    EXPECT_EQ(NSNumber::intValue(static_cast<NSNumber*>(attribute(again, "NSFilePosixPermissions"))), 0604);
    EXPECT_EQ(NSDate::timeIntervalSinceReferenceDate(static_cast<NSDate*>(attribute(again, "NSFileModificationDate"))),
              -1.5);
    EXPECT_EQ(NSNumber::intValue(static_cast<NSNumber*>(attribute(again, "NSFileSize"))), 5);
    EXPECT_NE(attribute(again, "NSFileCreationDate"), nullptr);
  }
  NSFileWrapper* thawed = pooled(NSFileWrapper::initWithSerializedRepresentation(
      alloc<NSFileWrapper>(), NSFileWrapper::serializedRepresentation(read(scratch / "f0"))));
  EXPECT_EQ(NSNumber::intValue(static_cast<NSNumber*>(attribute(thawed, "NSFileSize"))), 5);
  EXPECT_EQ(utf8(attribute(linkTo("/"), "NSFileType")), "NSFileTypeSymbolicLink");
  EXPECT_EQ(utf8(attribute(directory(), "NSFileType")), "NSFileTypeDirectory");
}

TEST(FileWrapper, LinksAndIcons) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  fs::create_symlink("a b/c", scratch / "relative");
  const auto destination = [](NSFileWrapper* link) {
    return utf8(NSURL::absoluteString(NSFileWrapper::symbolicLinkDestinationURL(link)));
  };
  EXPECT_EQ(destination(read(scratch / "relative")), "file://" + scratch.path() + "/a%20b/c");
  EXPECT_EQ(destination(linkTo("/x/y")), "file:///x/y");
  ASSERT_TRUE(write(linkTo("/x/y"), scratch / "absolute"));
  EXPECT_EQ(fs::read_symlink(scratch / "absolute"), "/x/y");
  NSFileWrapper* link = pooled(send<NSFileWrapper*>(
      alloc<NSFileWrapper>(), "initSymbolicLinkWithDestinationURL:", newURL(ns("../z%20z"), url("/base/")).autorelease()));
  ASSERT_TRUE(write(link, scratch / "made"));
  EXPECT_EQ(fs::read_symlink(scratch / "made"), "../z z");
  for (NSFileWrapper* wrapper : {link, directory(), fileWith("x")}) {
    NSImage* icon = NSFileWrapper::icon(wrapper);
    EXPECT_EQ(send<NSSize>(icon, "size").width, 32);
    EXPECT_EQ(NSFileWrapper::icon(wrapper), icon);
  }
}

// Files whose folders are a hundred thousand deep in memory are refused, and let go, without running out of stack.
TEST(FileWrapper, DeepTrees) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  NSFileWrapper* tree = directory();
  for (int depth = 0; depth < 100'000; ++depth) {
    NSFileWrapper* outer = NSFileWrapper::initDirectoryWithFileWrappers(alloc<NSFileWrapper>(), nullptr);
    adopt(outer).autorelease();
    NSFileWrapper::addFileWrapper(outer, named("d", tree));
    tree = outer;
    if (depth == 600) {
      EXPECT_EQ(NSFileWrapper::serializedRepresentation(tree), nullptr);
    }
  }
  for (const NSUInteger options : {NSUInteger{0}, NSUInteger{atomic}}) {
    NSError* error = nullptr;
    EXPECT_FALSE(write(tree, scratch / "deep", options, &error));
    EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 514");
  }
  EXPECT_TRUE(fs::is_empty(scratch.path()));
}

}  // namespace
