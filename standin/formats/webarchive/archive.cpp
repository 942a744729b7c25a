// Property lists by libplist, which is given nothing that it would not read in bounded time and memory.
#include "standin/formats/webarchive/archive.hpp"

#include <plist/plist.h>

#include <limits>
#include <memory>

#include "standin/formats/webarchive/property_list_bounds.hpp"

namespace standin::formats::webarchive {
namespace {

constexpr size_t longestList = std::numeric_limits<uint32_t>::max();

struct FreeNode {
  void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

// The entry when it is of the type; nil for none.
plist_t entry(plist_t dictionary, const char* key, plist_type type) {
  plist_t found = plist_dict_get_item(dictionary, key);
  return found != nullptr && plist_get_node_type(found) == type ? found : nullptr;
}

std::string textEntry(plist_t dictionary, const char* key) {
  plist_t found = entry(dictionary, key, PLIST_STRING);
  uint64_t length = 0;
  const char* text = found != nullptr ? plist_get_string_ptr(found, &length) : nullptr;
  return text != nullptr ? std::string(text, length) : "";
}

std::string dataEntry(plist_t dictionary, const char* key) {
  plist_t found = entry(dictionary, key, PLIST_DATA);
  uint64_t length = 0;
  const char* data = found != nullptr ? plist_get_data_ptr(found, &length) : nullptr;
  return data != nullptr ? std::string(data, length) : "";
}

Resource resourceOf(plist_t dictionary) {
  return {.url = textEntry(dictionary, "WebResourceURL"),
          .mimeType = textEntry(dictionary, "WebResourceMIMEType"),
          .encodingName = textEntry(dictionary, "WebResourceTextEncodingName"),
          .contents = dataEntry(dictionary, "WebResourceData")};
}

std::vector<Resource> filesOf(plist_t list) {
  std::vector<Resource> files;
  const uint32_t count = list != nullptr ? plist_array_get_size(list) : 0;
  for (uint32_t index = 0; index < count; ++index) {
    plist_t item = plist_array_get_item(list, index);
    if (plist_get_node_type(item) != PLIST_DICT) continue;
    Resource file = resourceOf(item);
    if (!file.url.empty()) files.push_back(std::move(file));
  }
  return files;
}

void addText(plist_t dictionary, const char* key, const std::string& text) {
  plist_dict_set_item(dictionary, key, plist_new_string(text.c_str()));
}

plist_t newResource(const Resource& resource) {
  plist_t dictionary = plist_new_dict();
  plist_dict_set_item(dictionary, "WebResourceData", plist_new_data(resource.contents.data(), resource.contents.size()));
  addText(dictionary, "WebResourceMIMEType", resource.mimeType);
  if (!resource.encodingName.empty()) addText(dictionary, "WebResourceTextEncodingName", resource.encodingName);
  addText(dictionary, "WebResourceURL", resource.url);
  return dictionary;
}

}  // namespace

std::optional<Archive> parse(std::span<const uint8_t> bytes) {
  if (bytes.size() > longestList || !isBoundedPropertyList(bytes)) return std::nullopt;
  plist_t read = nullptr;
  plist_from_memory(reinterpret_cast<const char*>(bytes.data()), static_cast<uint32_t>(bytes.size()), &read);
  const Node root(read);
  if (!root || plist_get_node_type(root.get()) != PLIST_DICT) return std::nullopt;
  plist_t page = entry(root.get(), "WebMainResource", PLIST_DICT);
  if (page == nullptr || entry(page, "WebResourceData", PLIST_DATA) == nullptr) return std::nullopt;
  return Archive{resourceOf(page), filesOf(entry(root.get(), "WebSubresources", PLIST_ARRAY))};
}

std::optional<std::string> serialize(const Archive& archive) {
  size_t size = archive.page.contents.size();
  for (const Resource& file : archive.files) size += file.contents.size();
  if (size > longestList / 2) return std::nullopt;
  const Node root(plist_new_dict());
  plist_t page = newResource(archive.page);
  addText(page, "WebResourceFrameName", "");
  plist_dict_set_item(root.get(), "WebMainResource", page);
  if (!archive.files.empty()) {
    plist_t files = plist_new_array();
    for (const Resource& file : archive.files) plist_array_append_item(files, newResource(file));
    plist_dict_set_item(root.get(), "WebSubresources", files);
  }
  char* bytes = nullptr;
  uint32_t length = 0;
  plist_to_bin(root.get(), &bytes, &length);
  const std::unique_ptr<char, decltype(&plist_to_bin_free)> owned(bytes, plist_to_bin_free);
  if (bytes == nullptr) return std::nullopt;
  return std::string(bytes, length);
}

}  // namespace standin::formats::webarchive
