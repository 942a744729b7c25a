// OpenDocument texts made by tests: one-file documents around a body, and packages.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "standin/formats/odt/reader.hpp"
#include "standin/formats/odt/writer.hpp"
#include "standin/formats/utf8.hpp"
#include "standin/formats/zip.hpp"

namespace odt_support {

using standin::formats::Document;
using standin::text::Style;

inline const std::string namespaces =
    " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
    " xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\""
    " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\""
    " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
    " xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\""
    " xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\""
    " xmlns:svg=\"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0\""
    " xmlns:meta=\"urn:oasis:names:tc:opendocument:xmlns:meta:1.0\""
    " xmlns:config=\"urn:oasis:names:tc:opendocument:xmlns:config:1.0\""
    " xmlns:loext=\"urn:org:documentfoundation:names:experimental:office:xmlns:loext:1.0\""
    " xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:xlink=\"http://www.w3.org/1999/xlink\"";

inline std::string part(const std::string& root, const std::string& content) {
  return "<office:" + root + namespaces + ">" + content + "</office:" + root + ">";
}

inline std::string body(const std::string& content) {
  return "<office:body><office:text>" + content + "</office:text></office:body>";
}

inline std::string flat(const std::string& content, const std::string& automatic = {}, const std::string& common = {}) {
  return part("document", "<office:styles>" + common + "</office:styles><office:automatic-styles>" + automatic +
                              "</office:automatic-styles>" + body(content));
}

inline std::optional<Document> parsed(std::string_view bytes) {
  return standin::formats::odt::read({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
}

// In UTF-8, with the characters that would not be seen shown otherwise.
inline std::string shown(const std::optional<Document>& document) {
  std::string text = document ? standin::formats::utf8Of(document->text) : "(not read)";
  for (size_t at; (at = text.find('\f')) != text.npos;) text.replace(at, 1, "<page>");
  return text;
}

inline const Style& styleAt(const Document& document, size_t position) {
  for (const auto& run : document.runs) {
    if (position < run.length) return document.styles[run.style];
    position -= run.length;
  }
  throw std::out_of_range("no such character");
}

// The style of the first place where the text is found.
inline const Style& styleOf(const Document& document, std::u16string_view text) {
  return styleAt(document, document.text.find(text));
}

inline std::string textStyle(const std::string& name, const std::string& attributes, const std::string& more = {}) {
  return "<style:style style:name=\"" + name + "\" style:family=\"text\"" + more + "><style:text-properties " + attributes +
         "/></style:style>";
}

inline std::string paragraphStyle(const std::string& name, const std::string& attributes, const std::string& inside = {},
                                  const std::string& more = {}) {
  return "<style:style style:name=\"" + name + "\" style:family=\"paragraph\"" + more + "><style:paragraph-properties " +
         attributes + ">" + inside + "</style:paragraph-properties></style:style>";
}

// A PNG of one pixel.
inline const std::string pixel(
    "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\6\0\0\0\x1f\x15\xc4\x89\0\0\0\rIDATx\xda\x63\x64\xf8\xcf\x50\x0f\0\3"
    "\x86\1"
    "\x80\x5a\x34\x7d\x6b\0\0\0\0IEND\xae\x42\x60\x82",
    70);

using Parts = std::vector<standin::formats::zip::Entry>;
inline std::string package(Parts parts) {
  parts.insert(parts.begin(), {"mimetype", "application/vnd.oasis.opendocument.text", false});
  return standin::formats::zip::write(parts).value();
}

inline std::string written(const Document& document) {
  standin::formats::StyledRuns styled;
  styled.text = standin::text::Text::utf16(document.text);
  for (const auto& run : document.runs) styled.runs.push_back({run.length, &document.styles[run.style]});
  return standin::formats::odt::write(styled, document).value();
}

inline std::string partOf(const std::string& package, const std::string& name) {
  auto archive = standin::formats::zip::Archive::open({reinterpret_cast<const uint8_t*>(package.data()), package.size()});
  return archive ? archive->read(name).value_or("(no such part)") : "(no package)";
}

}  // namespace odt_support
