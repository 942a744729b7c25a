// File wrappers and their serialised representation.
#include "standin/appkit/file_wrapper.hpp"
#include "standin/foundation/data.hpp"

namespace standin::appkit {
namespace {

using formats::file_archive::ArchivedFile;

std::string_view bytesOf(NSData* data) {
  const auto bytes = foundation::bytesOf(data);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// False when something cannot be read, or the tree nests too deep. The views last as long as the wrapper's contents.
bool describe(FileWrapper& wrapper, ArchivedFile& file, size_t depth) {
  if (depth > formats::file_archive::maximumDepth) return false;
  file.kind = wrapper.kind;
  file.permissions = wrapper.attributes.permissions;
  file.modified = wrapper.attributes.modified;
  file.created = wrapper.attributes.created;
  file.name = wrapper.name;
  file.preferredName = wrapper.preferredName;
  file.bytes = wrapper.destination;
  if (wrapper.kind == FileKind::regular) {
    NSData* contents = wrapper.contents.data();
    file.bytes = bytesOf(contents);
    return contents != nullptr;
  }
  if (wrapper.kind == FileKind::directory && !listChildren(wrapper)) return false;
  for (const auto& [key, child] : wrapper.children) {
    ArchivedFile& described = file.children.emplace_back();
    described.key = key;
    if (!describe(wrapperState(child), described, depth + 1)) return false;
  }
  return true;
}

void fill(FileWrapper& wrapper, const ArchivedFile& file) {
  wrapper.kind = file.kind;
  wrapper.attributes.permissions = file.permissions;
  wrapper.attributes.modified = file.modified;
  wrapper.attributes.created = file.created;
  wrapper.name = file.name;
  wrapper.preferredName = file.preferredName;
  if (file.kind == FileKind::regular) {
    wrapper.contents = FileContents::of(foundation::newData(std::string(file.bytes)));
    wrapper.attributes.size = file.bytes.size();
  }
  if (file.kind == FileKind::link) wrapper.destination = file.bytes;
  for (const ArchivedFile& child : file.children) {
    Owned<NSFileWrapper> made = newFileWrapper();
    fill(wrapperState(made), child);
    putChild(wrapper, child.key, std::move(made));
  }
}

}  // namespace

Owned<NSData> newArchive(NSFileWrapper* wrapper) {
  ArchivedFile file;
  if (!describe(wrapperState(wrapper), file, 1)) return nullptr;
  std::optional<std::string> bytes = formats::file_archive::write(file);
  return bytes ? foundation::newData(std::move(*bytes)) : nullptr;
}

bool readArchive(FileWrapper& wrapper, std::span<const uint8_t> bytes) {
  const std::optional<ArchivedFile> file = formats::file_archive::read(bytes);
  if (file) fill(wrapper, *file);
  return file.has_value();
}

}  // namespace standin::appkit
