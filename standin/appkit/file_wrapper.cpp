// NSFileWrapper: its messages.
#include "standin/appkit/file_wrapper.hpp"

#include <algorithm>

#include "standin/appkit/file_icons.hpp"
#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/url.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::appkit {
namespace {

using foundation::FileAccess;
using foundation::utf8Of;

void requireKind(NSFileWrapper* self, const char* selector, FileKind kind) {
  constexpr const char* names[] = {"a directory", "a regular file", "a symbolic link"};
  if (wrapperState(self).kind == kind) return;
  raise(NSInternalInconsistencyException,
        describeMethod(self, selector) + ": the receiver is not " + names[static_cast<size_t>(kind)]);
}

void requireName(NSFileWrapper* self, const char* selector, NSString* name) {
  if (name != nullptr && foundation::textOf(name).size() > 0) return;
  raise(NSInvalidArgumentException, describeMethod(self, selector) + ": nil or empty file name");
}

NSString* answer(const std::optional<std::string>& name) { return name ? newName(*name).autorelease() : nullptr; }

// Initialisers. A receiver that cannot be filled is released.

NSFileWrapper* initDirectory(NSFileWrapper* self, NSDictionary* children) {
  Owned<NSFileWrapper> receiver = adopt(self);
  foundation::forEachEntry(children, [&](NSObject* key, NSObject* child) {
    if (!foundation::isString(key) || !isKindOf(child, fileWrapperClass().object())) {
      raise(NSInvalidArgumentException,
            describeMethod(self, "initDirectoryWithFileWrappers:") + ": children must be file wrappers by name");
    }
    auto* wrapper = static_cast<NSFileWrapper*>(child);
    if (!wrapperState(wrapper).preferredName) wrapperState(wrapper).preferredName = utf8Of(static_cast<NSString*>(key));
    addChild(wrapperState(self), wrapper, utf8Of(static_cast<NSString*>(key)));
  });
  return receiver.detach();
}

NSFileWrapper* initRegularFile(NSFileWrapper* self, NSData* contents) {
  wrapperState(self).kind = FileKind::regular;
  if (contents != nullptr)
    wrapperState(self).contents = FileContents::of(adopt(static_cast<NSData*>(NSObject::copy(contents))));
  return self;
}

// A relative URL makes a relative link.
NSFileWrapper* initLink(NSFileWrapper* self, NSURL* destination) {
  Owned<NSFileWrapper> receiver = adopt(self);
  foundation::requireArgument(self, "initSymbolicLinkWithDestinationURL:", destination);
  FileWrapper& state = wrapperState(self);
  state.kind = FileKind::link;
  state.destinationURL = retain(destination);
  const foundation::UrlParts written = foundation::relativeParts(destination);
  const bool isRelative = foundation::baseOf(destination) != nullptr && !written.scheme && !written.path.starts_with('/');
  state.destination =
      isRelative ? foundation::unescaped(written.path) : foundation::filePath(destination).value_or(std::string());
  if (state.destination.size() > 1 && state.destination.ends_with('/')) state.destination.pop_back();
  return receiver.detach();
}

NSFileWrapper* initWithArchive(NSFileWrapper* self, NSData* archive) {
  Owned<NSFileWrapper> receiver = adopt(self);
  return readArchive(wrapperState(self), foundation::bytesOf(archive)) ? receiver.detach() : nullptr;
}

// The path that a file URL names. Without one an error is stored.
std::optional<std::string> pathOf(NSURL* url, FileAccess access, NSError** error) {
  std::optional<std::string> path = foundation::filePath(url);
  if (path) return path;
  const bool reading = access == FileAccess::reading;
  const NSInteger noScheme = reading ? foundation::fileReadUnsupportedScheme : foundation::fileWriteUnsupportedScheme;
  const NSInteger noName = reading ? foundation::fileReadInvalidFileName : foundation::fileWriteInvalidFileName;
  foundation::report(error, foundation::newError(NSCocoaErrorDomain, url != nullptr ? noScheme : noName,
                                                 url != nullptr ? "The URL names no file." : "There is no URL."));
  return std::nullopt;
}

BOOL readFromURL(FileWrapper& self, NSURL* url, NSUInteger options, NSError** error) {
  const std::optional<std::string> path = pathOf(url, FileAccess::reading, error);
  return path && readFile(self, *path, options).reportTo(error);
}

NSFileWrapper* initWithURL(NSFileWrapper* self, NSURL* url, NSUInteger options, NSError** error) {
  Owned<NSFileWrapper> receiver = adopt(self);
  return readFromURL(wrapperState(self), url, options, error) ? receiver.detach() : nullptr;
}

BOOL writeToURL(FileWrapper& self, NSURL* url, NSUInteger options, NSURL* originals, NSError** error) {
  const std::optional<std::string> path = pathOf(url, FileAccess::writing, error);
  return path && writeFile(self, *path, options, foundation::filePath(originals).value_or(std::string())).reportTo(error);
}

BOOL matchesContents(FileWrapper& self, NSURL* url) {
  const std::optional<std::string> path = foundation::filePath(url);
  return path && matchesFile(self, *path);
}

// What it is, and how it is called.

template <FileKind kind>
BOOL isKind(FileWrapper& self) {
  return self.kind == kind;
}

NSString* filename(FileWrapper& self) { return answer(self.name); }
NSString* preferredFilename(FileWrapper& self) { return answer(self.preferredName); }

void setFilename(NSFileWrapper* self, NSString* name) {
  requireName(self, "setFilename:", name);
  wrapperState(self).name = utf8Of(name);
}

// Directories that hold the wrapper find a new key for it.
void setPreferredFilename(NSFileWrapper* self, NSString* name) {
  requireName(self, "setPreferredFilename:", name);
  const Owned<NSFileWrapper> kept = retain(self);
  FileWrapper& state = wrapperState(self);
  state.preferredName = utf8Of(name);
  const std::vector<FileWrapper*> parents = state.parents;
  for (FileWrapper* parent : parents) {
    const auto found = std::find_if(parent->children.begin(), parent->children.end(),
                                    [&](const auto& entry) { return entry.second.get() == self; });
    if (found == parent->children.end()) continue;
    removeChild(*parent, std::string(found->first));
    addChild(*parent, self, *state.preferredName);
  }
}

NSDictionary* fileAttributes(FileWrapper& self) { return newDictionary(self.attributes, self.kind).autorelease(); }
void setFileAttributes(FileWrapper& self, NSDictionary* attributes) {
  self.attributes = FileAttributes::of(attributes);
  self.attributesWereSet = true;
}

NSImage* icon(FileWrapper& self) {
  if (!self.icon) self.icon = newFileIcon(self.kind);
  return self.icon;
}
void setIcon(FileWrapper& self, NSImage* icon) { self.icon = retain(icon); }

// What is in it.

NSData* regularFileContents(NSFileWrapper* self) {
  requireKind(self, "regularFileContents", FileKind::regular);
  return contentsOf(self);
}

// A relative destination is seen from the folder that the link was found in.
NSURL* symbolicLinkDestinationURL(NSFileWrapper* self) {
  requireKind(self, "symbolicLinkDestinationURL", FileKind::link);
  FileWrapper& state = wrapperState(self);
  if (state.destinationURL) return state.destinationURL;
  if (state.destination.starts_with('/') || !state.found) {
    return foundation::newFileURL(state.destination, false).autorelease();
  }
  foundation::UrlParts parts;
  parts.path = foundation::escapedPath(state.destination);
  if (parts.path.find(':') < parts.path.find('/')) parts.path.insert(0, "./");
  return foundation::newURL(parts, foundation::newFileURL(foundation::folderOf(state.found->path), true)).autorelease();
}

NSData* serializedRepresentation(NSFileWrapper* self) { return newArchive(self).autorelease(); }

// Nil when the directory has gone since it was found.
NSDictionary* fileWrappers(NSFileWrapper* self) {
  requireKind(self, "fileWrappers", FileKind::directory);
  if (!listChildren(wrapperState(self))) return nullptr;
  std::vector<NSObject*> keys, values;
  for (const auto& [key, child] : wrapperState(self).children) {
    keys.push_back(newName(key).autorelease());
    values.push_back(child);
  }
  return foundation::newDictionary(keys, values).autorelease();
}

// The directory with its children known: they are to be added to, or to be searched.
FileWrapper& listed(NSFileWrapper* self, const char* selector) {
  requireKind(self, selector, FileKind::directory);
  if (const FileOutcome outcome = listChildren(wrapperState(self)); !outcome) {
    raise(NSInternalInconsistencyException, describeMethod(self, selector) + ": " + outcome.path + " cannot be read");
  }
  return wrapperState(self);
}

// A directory inside itself could never be written.
bool isInside(const FileWrapper& directory, const FileWrapper& sought) {
  std::vector<const FileWrapper*> open = {&directory}, seen;
  while (!open.empty()) {
    const FileWrapper* wrapper = open.back();
    open.pop_back();
    if (wrapper == &sought) return true;
    if (std::find(seen.begin(), seen.end(), wrapper) != seen.end()) continue;
    seen.push_back(wrapper);
    open.insert(open.end(), wrapper->parents.begin(), wrapper->parents.end());
  }
  return false;
}

NSString* addFileWrapper(NSFileWrapper* self, NSFileWrapper* child) {
  constexpr const char* selector = "addFileWrapper:";
  FileWrapper& directory = listed(self, selector);
  foundation::requireArgument(self, selector, child);
  const std::optional<std::string>& name = wrapperState(child).preferredName;
  if (!name || name->empty())
    raise(NSInvalidArgumentException, describeMethod(self, selector) + ": the child has no preferred file name");
  if (isInside(directory, wrapperState(child)))
    raise(NSInvalidArgumentException, describeMethod(self, selector) + ": a directory cannot be inside itself");
  return newName(addChild(directory, child, std::string(*name))).autorelease();
}

NSString* addRegularFile(NSFileWrapper* self, NSData* contents, NSString* name) {
  constexpr const char* selector = "addRegularFileWithContents:preferredFilename:";
  FileWrapper& directory = listed(self, selector);
  requireName(self, selector, name);
  const Owned<NSFileWrapper> child = newFileWrapper();
  initRegularFile(child, contents);
  wrapperState(child.get()).preferredName = utf8Of(name);
  return newName(addChild(directory, child, utf8Of(name))).autorelease();
}

std::optional<std::string> keyOf(const FileWrapper& directory, NSFileWrapper* child) {
  for (const auto& [key, wrapper] : directory.children) {
    if (wrapper.get() == child) return key;
  }
  return std::nullopt;
}

void removeFileWrapper(NSFileWrapper* self, NSFileWrapper* child) {
  FileWrapper& directory = listed(self, "removeFileWrapper:");
  if (const auto key = keyOf(directory, child)) removeChild(directory, *key);
}

NSString* keyForFileWrapper(NSFileWrapper* self, NSFileWrapper* child) {
  return answer(keyOf(listed(self, "keyForFileWrapper:"), child));
}

const ClassDefinition definition = defineClass<FileWrapper>("NSFileWrapper", "NSObject")
                                       .method<initWithURL>("initWithURL:options:error:")
                                       .method<initDirectory>("initDirectoryWithFileWrappers:")
                                       .method<initRegularFile>("initRegularFileWithContents:")
                                       .method<initLink>("initSymbolicLinkWithDestinationURL:")
                                       .method<initWithArchive>("initWithSerializedRepresentation:")
                                       .method<isKind<FileKind::directory>>("isDirectory")
                                       .method<isKind<FileKind::regular>>("isRegularFile")
                                       .method<isKind<FileKind::link>>("isSymbolicLink")
                                       .method<filename>("filename")
                                       .method<setFilename>("setFilename:")
                                       .method<preferredFilename>("preferredFilename")
                                       .method<setPreferredFilename>("setPreferredFilename:")
                                       .method<fileAttributes>("fileAttributes")
                                       .method<setFileAttributes>("setFileAttributes:")
                                       .method<icon>("icon")
                                       .method<setIcon>("setIcon:")
                                       .method<readFromURL>("readFromURL:options:error:")
                                       .method<writeToURL>("writeToURL:options:originalContentsURL:error:")
                                       .method<matchesContents>("matchesContentsOfURL:")
                                       .method<serializedRepresentation>("serializedRepresentation")
                                       .method<regularFileContents>("regularFileContents")
                                       .method<symbolicLinkDestinationURL>("symbolicLinkDestinationURL")
                                       .method<fileWrappers>("fileWrappers")
                                       .method<addFileWrapper>("addFileWrapper:")
                                       .method<addRegularFile>("addRegularFileWithContents:preferredFilename:")
                                       .method<removeFileWrapper>("removeFileWrapper:")
                                       .method<keyForFileWrapper>("keyForFileWrapper:");

}  // namespace

const ClassDefinition& fileWrapperClass() { return definition; }
FileWrapper& wrapperState(NSFileWrapper* wrapper) { return standin::stateOf<FileWrapper>(wrapper); }
Owned<NSFileWrapper> newFileWrapper() { return create<FileWrapper, NSFileWrapper>(definition); }
Owned<NSFileWrapper> newDirectory() { return newFileWrapper(); }

Owned<NSFileWrapper> newRegularFile(Owned<NSData> contents, std::string_view preferredName) {
  Owned<NSFileWrapper> file = newFileWrapper();
  FileWrapper& state = wrapperState(file.get());
  state.kind = FileKind::regular;
  state.contents = FileContents::of(std::move(contents));
  state.preferredName = preferredName;
  return file;
}

NSData* contentsOf(NSFileWrapper* file) { return wrapperState(file).contents.data(); }

Owned<NSString> newName(std::string_view bytes) {
  Owned<NSString> name = foundation::newString(bytes);
  return name ? std::move(name) : foundation::newString(text::Text::latin1(bytes));
}

}  // namespace standin::appkit
