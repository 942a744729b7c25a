// Documents in Word's XML, put together from the elements that a test is about.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "standin/formats/docx/reader.hpp"
#include "standin/formats/styled_runs.hpp"
#include "standin/formats/wordml/reader.hpp"
#include "standin/formats/zip.hpp"

namespace tests {

using standin::formats::Document;
using standin::text::Style;
using Parts = std::map<std::string, std::string>;
using Pieces = std::vector<std::pair<std::u16string, Style>>;

inline std::span<const uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

inline const std::string wordNamespaces =
    " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
    " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\""
    " xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\""
    " xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\""
    " xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\""
    " xmlns:m=\"http://schemas.openxmlformats.org/officeDocument/2006/math\""
    " xmlns:v=\"urn:schemas-microsoft-com:vml\"";

inline std::string wordRoot(const std::string& name, const std::string& content) {
  return "<w:" + name + wordNamespaces + ">" + content + "</w:" + name + ">";
}

inline std::string relationships(const std::vector<std::array<std::string, 3>>& rows) {
  std::string all = "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
  for (const auto& [id, type, target] : rows) {
    all += "<Relationship Id=\"" + id + "\" Type=\"http://x/" + type + "\" Target=\"" + target + "\"" +
           (type == "hyperlink" ? " TargetMode=\"External\"/>" : "/>");
  }
  return all + "</Relationships>";
}

// The body's elements as a package; `parts` replace or come beside the usual ones.
inline std::string docxOf(const std::string& body, const Parts& parts = {}) {
  Parts all = parts;
  all.try_emplace("_rels/.rels", relationships({{"1", "officeDocument", "word/document.xml"}}));
  all.try_emplace("word/document.xml", wordRoot("document", "<w:body>" + body + "</w:body>"));
  std::vector<std::array<std::string, 3>> rows = {{"link", "hyperlink", "http://a.org/?x=1&amp;y"},
                                                  {"picture", "image", "media/p.png"},
                                                  {"metafile", "image", "media/p.wmf"}};
  for (const char* name : {"styles", "numbering", "theme", "settings"})
    rows.push_back({name, name, std::string(name) + ".xml"});
  all.try_emplace("word/_rels/document.xml.rels", relationships(rows));
  std::vector<standin::formats::zip::Entry> entries;
  for (const auto& [name, contents] : all) entries.push_back({name, contents});
  return *standin::formats::zip::write(entries);
}

inline Document readDocx(const std::string& body, const Parts& parts = {}) {
  return standin::formats::docx::read(bytesOf(docxOf(body, parts))).value();
}

inline std::string wordMLOf(const std::string& body, const std::string& before = {}) {
  return "<?xml version=\"1.0\"?><w:wordDocument xmlns:w=\"http://schemas.microsoft.com/office/word/2003/wordml\""
         " xmlns:aml=\"http://schemas.microsoft.com/aml/2001/core\" xmlns:v=\"urn:schemas-microsoft-com:vml\""
         " xmlns:o=\"urn:schemas-microsoft-com:office:office\" xml:space=\"preserve\">" +
         before + "<w:body>" + body + "</w:body></w:wordDocument>";
}

// The style of the character at the position.
inline const Style& styleAt(const Document& document, size_t position) {
  for (const auto& run : document.runs) {
    if (position < run.length) return document.styles[run.style];
    position -= run.length;
  }
  throw std::out_of_range("no such character");
}

// The pieces outlive the result.
inline standin::formats::StyledRuns styledRunsOf(const Pieces& pieces) {
  standin::formats::StyledRuns styled;
  for (const auto& [units, style] : pieces) {
    styled.text.append(standin::text::Text::utf16(units));
    styled.runs.push_back({static_cast<uint32_t>(units.size()), &style});
  }
  return styled;
}

// A picture of one pixel.
inline const std::string pixel(
    "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\b\2\0\0\0\x90wS\xDE\0\0\0\fIDAT\b\xD7"
    "c\xF8\xCF\xC0\0\0\3\1\1\0\x18\xDD\x8D\xB0\0\0\0\0IEND\xAE"
    "B`\x82",
    69);

}  // namespace tests
