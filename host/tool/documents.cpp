// One table of formats, each with how it is opened and saved.
#include "host/tool/documents.hpp"

#include <algorithm>
#include <filesystem>

#include "host/runtime/declaration.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/tool/files.hpp"
#include "host/tool/members.hpp"
#include "host/tool/pdf_pages.hpp"
#include "host/tool/reading_errors.hpp"

namespace tool {
namespace {

namespace fs = std::filesystem;

struct Format;
using Open = StyledDocument (*)(const Format&, const std::string& path);
using Save = void (*)(const Format&, const StyledDocument&, const std::string& path, const PageDone&);

struct Format {
  const char* name;
  std::initializer_list<const char*> extensions;  // the first is that of new files
  const char* type;                               // the platform's name of it; nil: it has none
  Open open;                                      // nil: it cannot be opened
  Save save;
};

// A document that is none of the format, or damaged.
struct Unreadable {};

void requireRead(const Value& succeeded) {
  if (!succeeded.asBoolean()) throw Unreadable();
}

// Through an initialiser that takes one argument and hands out the document attributes.
StyledDocument openedWith(std::string_view declaration, Value argument) {
  StyledDocument document{make("NSAttributedStringZKT"), {}};
  std::vector<Value> arguments{std::move(argument), {}};
  requireRead(call(document.text, declaration, arguments));
  document.attributes = std::move(arguments[1]);
  return document;
}

std::string typeOf(const StyledDocument& document) {
  if (document.attributes.isNil()) return "";
  return utf8(host::dictionaryValue(document.attributes.asObject(), Value::string("DocumentType")));
}

// The library finds the format by content and by name.
StyledDocument openAny(const std::string& path) {
  if (!isFolder(path)) static_cast<void>(contentsOf(path));
  return openedWith("initWithPath(path as string, byref documentAttributes as dictionary) as boolean", Value::string(path));
}

// A document that turns out to be of another format is none of this one.
StyledDocument openFound(const Format& format, const std::string& path) {
  StyledDocument document = openAny(path);
  if (typeOf(document) != format.type) throw Unreadable();
  return document;
}

StyledDocument openedFromBytes(std::string_view declaration, const std::string& path) {
  return openedWith(declaration, Value::object(host::makeMemoryBlock(contentsOf(path))));
}

StyledDocument openRTF(const Format&, const std::string& path) {
  return openedFromBytes("initWithRTF(data as memoryblock, byref documentAttributes as dictionary) as boolean", path);
}

StyledDocument openRTFD(const Format&, const std::string& path) {
  if (isFolder(path)) return openAny(path);
  return openedFromBytes("initWithRTFD(data as memoryblock, byref documentAttributes as dictionary) as boolean", path);
}

StyledDocument openDoc(const Format&, const std::string& path) {
  return openedFromBytes("initWithDocFormat(data as memoryblock, byref documentAttributes as dictionary) as boolean", path);
}

// Pictures are looked for beside the document.
StyledDocument openHTML(const Format&, const std::string& path) {
  StyledDocument document{make("NSAttributedStringZKT"), {}};
  std::vector<Value> arguments{Value::object(host::makeMemoryBlock(contentsOf(path))), Value::string(fileURL(path)), {}};
  requireRead(call(document.text,
                   "initWithHTML(data as memoryblock, BaseURL as string, byref documentAttributes as dictionary) as boolean",
                   arguments));
  document.attributes = std::move(arguments[2]);
  return document;
}

StyledDocument openedFromText(std::string_view declaration, const std::string& path) {
  StyledDocument document{make("NSAttributedStringZKT"), {}};
  requireRead(call(document.text, declaration, {Value::string(contentsOf(path))}));
  return document;
}

StyledDocument openText(const Format&, const std::string& path) {
  return openedFromText("initWithString(text as string) as boolean", path);
}

StyledDocument openTags(const Format&, const std::string& path) {
  return openedFromText("initWithHTMLOld(data as string) as boolean", path);
}

void saveTags(const Format&, const StyledDocument& document, const std::string& path, const PageDone&) {
  writeBytes(path, utf8(call(document.text, "htmlString as string")));
}

void savePDF(const Format&, const StyledDocument& document, const std::string& path, const PageDone& pageDone) {
  writeBytes(path, pdfOf(document, pageDone));
}

void throwError(const Value& error, const Format& format) {
  throw DocumentError{error.isNil() ? std::string("it cannot be written as ") + format.name
                                    : utf8(get(error, "localizedDescription"))};
}

// The attributes with the type. What the document was encoded in before holds for that file alone.
Value attributesWithType(const Value& attributes, std::string_view type) {
  Value typed = Value::object(host::makeDictionary());
  for (int64_t index = 0; !attributes.isNil() && index < host::dictionaryCount(attributes.asObject()); ++index) {
    const Value key = host::dictionaryKey(attributes.asObject(), index);
    const std::string name = utf8(key);
    if (name == "CharacterEncoding" || name == "TextEncodingName") continue;
    host::setDictionaryValue(typed.asObject(), key, host::dictionaryValue(attributes.asObject(), key));
  }
  host::setDictionaryValue(typed.asObject(), Value::string("DocumentType"), Value::string(type));
  return typed;
}

// As a file, or as the package that documents of the type are.
void saveTyped(const Format& format, const StyledDocument& document, const std::string& path, const PageDone&) {
  std::vector<Value> arguments{
      Value::integer(0), get(document.text, "Length"), attributesWithType(document.attributes, format.type), {}};
  const Value file = call(document.text,
                          "fileWrapperFromRange(offset as integer, length as integer, documentAttributes as dictionary = "
                          "nil, byref Error as NSErrorZKT) as NSFileWrapperZKT",
                          arguments);
  if (file.isNil()) throwError(arguments[3], format);
  constexpr int64_t atomically = 1;
  std::vector<Value> writing{Value::string(fileURL(path)), Value::integer(atomically), Value::string(""), {}};
  const Value written = call(file,
                             "writeToURL(URL as String, Options as Integer = 0, originalContentsURL as String = \"\", byref "
                             "Error as NSErrorZKT) as Boolean",
                             writing);
  if (!written.asBoolean()) throwError(writing[3], format);
}

constexpr Format formats[] = {
    {"txt", {".txt", ".text"}, "NSPlainText", openText, saveTyped},
    {"rtf", {".rtf"}, "NSRTF", openRTF, saveTyped},
    {"rtfd", {".rtfd"}, "NSRTFD", openRTFD, saveTyped},
    {"html", {".html", ".htm", ".xhtml"}, "NSHTML", openHTML, saveTyped},
    {"doc", {".doc"}, "NSDocFormat", openDoc, saveTyped},
    {"docx", {".docx"}, "NSOfficeOpenXML", openFound, saveTyped},
    {"odt", {".odt"}, "NSOpenDocument", openFound, saveTyped},
    {"wordml", {".xml"}, "NSWordML", openFound, saveTyped},
    {"webarchive", {".webarchive"}, "NSWebArchive", openFound, saveTyped},
    {"tags", {".tags"}, nullptr, openTags, saveTags},
    {"pdf", {".pdf"}, nullptr, nullptr, savePDF},
};

// What the platform calls text without styles, which is opened and saved in the library's own way.
constexpr std::string_view plainTextType = "NSPlainText";

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
  const std::string extension = host::lowerCase(fs::path(path).extension().string());
  for (const Format& format : formats) {
    if (std::find(format.extensions.begin(), format.extensions.end(), extension) != format.extensions.end())
      return format.name;
  }
  return "";
}

std::string formatOfType(std::string_view type) {
  for (const Format& format : formats) {
    if (format.type != nullptr && type == format.type) return format.name;
  }
  return type == plainTextType ? "txt" : "";
}

std::string extensionOf(const std::string& format) { return *findFormat(format)->extensions.begin(); }

StyledDocument openDocument(const std::string& path, const std::string& format) {
  const std::string name = format.empty() && formatNamed(path) == "tags" ? "tags" : format;
  try {
    return name.empty() ? openAny(path) : findFormat(name)->open(*findFormat(name), path);
  } catch (const Unreadable&) {
    throw DocumentError{whyUnreadable(path, name)};
  } catch (const host::HostException& exception) {
    throw DocumentError{exception.message()};
  }
}

void saveDocument(const StyledDocument& document, const std::string& path, const std::string& format,
                  const PageDone& pageDone) {
  try {
    findFormat(format)->save(*findFormat(format), document, path, pageDone);
  } catch (const host::HostException& exception) {
    throw DocumentError{exception.message()};
  }
}

}  // namespace tool
