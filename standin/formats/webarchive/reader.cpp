// Media types by a table of who reads them.
#include "standin/formats/webarchive/reader.hpp"

#include <unicode/unistr.h>

#include <unordered_map>

#include "standin/formats/pictures/embedded.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/plain/reader.hpp"
#include "standin/formats/rtf/reader.hpp"
#include "standin/formats/signatures.hpp"
#include "standin/formats/webarchive/archive.hpp"
#include "standin/text/font_faces.hpp"

namespace standin::formats::webarchive {
namespace {

std::span<const uint8_t> bytesOf(const std::string& contents) {
  return {reinterpret_cast<const uint8_t*>(contents.data()), contents.size()};
}

// A document of units in one style.
Document uniform(std::u16string text, text::Style style) {
  Document document;
  document.text = std::move(text);
  if (!document.text.empty()) document.runs = {{static_cast<uint32_t>(document.text.size()), 0}};
  document.styles = {std::move(style)};
  return document;
}

// The files by their addresses. All that is handed out together is bounded, however often a page refers to a file.
html::ReadOptions::Resource filesOf(const Archive& archive) {
  constexpr uint64_t most = 64 << 20;
  std::unordered_map<std::string_view, const Resource*> files;
  uint64_t budget = most;
  for (const Resource& file : archive.files) {
    files.emplace(file.url, &file);
    budget += file.contents.size();
  }
  return [files = std::move(files), budget](std::string_view address) mutable -> std::optional<std::string> {
    const auto found = files.find(address.substr(0, address.find('#')));
    if (found == files.end() || found->second->contents.size() > budget) return std::nullopt;
    budget -= found->second->contents.size();
    return found->second->contents;
  };
}

// An encoding that is wrongly named does not keep a page from being read.
std::optional<Document> readPage(const Archive& archive, html::ReadOptions& options) {
  options.baseURL = archive.page.url;
  options.folder.clear();  // whatever address it claims
  options.encodingName = archive.page.encodingName;
  options.resource = filesOf(archive);
  auto document = html::read(bytesOf(archive.page.contents), options);
  if (document || options.encodingName.empty()) return document;
  options.encodingName.clear();
  return html::read(bytesOf(archive.page.contents), options);
}

std::optional<Document> readRichText(const Archive& archive, html::ReadOptions& /*options*/) {
  return rtf::read(bytesOf(archive.page.contents));
}

std::u16string unitsOf(const Resource& page) {
  if (page.contents.size() > INT32_MAX) return {};
  icu::UnicodeString named(page.contents.data(), static_cast<int32_t>(page.contents.size()), page.encodingName.c_str());
  if (!page.encodingName.empty() && !named.isBogus()) {
    if (named.startsWith(u'\xFEFF')) named.remove(0, 1);
    return {named.getBuffer(), static_cast<size_t>(named.length())};
  }
  const auto plain = plain::read(bytesOf(page.contents), std::nullopt);
  std::u16string units(plain ? plain->text.size() : 0, u'\0');
  if (plain) plain->text.copy(0, plain->text.size(), units.data());
  return units;
}

// Browsers store the HTML in which they show plain text, under the text's own media type.
std::optional<Document> readPlainText(const Archive& archive, html::ReadOptions& options) {
  if (looksLikeHTML(archive.page.contents)) return readPage(archive, options);
  text::Style style = options.defaultStyle.value_or(text::Style());
  if (!style.font) style.font = text::fontMeant("Helvetica", 0, 12);
  return uniform(unitsOf(archive.page), std::move(style));
}

std::optional<Document> readPicture(const Archive& archive, html::ReadOptions& /*options*/) {
  const auto format = pictures::formatOf(bytesOf(archive.page.contents));
  if (format == pictures::Format::unknown) return std::nullopt;
  text::Style style;
  style.attachment = pictures::newAttachment(archive.page.contents, "picture." + std::string(pictures::extensionOf(format)));
  return uniform({text::attachmentCharacter}, std::move(style));
}

struct MediaType {
  std::string_view start;
  std::optional<Document> (*read)(const Archive&, html::ReadOptions&);
};
constexpr MediaType mediaTypes[] = {
    {"text/html", readPage},
    {"application/xhtml+xml", readPage},
    {"text/rtf", readRichText},
    {"application/rtf", readRichText},
    {"text/", readPlainText},
    {"image/", readPicture},
    {"", readPage},
};

}  // namespace

std::optional<Document> read(std::span<const uint8_t> bytes, html::ReadOptions options) {
  const auto archive = parse(bytes);
  if (!archive) return std::nullopt;
  for (const MediaType& type : mediaTypes) {
    if (archive->page.mimeType.starts_with(type.start)) return type.read(*archive, options);
  }
  return std::nullopt;
}

}  // namespace standin::formats::webarchive
