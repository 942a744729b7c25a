// File wrappers: the state behind every NSFileWrapper, and what its files do with one another's.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "standin/appkit/file_contents.hpp"
#include "standin/foundation/error.hpp"
#include "standin/runtime/class_definition.hpp"

namespace standin::appkit {

// The platform's options.
enum ReadingOption : NSUInteger { readImmediately = 1, readWithoutMapping = 2 };
enum WritingOption : NSUInteger { writeAtomically = 1, writeUpdatingNames = 2 };

// Names are bytes: what a file system holds need not be UTF-8.
struct FileWrapper : Object {
  FileWrapper() = default;
  FileWrapper(const FileWrapper&) = delete;
  FileWrapper& operator=(const FileWrapper&) = delete;
  ~FileWrapper();

  FileKind kind = FileKind::directory;
  std::optional<std::string> name, preferredName;
  FileAttributes attributes;
  bool attributesWereSet = false;                        // by the program, not by reading
  FileContents contents;                                 // of a regular file
  std::string destination;                               // of a link
  Owned<NSURL> destinationURL;                           // of a link that was made from a URL
  std::optional<FileOrigin> found;                       // where a directory or a link was
  bool childrenAreUnread = false;                        // they are to be listed from there
  std::map<std::string, Owned<NSFileWrapper>> children;  // by unique name
  std::vector<FileWrapper*> parents;                     // one entry for each time this is a child; not retained
  Owned<NSImage> icon;
};

// How a file operation ended: done, or the system's error and the file that it befell.
struct [[nodiscard]] FileOutcome {
  int systemError = 0;  // 0: done
  std::string path{};
  foundation::FileAccess access = foundation::FileAccess::reading;

  explicit operator bool() const { return systemError == 0; }
  // Stores the platform's error when this is a failure.
  BOOL reportTo(NSError** error) const;
};
// With the current `errno`.
FileOutcome failedReading(std::string path);
FileOutcome failedWriting(std::string path);

const ClassDefinition& fileWrapperClass();
Owned<NSFileWrapper> newFileWrapper();
Owned<NSFileWrapper> newRegularFile(Owned<NSData> contents, std::string_view preferredName);
Owned<NSFileWrapper> newDirectory();
FileWrapper& wrapperState(NSFileWrapper* wrapper);

// Children. A directory lists them from the file system first, if it has not yet.
FileOutcome listChildren(FileWrapper& directory);
// The key under which the child was added: its preferred name, or one made of it when that is taken.
std::string addChild(FileWrapper& directory, NSFileWrapper* child, const std::string& preferredName);
void putChild(FileWrapper& directory, const std::string& key, Owned<NSFileWrapper> child);
void removeChild(FileWrapper& directory, const std::string& key);
NSFileWrapper* childNamed(FileWrapper& directory, const std::string& key);
// What the name was before a clash gave it a number.
std::string_view withoutClashMark(std::string_view name);

// Reads what is at the path into the wrapper, which stays as it was when that fails; children that are still there stay the
// same objects.
FileOutcome readFile(FileWrapper& wrapper, const std::string& path, NSUInteger options);
// What is at the path is what the wrapper was read from or written to.
bool matchesFile(FileWrapper& wrapper, const std::string& path);
inline constexpr size_t longestFileName = 255;  // bytes
// A name under which a file can be made, in its own folder and nowhere else.
bool isFileName(const std::string& name);
FileOutcome writeFile(FileWrapper& wrapper, const std::string& path, NSUInteger options, const std::string& originals);

// The bytes of a regular file; nil when they cannot be read.
NSData* contentsOf(NSFileWrapper* file);

// Nil when the tree cannot be read or nests too deep.
Owned<NSData> newArchive(NSFileWrapper* wrapper);
bool readArchive(FileWrapper& wrapper, std::span<const uint8_t> bytes);

// Names as strings; text that is no UTF-8 is shown as Latin-1.
Owned<NSString> newName(std::string_view bytes);

}  // namespace standin::appkit
