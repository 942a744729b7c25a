// "data:" addresses, what the reader was given, local files.
#include "standin/formats/html/resources.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "standin/formats/base64.hpp"
#include "standin/formats/html/ascii.hpp"
#include "standin/formats/pictures/embedded.hpp"
#include "standin/formats/pictures/picture.hpp"

namespace standin::formats::html {
namespace {

constexpr size_t mostFileBytes = size_t{64} << 20;
constexpr size_t longestBase = 2048;

// Addresses of 80 characters for links of 20 are far from it.
constexpr size_t mostAddressBytes(size_t documentBytes) { return 4 * documentBytes + (size_t{1} << 20); }

bool hasScheme(const foundation::UrlParts& url, std::string_view scheme) {
  return url.scheme && equalIgnoringCase(*url.scheme, scheme);
}

// Line ends in an address are of the document's source.
std::string withoutLineEnds(std::string_view reference) {
  std::string result(trimmed(reference));
  std::erase_if(result, [](char c) { return c == '\n' || c == '\r' || c == '\t'; });
  return result;
}

// "data:image/png;base64,…"
std::optional<std::string> dataIn(std::string_view address) {
  const size_t comma = address.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const std::string_view type = address.substr(0, comma);
  std::string bytes = foundation::unescaped(address.substr(comma + 1));
  return type.ends_with(";base64") ? bytesOfBase64(bytes) : std::move(bytes);
}

// Both without symbolic links and dots.
bool isInside(const std::filesystem::path& path, const std::filesystem::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

bool isData(std::string_view address) { return equalIgnoringCase(address.substr(0, 5), "data:"); }

std::string fileNameOf(std::string_view address, std::span<const uint8_t> bytes) {
  if (isData(address)) return "picture." + std::string(pictures::extensionOf(pictures::formatOf(bytes)));
  const std::string path = foundation::unescaped(foundation::parseUrl(address).path);
  return path.substr(path.rfind('/') + 1);
}

}  // namespace

Resources::Resources(const ReadOptions& options, size_t documentBytes)
    : options_(options), fileBudget_(mostFileBytes), addressBudget_(mostAddressBytes(documentBytes)) {
  if (!options.baseURL.empty()) base_ = foundation::parseUrl(options.baseURL);
  std::error_code failed;
  if (!options.folder.empty()) folder_ = std::filesystem::canonical(options.folder, failed);
}

void Resources::setBase(std::string_view reference) {
  reference = trimmed(reference);
  if (hasBaseElement_ || reference.empty() || reference.size() > longestBase) return;
  hasBaseElement_ = true;
  base_ = foundation::parseUrl(resolve(reference));
}

std::string Resources::resolve(std::string_view reference) {
  std::string address = withoutLineEnds(reference);
  return !base_ || base_->isOpaque() || isData(address) ? address : absolute(address);
}

std::string Resources::absolute(const std::string& address) {
  if (const auto known = addresses_.find(address); known != addresses_.end()) return known->second;
  const foundation::UrlParts parts = foundation::parseUrl(address);
  if (parts.scheme || addressBudget_ == 0) return address;
  std::string resolved = foundation::resolveUrl(*base_, parts).text();
  if (resolved.size() > addressBudget_) {
    addressBudget_ = 0;
    return address;
  }
  addressBudget_ -= resolved.size();
  return addresses_.emplace(address, std::move(resolved)).first->second;
}

std::optional<std::string> Resources::load(std::string_view reference) {
  const std::string address = resolve(reference);
  if (isData(address)) return dataIn(address);
  if (options_.resource) {
    if (auto found = options_.resource(address)) return found;
  }
  const foundation::UrlParts url = foundation::parseUrl(address);
  return hasScheme(url, "file") ? loadFile(url) : std::nullopt;
}

std::optional<std::string> Resources::loadFile(const foundation::UrlParts& url) {
  const bool isLocal = !url.authority || url.authority->empty() || *url.authority == "localhost";
  if (!isLocal || folder_.empty()) return std::nullopt;
  std::error_code failed;
  const std::filesystem::path path = std::filesystem::canonical(foundation::unescaped(url.path), failed);
  if (failed || !isInside(path, folder_) || !std::filesystem::is_regular_file(path, failed)) return std::nullopt;
  const auto size = std::filesystem::file_size(path, failed);
  if (failed || size > fileBudget_) return std::nullopt;
  fileBudget_ -= static_cast<size_t>(size);
  std::ifstream file(path, std::ios::binary);
  std::string bytes(static_cast<size_t>(size), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<size_t>(std::max<std::streamsize>(file.gcount(), 0)));
  return bytes;
}

std::shared_ptr<const text::Attachment> Resources::picture(std::string_view reference, double width, double height) {
  const std::string address = resolve(reference);
  const auto [entry, isNew] = pictures_.try_emplace(address);
  if (isNew) {
    auto bytes = load(address);
    const std::span<const uint8_t> span(reinterpret_cast<const uint8_t*>(bytes ? bytes->data() : nullptr),
                                        bytes ? bytes->size() : 0);
    if (!span.empty() && pictures::sizeOf(span)) {
      std::string name = fileNameOf(address, span);
      entry->second = pictures::newAttachment(*std::move(bytes), std::move(name));
    }
  }
  const bool isSized = entry->second != nullptr && (width > 0 || height > 0);
  return isSized ? sized_.of(*entry->second, width, height) : entry->second;
}

}  // namespace standin::formats::html
