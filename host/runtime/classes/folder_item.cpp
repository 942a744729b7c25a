// Folder items.
#include "host/runtime/folder_item.hpp"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "host/runtime/classes/classes.hpp"
#include "host/runtime/classes/globals.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/file_contents.hpp"
#include "host/runtime/memory_block.hpp"

namespace host {
namespace {

namespace fs = std::filesystem;

struct FolderItem {
  fs::path path;  // absolute, without a slash at its end
};

fs::path& pathIn(const HostObject* item) { return item->stateAs<FolderItem>().path; }

std::string composed(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* normalizer = icu::Normalizer2::getNFCInstance(status);
  std::string result;
  if (U_SUCCESS(status)) normalizer->normalize(icu::UnicodeString::fromUTF8(name), status).toUTF8String(result);
  return U_SUCCESS(status) ? result : name;
}

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

// Folders, then files, by name.
std::vector<fs::path> childrenOf(const fs::path& folder) {
  std::vector<fs::path> children;
  std::error_code error;
  for (fs::directory_iterator walk(folder, error), end; !error && walk != end; walk.increment(error)) {
    children.push_back(walk->path());
  }
  std::sort(children.begin(), children.end());
  return children;
}

// The same name may be spelled with composed or decomposed letters; the file that is there decides.
fs::path spelledAsThere(const fs::path& path) {
  if (path == path.root_path() || isThere(path)) return path;
  const fs::path parent = spelledAsThere(path.parent_path());
  const std::string wanted = composed(path.filename().string());
  if (wanted != path.filename().string() && isThere(parent / wanted)) return parent / wanted;
  const auto ascii = [](char letter) { return static_cast<signed char>(letter) >= 0; };
  if (std::all_of(wanted.begin(), wanted.end(), ascii)) return parent / wanted;
  for (const fs::path& child : childrenOf(parent)) {
    if (composed(child.filename().string()) == wanted) return child;
  }
  return parent / path.filename();
}

fs::path found(const HostObject* item) { return spelledAsThere(pathIn(item)); }

[[noreturn]] void throwFileError(const fs::path& path, const std::error_code& error) {
  throwException("IOException", path.string() + ": " + error.message(), error.value());
}

fs::path absolutePath(std::string_view text) {
  std::error_code error;
  fs::path path = fs::absolute(fs::path(text), error).lexically_normal();
  return path.has_filename() || path == path.root_path() ? path : path.parent_path();
}

std::string urlOf(const fs::path& path) {
  constexpr char unescaped[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/!$&'()*+,:=@";
  constexpr char digits[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char letter : path.string()) {
    if (std::string_view(unescaped).find(letter) != std::string_view::npos) {
      url += letter;
    } else {
      const auto byte = static_cast<unsigned char>(letter);
      url += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  return url;
}

HostString* stringOf(const std::string& text) { return HostString::make(text).detach(); }
HostObject* itemAt(const fs::path& path) { return makeFolderItem(path.string()).detach(); }

HostString* name(HostObject* self, int64_t) { return stringOf(pathIn(self).filename().string()); }
HostString* nativePath(HostObject* self, int64_t) { return stringOf(pathOf(self)); }
HostString* urlPath(HostObject* self, int64_t) { return stringOf(urlOf(found(self))); }
bool exists(HostObject* self, int64_t) { return isThere(found(self)); }

bool isDirectory(HostObject* self, int64_t) {
  std::error_code error;
  return fs::is_directory(found(self), error);
}

// 0 for what is no file.
int64_t length(HostObject* self, int64_t) {
  std::error_code error;
  const fs::path path = found(self);
  return fs::is_regular_file(path, error) ? static_cast<int64_t>(fs::file_size(path, error)) : 0;
}

HostObject* parent(HostObject* self, int64_t) {
  const fs::path& path = pathIn(self);
  return path == path.root_path() ? nullptr : itemAt(path.parent_path());
}

int64_t count(HostObject* self, int64_t) { return static_cast<int64_t>(childrenOf(found(self)).size()); }

void construct(HostObject* self, HostString* path) {
  if (path == nullptr) throwException("InvalidArgumentException", "A folder item needs a path.");
  pathIn(self) = absolutePath(utf8Of(path));
}

HostObject* child(HostObject* self, HostString* name) {
  const std::string text = utf8Of(name);
  if (text.empty() || text.find('/') != std::string::npos) {
    throwException("InvalidArgumentException", "\"" + text + "\" is no name for a file.");
  }
  return itemAt(pathIn(self) / text);
}

// The first is 1.
HostObject* item(HostObject* self, int64_t index) {
  const std::vector<fs::path> children = childrenOf(found(self));
  if (index < 1 || index > static_cast<int64_t>(children.size())) return nullptr;
  return itemAt(children[static_cast<size_t>(index - 1)]);
}

void deleteItem(HostObject* self) {
  std::error_code error;
  if (!fs::remove(found(self), error) && error) throwFileError(pathIn(self), error);
}

void createAsFolder(HostObject* self) {
  std::error_code error;
  fs::create_directory(found(self), error);
  if (error) throwFileError(pathIn(self), error);
}

void copyTo(HostObject* self, HostObject* destination) {
  if (destination == nullptr) throwNilObject("The destination");
  fs::path target = found(destination);
  std::error_code error;
  if (fs::is_directory(target, error)) target /= found(self).filename();
  fs::copy(found(self), target, fs::copy_options::recursive | fs::copy_options::overwrite_existing, error);
  if (error) throwFileError(pathIn(self), error);
}

HostObject* readBytes(HostObject* self) {
  const fs::path path = found(self);
  std::error_code error;
  if (fs::is_directory(path, error)) throwFileError(path, std::make_error_code(std::errc::is_a_directory));
  std::ifstream file(path, std::ios::binary);
  if (!file) throwFileError(path, {errno, std::generic_category()});
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  return makeMemoryBlock(bytes).detach();
}

void writeBytes(HostObject* self, HostObject* data) {
  if (data == nullptr) throwNilObject("The data");
  const fs::path path = found(self);
  const std::span<const std::byte> bytes = memoryOf(data);
  if (!replaceContents(path.string(), {reinterpret_cast<const char*>(bytes.data()), bytes.size()}))
    throwFileError(path, {errno, std::generic_category()});
}

const BuiltinProperty properties[] = {
    {"Name as String", native(name)},
    {"NativePath as String", native(nativePath)},
    {"ShellPath as String", native(nativePath)},
    {"URLPath as String", native(urlPath)},
    {"Exists as Boolean", native(exists)},
    {"Directory as Boolean", native(isDirectory)},
    {"IsFolder as Boolean", native(isDirectory)},
    {"Length as Integer", native(length)},
    {"Count as Integer", native(count)},
    {"Parent as FolderItem", native(parent)},
};

const BuiltinMethod methods[] = {
    {"Constructor(path as String)", native(construct)},
    {"Child(name as String) as FolderItem", native(child)},
    {"Item(Index as integer) as Folderitem", native(item)},
    {"TrueItem(Index as integer) as Folderitem", native(item)},
    {"Delete", native(deleteItem)},
    {"CreateAsFolder", native(createAsFolder)},
    {"CopyTo(destination as FolderItem)", native(copyTo)},
    {"ReadBytes() as MemoryBlock", native(readBytes)},
    {"WriteBytes(data as MemoryBlock)", native(writeBytes)},
};

}  // namespace

const BuiltinClass folderItemClass{
    .name = "FolderItem", .state = stateOf<FolderItem>(), .properties = properties, .methods = methods};

HostOwned<HostObject> makeFolderItem(std::string_view path) {
  HostOwned<HostObject> item = HostObject::make(builtinClass<folderItemClass>());
  pathIn(item) = absolutePath(path);
  return item;
}

bool isFolderItem(const HostObject* object) { return isInstanceOf<folderItemClass>(object); }
std::string pathOf(const HostObject* folderItem) { return found(folderItem).string(); }

HostObject* getFolderItem(HostString* path, int64_t) {
  const std::string text = utf8Of(path);
  return text.empty() ? nullptr : makeFolderItem(text).detach();
}

}  // namespace host
