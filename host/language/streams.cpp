// BinaryStream and TextOutputStream: classes of the host for reading and writing files piece by piece.
#include <cerrno>
#include <fstream>

#include "host/language/files.hpp"
#include "host/language/value.hpp"
#include "host/runtime/builtin.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/folder_item.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/runtime/runtime.hpp"

namespace language {
namespace {

struct Stream {
  std::fstream file;
  std::string path;
};

constexpr char binaryStream[] = "BinaryStream";
constexpr char textOutputStream[] = "TextOutputStream";

Stream& streamOf(HostObject* self) { return self->stateAs<Stream>(); }

void check(Stream& stream) {
  if (!stream.file.is_open()) host::throwException("IOException", "The stream is closed.");
  if (stream.file.fail()) throwFileError(stream.path);
}

template <const char* className>
HostObject* opened(HostObject* folderItem, std::ios::openmode mode) {
  if (folderItem == nullptr) host::throwNilObject("The file");
  HostOwned<HostObject> object = host::Runtime::shared().newInstance(className);
  Stream& stream = streamOf(object);
  stream.path = host::pathOf(folderItem);
  errno = 0;
  stream.file.open(stream.path, mode | std::ios::binary);
  if (!stream.file) throwFileError(stream.path);
  return object.detach();
}

// A file that is there is refused, unless it may be overwritten.
HostObject* createBinary(HostObject* folderItem, bool overwrite) {
  if (folderItem != nullptr && !overwrite && std::ifstream(host::pathOf(folderItem))) {
    host::throwException("IOException", host::pathOf(folderItem) + ": the file is there already", EEXIST);
  }
  return opened<binaryStream>(folderItem, std::ios::in | std::ios::out | std::ios::trunc);
}

HostObject* openBinary(HostObject* folderItem, bool readWrite) {
  return opened<binaryStream>(folderItem, readWrite ? std::ios::in | std::ios::out : std::ios::in);
}

HostObject* createText(HostObject* folderItem) {
  return opened<textOutputStream>(folderItem, std::ios::out | std::ios::trunc);
}
HostObject* appendText(HostObject* folderItem) {
  return opened<textOutputStream>(folderItem, std::ios::out | std::ios::app);
}

void put(Stream& stream, std::string_view bytes) {
  check(stream);
  stream.file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  check(stream);
}

void write(HostObject* self, host::HostString* text) { put(streamOf(self), host::bytesOf(text)); }

void writeBlock(HostObject* self, HostObject* block) {
  if (block == nullptr) host::throwNilObject("The memory block");
  const std::span<std::byte> memory = host::memoryOf(block);
  put(streamOf(self), {reinterpret_cast<const char*>(memory.data()), memory.size()});
}

void writeLine(HostObject* self, host::HostString* text) { put(streamOf(self), host::utf8Of(text) + "\n"); }

int64_t length(HostObject* self, int64_t) {
  Stream& stream = streamOf(self);
  check(stream);
  const std::streampos position = stream.file.tellg();
  stream.file.seekg(0, std::ios::end);
  const std::streampos end = stream.file.tellg();
  stream.file.seekg(position);
  return end;
}

int64_t position(HostObject* self, int64_t) {
  check(streamOf(self));
  return streamOf(self).file.tellg();
}

void setPosition(HostObject* self, int64_t, int64_t position) {
  check(streamOf(self));
  streamOf(self).file.seekg(position);
  check(streamOf(self));
}

bool atEnd(HostObject* self, int64_t parameter) { return position(self, parameter) >= length(self, parameter); }

// Fewer bytes where the file ends.
host::HostString* read(HostObject* self, int64_t count) {
  const int64_t left = length(self, 0) - position(self, 0);
  std::string bytes(static_cast<size_t>(std::max<int64_t>(0, std::min(count, left))), '\0');
  streamOf(self).file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  check(streamOf(self));
  return host::HostString::make(bytes).detach();
}

void close(HostObject* self) {
  Stream& stream = streamOf(self);
  if (!stream.file.is_open()) return;
  errno = 0;
  stream.file.close();
  if (stream.file.fail()) throwFileError(stream.path);
}

using host::native;

const host::BuiltinProperty kBinaryProperties[] = {
    {"Length as Integer", native(length)},
    {"Position as Integer", native(position), native(setPosition)},
    {"EOF as Boolean", native(atEnd)},
};

const host::BuiltinMethod kBinaryMethods[] = {
    {"Read(count as Integer) as String", native(read)},
    {"Write(text as String)", native(write)},
    {"Write(data as MemoryBlock)", native(writeBlock)},
    {"Close", native(close)},
};

const host::BuiltinMethod kBinaryShared[] = {
    {"Create(file as FolderItem, overwrite as Boolean = true) as BinaryStream", native(createBinary)},
    {"Open(file as FolderItem, readWrite as Boolean = false) as BinaryStream", native(openBinary)},
};

const host::BuiltinMethod kTextMethods[] = {
    {"Write(text as String)", native(write)},
    {"WriteLine(text as String = \"\")", native(writeLine)},
    {"Close", native(close)},
};

const host::BuiltinMethod kTextShared[] = {
    {"Create(file as FolderItem) as TextOutputStream", native(createText)},
    {"Append(file as FolderItem) as TextOutputStream", native(appendText)},
};

const host::BuiltinClass kStreams[] = {
    {.name = binaryStream,
     .state = host::stateOf<Stream>(),
     .properties = kBinaryProperties,
     .methods = kBinaryMethods,
     .sharedMethods = kBinaryShared},
    {.name = textOutputStream, .state = host::stateOf<Stream>(), .methods = kTextMethods, .sharedMethods = kTextShared},
};

}  // namespace

void registerStreams(host::Runtime& runtime) {
  for (const host::BuiltinClass& stream : kStreams) {
    if (runtime.findClass(stream.name) == nullptr) runtime.registerClass(stream);
  }
}

}  // namespace language
