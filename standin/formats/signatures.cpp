// The marks of the formats; of those that are XML or zip, what the beginning or the list of parts says.
#include "standin/formats/signatures.hpp"

#include <algorithm>
#include <string>

#include "standin/formats/file_archive/layout.hpp"

namespace standin::formats {
namespace {

using namespace std::string_view_literals;

// As much as prologues, comments and white space take in real documents.
constexpr size_t prologueLength = 4096;

bool contains(std::string_view bytes, std::string_view part) { return bytes.find(part) != std::string_view::npos; }

// Without a byte-order mark and white space in front.
std::string_view content(std::string_view bytes) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
  return bytes;
}

// The prologue's ASCII, of text in UTF-16 with a byte-order mark too.
std::string asciiPrologue(std::string_view bytes) {
  if (!bytes.starts_with("\xFF\xFE") && !bytes.starts_with("\xFE\xFF")) {
    return std::string(content(bytes).substr(0, prologueLength));
  }
  std::string start;
  for (size_t at = bytes[0] == '\xFF' ? 2 : 3; at < std::min(bytes.size(), 2 * prologueLength); at += 2) start += bytes[at];
  return std::string(content(start));
}

std::string lowercasePrologue(std::string_view bytes) {
  std::string start = asciiPrologue(bytes);
  std::transform(start.begin(), start.end(), start.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
  return start;
}

bool isXML(std::string_view bytes) { return content(bytes).starts_with("<?xml"); }
bool isZip(std::string_view bytes) { return bytes.starts_with("PK\3\4"sv); }

}  // namespace

bool looksLikeRTF(std::string_view bytes) { return content(bytes).starts_with("{\\rtf"); }

bool looksLikeFileArchive(std::string_view bytes) { return bytes.starts_with(file_archive::signature); }

bool looksLikeHTML(std::string_view bytes) {
  const std::string start = lowercasePrologue(bytes);
  constexpr std::string_view openings[] = {"<!doctype html", "<html", "<head", "<body", "<title"};
  if (std::any_of(std::begin(openings), std::end(openings), [&](auto opening) { return start.starts_with(opening); })) {
    return true;
  }
  return (start.starts_with("<?xml") || start.starts_with("<!--")) && contains(start, "<html");
}

bool looksLikeWebArchive(std::string_view bytes) {
  return (bytes.starts_with("bplist") || isXML(bytes)) && contains(bytes, "WebMainResource");
}

bool looksLikeWordML(std::string_view bytes) {
  const std::string_view start = content(bytes).substr(0, prologueLength);
  constexpr std::string_view marks[] = {"wordDocument", "progid=\"Word.Document\"", "/2006/xmlPackage"};
  return isXML(bytes) && std::any_of(std::begin(marks), std::end(marks), [&](auto mark) { return contains(start, mark); });
}

bool looksLikeCompoundFile(std::string_view bytes) { return bytes.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv); }

bool looksLikeOfficeOpenXML(std::string_view bytes) { return isZip(bytes) && contains(bytes, "word/document"); }

// The type is the first part, not compressed, right behind the header of 30 bytes; some programs leave it out. A document
// that is one file says it in its first element.
bool looksLikeOpenDocument(std::string_view bytes) {
  if (isXML(bytes)) return contains(content(bytes).substr(0, prologueLength), "<office:document");
  if (!isZip(bytes) || bytes.size() <= 30) return false;
  constexpr std::string_view type = "mimetypeapplication/vnd.";
  if (!bytes.substr(30).starts_with(type)) return contains(bytes, "META-INF/manifest.xml") && contains(bytes, "content.xml");
  const std::string_view kind = bytes.substr(30 + type.size());
  return kind.starts_with("oasis.opendocument.text") || kind.starts_with("sun.xml.writer");
}

}  // namespace standin::formats
