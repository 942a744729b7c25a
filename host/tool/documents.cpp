// One table of formats, each with how it is opened and saved.
#include "host/tool/documents.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>

#include "host/language/files.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/tool/members.hpp"

namespace tool {
namespace {

namespace fs = std::filesystem;

std::string contentsOf(const std::string& path) {
  std::optional<std::string> contents = language::contentsOf(path);
  if (!contents) throw DocumentError{std::strerror(errno)};
  return *std::move(contents);
}

void requireRead(const Value& succeeded, const char* format) {
  if (!succeeded.asBoolean()) throw DocumentError{std::string("it cannot be read as ") + format};
}

// Through an initialiser that takes one argument and hands out the document attributes.
StyledDocument openedWith(std::string_view declaration, Value argument, const char* format) {
  StyledDocument document{make("NSAttributedStringZKT"), {}};
  std::vector<Value> arguments{std::move(argument), {}};
  requireRead(call(document.text, declaration, arguments), format);
  document.attributes = std::move(arguments[1]);
  return document;
}

StyledDocument openAny(const std::string& path) {
  if (!fs::is_directory(path)) static_cast<void>(contentsOf(path));
  return openedWith("initWithPath(path as string, byref documentAttributes as dictionary) as boolean", Value::string(path),
                    "a document of a known format");
}

StyledDocument openedFromBytes(std::string_view declaration, const std::string& path, const char* format) {
  return openedWith(declaration, Value::object(host::makeMemoryBlock(contentsOf(path))), format);
}

StyledDocument openRTF(const std::string& path) {
  return openedFromBytes("initWithRTF(data as memoryblock, byref documentAttributes as dictionary) as boolean", path, "rtf");
}

StyledDocument openRTFD(const std::string& path) {
  if (fs::is_directory(path)) return openAny(path);
  return openedFromBytes("initWithRTFD(data as memoryblock, byref documentAttributes as dictionary) as boolean", path,
                         "rtfd");
}

StyledDocument openedFromText(std::string_view declaration, const std::string& path, const char* format) {
  StyledDocument document{make("NSAttributedStringZKT"), {}};
  requireRead(call(document.text, declaration, {Value::string(contentsOf(path))}), format);
  return document;
}

StyledDocument openText(const std::string& path) {
  return openedFromText("initWithString(text as string) as boolean", path, "txt");
}

StyledDocument openHTML(const std::string& path) {
  return openedFromText("initWithHTMLOld(data as string) as boolean", path, "html");
}

// Beside the file first, so that a failure half-way leaves what was there.
void writeBytes(const std::string& path, std::string_view bytes) {
  const std::string beside = path + ".new";
  errno = 0;
  std::ofstream file(beside, std::ios::binary);
  const bool written = file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())) && file.flush();
  std::error_code failure(written ? 0 : errno != 0 ? errno : EIO, std::generic_category());
  if (written) fs::rename(beside, path, failure);
  std::error_code ignored;
  if (failure) fs::remove(beside, ignored);
  if (failure) throw DocumentError{failure.message()};
}

void saveText(const StyledDocument& document, const std::string& path) {
  writeBytes(path, utf8(get(document.text, "Text")));
}

void saveHTML(const StyledDocument& document, const std::string& path) {
  writeBytes(path, utf8(call(document.text, "htmlString as string")));
}

void saveRTF(const StyledDocument& document, const std::string& path) {
  const Value data =
      call(document.text, "RTFFromRange(documentAttributes as dictionary = nil) as memoryblock", {document.attributes});
  if (data.isNil()) throw DocumentError{"it cannot be written as rtf"};
  const auto bytes = host::memoryOf(data.asObject());
  writeBytes(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

void throwError(const Value& error) {
  throw DocumentError{error.isNil() ? "it cannot be written as rtfd" : utf8(get(error, "localizedDescription"))};
}

std::string fileURL(const std::string& path) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char c : fs::absolute(path).string()) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) != 0 || std::strchr("/-._~", c) != nullptr) {
      url += c;
    } else {
      ((url += '%') += digits[byte >> 4]) += digits[byte & 15];
    }
  }
  return url;
}

// The attributes with the type: entries of the document's own type give way.
Value attributesWithType(const Value& attributes, std::string_view type) {
  Value typed = Value::object(host::makeDictionary());
  for (int64_t index = 0; !attributes.isNil() && index < host::dictionaryCount(attributes.asObject()); ++index) {
    const Value key = host::dictionaryKey(attributes.asObject(), index);
    host::setDictionaryValue(typed.asObject(), key, host::dictionaryValue(attributes.asObject(), key));
  }
  host::setDictionaryValue(typed.asObject(), Value::string("DocumentType"), Value::string(type));
  return typed;
}

void saveRTFD(const StyledDocument& document, const std::string& path) {
  std::vector<Value> arguments{
      Value::integer(0), get(document.text, "Length"), attributesWithType(document.attributes, "NSRTFD"), {}};
  const Value package = call(document.text,
                             "fileWrapperFromRange(offset as integer, length as integer, documentAttributes as dictionary = "
                             "nil, byref Error as NSErrorZKT) as NSFileWrapperZKT",
                             arguments);
  if (package.isNil()) throwError(arguments[3]);
  constexpr int64_t atomically = 1;
  std::vector<Value> writing{Value::string(fileURL(path)), Value::integer(atomically), Value::string(""), {}};
  const Value written = call(package,
                             "writeToURL(URL as String, Options as Integer = 0, originalContentsURL as String = \"\", byref "
                             "Error as NSErrorZKT) as Boolean",
                             writing);
  if (!written.asBoolean()) throwError(writing[3]);
}

struct Format {
  const char* name;
  std::initializer_list<const char*> extensions;  // the first is that of new files
  StyledDocument (*open)(const std::string& path);
  void (*save)(const StyledDocument&, const std::string& path);
};
constexpr Format formats[] = {
    {"txt", {".txt", ".text"}, openText, saveText},
    {"rtf", {".rtf"}, openRTF, saveRTF},
    {"rtfd", {".rtfd"}, openRTFD, saveRTFD},
    {"html", {".html", ".htm"}, openHTML, saveHTML},
};

const Format* findFormat(const std::string& name) {
  const auto found =
      std::find_if(std::begin(formats), std::end(formats), [&](const Format& row) { return row.name == name; });
  return found != std::end(formats) ? found : nullptr;
}

template <class Function>
std::vector<std::string> namesWith(Function Format::*function) {
  std::vector<std::string> names;
  for (const Format& format : formats) {
    if (format.*function != nullptr) names.push_back(format.name);
  }
  return names;
}

}  // namespace

std::vector<std::string> readableFormats() { return namesWith(&Format::open); }
std::vector<std::string> writableFormats() { return namesWith(&Format::save); }

std::string formatNamed(std::string_view path) {
  std::string extension = fs::path(path).extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(), [](unsigned char c) { return std::tolower(c); });
  for (const Format& format : formats) {
    if (std::find(format.extensions.begin(), format.extensions.end(), extension) != format.extensions.end())
      return format.name;
  }
  return "";
}

std::string extensionOf(const std::string& format) { return *findFormat(format)->extensions.begin(); }

// The library finds every format by content but HTML, of which it reads its own dialect when it is asked to.
StyledDocument openDocument(const std::string& path, const std::string& format) {
  const std::string name = format.empty() && formatNamed(path) == "html" ? "html" : format;
  try {
    return name.empty() ? openAny(path) : findFormat(name)->open(path);
  } catch (const host::HostException& exception) {
    throw DocumentError{exception.message()};
  }
}

void saveDocument(const StyledDocument& document, const std::string& path, const std::string& format) {
  try {
    findFormat(format)->save(document, path);
  } catch (const host::HostException& exception) {
    throw DocumentError{exception.message()};
  }
}

}  // namespace tool
