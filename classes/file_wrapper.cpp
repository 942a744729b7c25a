// The file wrapper: a file, a directory or a symbolic link in memory.
#include "classes/error_variable.hpp"
#include "classes/filling.hpp"
#include "classes/members.hpp"
#include "plugin/class_records.hpp"

namespace classes {
namespace {

constexpr auto icon = getterOf<NSFileWrapper::icon>;
constexpr auto setIcon = setterOf<NSFileWrapper::setIcon>;
constexpr auto isDirectory = getterOf<NSFileWrapper::isDirectory>;
constexpr auto isRegularFile = getterOf<NSFileWrapper::isRegularFile>;
constexpr auto isSymbolicLink = getterOf<NSFileWrapper::isSymbolicLink>;
constexpr auto preferredFilename = getterOf<NSFileWrapper::preferredFilename>;
constexpr auto setPreferredFilename = setterOf<NSFileWrapper::setPreferredFilename>;
constexpr auto filename = getterOf<NSFileWrapper::filename>;
constexpr auto setFilename = setterOf<NSFileWrapper::setFilename>;
constexpr auto fileAttributes = getterOf<NSFileWrapper::fileAttributes>;
constexpr auto setFileAttributes = setterOf<NSFileWrapper::setFileAttributes>;
constexpr auto serializedRepresentation = getterOf<NSFileWrapper::serializedRepresentation>;
constexpr auto regularFileContents = getterOf<NSFileWrapper::regularFileContents>;
constexpr auto symbolicLinkDestinationURL = getterOf<NSFileWrapper::symbolicLinkDestinationURL>;
constexpr auto fileWrappers = getterOf<NSFileWrapper::fileWrappers>;

// URL members and their folder-item twins: one algorithm, told apart by the host's form of the URL.
NSURL* urlOf(REALstring url) { return urlFromString(url); }
NSURL* urlOf(REALfolderItem file) { return urlFromFolderItem(file); }

template <class File>
bool write(REALobject self, File file, int64_t options, File originalContents, REALobject* error) {
  ErrorVariable reported(error);
  return guarded([&] {
    const BOOL written = NSFileWrapper::writeToURL(platformObject(self), urlOf(file), static_cast<NSUInteger>(options),
                                                   urlOf(originalContents), reported.address());
    reported.store();
    return written != NO;
  });
}

template <class File>
bool read(REALobject self, File file, int64_t options, REALobject* error) {
  ErrorVariable reported(error);
  return guarded([&] {
    const BOOL done =
        NSFileWrapper::readFromURL(platformObject(self), urlOf(file), static_cast<NSUInteger>(options), reported.address());
    reported.store();
    return done != NO;
  });
}

template <class File>
bool matches(REALobject self, File file) {
  return guarded([&] { return NSFileWrapper::matchesContentsOfURL(platformObject(self), urlOf(file)) != NO; });
}

// Wraps the file wrapper that an initialiser made of a new instance.
REALobject wrapMade(NSFileWrapper* initialised) { return NewNSFileWrapperZKT(adopt(initialised).autorelease()); }

template <class File>
REALobject makeFrom(File file, int64_t options, REALobject* error) {
  ErrorVariable reported(error);
  return guarded([&] {
    NSURL* url = urlOf(file);
    auto made =
        adopt(NSFileWrapper::initWithURL(alloc<NSFileWrapper>(), url, static_cast<NSUInteger>(options), reported.address()));
    reported.store();
    return wrapMade(made.detach());
  });
}

constexpr auto writeToFile = &write<REALfolderItem>;
constexpr auto writeToURL = &write<REALstring>;
constexpr auto readFromFile = &read<REALfolderItem>;
constexpr auto readFromURL = &read<REALstring>;
constexpr auto matchesContentsOfFile = &matches<REALfolderItem>;
constexpr auto matchesContentsOfURL = &matches<REALstring>;
constexpr auto initWithFile = &makeFrom<REALfolderItem>;
constexpr auto initWithURL = &makeFrom<REALstring>;

// The other shared constructors: one converted argument.
template <auto& initialiser, class Contents>
REALobject makeWith(HostArgument<Contents> contents) {
  return guarded([&] {
    const Contents converted = HostForm<Contents>::argument(contents);
    return wrapMade(initialiser(alloc<NSFileWrapper>(), converted));
  });
}

constexpr auto initDirectoryWithFileWrappers = &makeWith<NSFileWrapper::initDirectoryWithFileWrappers, NSDictionary*>;
constexpr auto initRegularFileWithContents = &makeWith<NSFileWrapper::initRegularFileWithContents, NSData*>;
constexpr auto initWithSerializedRepresentation = &makeWith<NSFileWrapper::initWithSerializedRepresentation, NSData*>;

// Children.
template <auto& message>
REALstring keyOfChild(REALobject self, REALobject child) {
  if (platformObject(child) != nullptr) return methodOf<message>(self, child);
  RaiseException("NilObjectException", child == nullptr ? "Child is nil" : "Child is invalid");
  return nullptr;
}

constexpr auto addFileWrapper = &keyOfChild<NSFileWrapper::addFileWrapper>;
constexpr auto keyForFileWrapper = &keyOfChild<NSFileWrapper::keyForFileWrapper>;
constexpr auto removeFileWrapper = methodOf<NSFileWrapper::removeFileWrapper>;
constexpr auto addRegularFileWithContents = methodOf<NSFileWrapper::addRegularFileWithContents>;

void init(REALobject self) {
  guarded([&] {
    obtainSharedServices();
    emptyWrapper(self);
    fillWrapper(self, makePlatformObject<NSFileWrapper>());
  });
}

const PropertyRecord properties[] = {
    handleProperty(),
    property<"icon", "NSImageZKT", icon, setIcon>(),
    property<"Directory", "Boolean", isDirectory>(),
    property<"RegularFile", "Boolean", isRegularFile>(),
    property<"SymbolicLink", "Boolean", isSymbolicLink>(),
    property<"preferredFilename", "String", preferredFilename, setPreferredFilename>(),
    property<"filename", "String", filename, setFilename>(),
    property<"fileAttributes", "Dictionary", fileAttributes, setFileAttributes>(),
    property<"serializedRepresentation", "MemoryBlock", serializedRepresentation>(),
    property<"regularFileContents", "MemoryBlock", regularFileContents>(),
    property<"symbolicLinkDestinationURL", "String", symbolicLinkDestinationURL>(),
    property<"fileWrappers", "Dictionary", fileWrappers>(),
};

const MethodRecord methods[] = {
    method<"writeToFile(File as Folderitem, Options as Integer = 0, originalContentsURL as FolderItem = nil, "
           "byref Error as NSErrorZKT) as Boolean",
           writeToFile>(),
    method<"writeToURL(URL as String, Options as Integer = 0, originalContentsURL as String = \"\", "
           "byref Error as NSErrorZKT) as Boolean",
           writeToURL>(),
    method<"readFromFile(File as Folderitem, Options as Integer = 0, byref Error as NSErrorZKT) as Boolean", readFromFile>(),
    method<"readFromURL(URL as String, Options as Integer = 0, byref Error as NSErrorZKT) as Boolean", readFromURL>(),
    method<"matchesContentsOfFile(File as Folderitem) as Boolean", matchesContentsOfFile>(),
    method<"matchesContentsOfURL(URL as String) as Boolean", matchesContentsOfURL>(),
    method<"addRegularFileWithContents(Data as MemoryBlock, preferredFilename as string) as String",
           addRegularFileWithContents>(),
    method<"addFileWrapper(child as NSFileWrapperZKT) as String", addFileWrapper>(),
    method<"removeFileWrapper(child as NSFileWrapperZKT)", removeFileWrapper>(),
    method<"keyForFileWrapper(child as NSFileWrapperZKT) as String", keyForFileWrapper>(),
    method<"Constructor", init>(),
};

// The platform's options of the same names; members pass them on unchanged.
const ConstantRecord constants[] = {
    constant("NSFileWrapperReadingImmediate = 1"),
    constant("NSFileWrapperReadingWithoutMapping = 2"),
    constant("NSFileWrapperWritingAtomic = 1"),
    constant("NSFileWrapperWritingWithNameUpdating = 2"),
};

const MethodRecord sharedMethods[] = {
    sharedMethod<"initDirectoryWithFileWrappers(childrenByPreferredName as Dictionary) as NSFileWrapperZKT",
                 initDirectoryWithFileWrappers>(),
    sharedMethod<"initWithFile(File as folderItem, Options as Integer, byref error as NSErrorZKT) as NSFileWrapperZKT",
                 initWithFile>(),
    sharedMethod<"initWithURL(URL as string, Options as Integer, byref error as NSErrorZKT) as NSFileWrapperZKT",
                 initWithURL>(),
    sharedMethod<"initRegularFileWithContents(data as MemoryBlock) as NSFileWrapperZKT", initRegularFileWithContents>(),
    sharedMethod<"initWithSerializedRepresentation(data as MemoryBlock) as NSFileWrapperZKT",
                 initWithSerializedRepresentation>(),
};

}  // namespace
}  // namespace classes

plugin::ClassRecord plugin::NSFileWrapperClass = classRecord({.name = "NSFileWrapperZKT",
                                                              .instanceDataSize = sizeof(NSFileWrapper*),
                                                              .constructor = NSFileWrapperConstructor,
                                                              .destructor = NSFileWrapperDestructor,
                                                              .properties = classes::properties,
                                                              .methods = classes::methods,
                                                              .constants = classes::constants,
                                                              .sharedMethods = classes::sharedMethods});
