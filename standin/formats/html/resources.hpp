// The addresses in a document, and what they stand for.
#pragma once

#include <filesystem>
#include <memory>
#include <unordered_map>

#include "standin/formats/html/reader.hpp"
#include "standin/formats/pictures/embedded.hpp"
#include "standin/foundation/url_text.hpp"

namespace standin::formats::html {

class Resources {
 public:
  // The options must outlive this.
  Resources(const ReadOptions& options, size_t documentBytes);

  // Of a "base" element; it may be relative itself. The first one counts, unless it is longer than 2,048 bytes.
  void setBase(std::string_view reference);

  // The absolute address; as it is when there is nothing to make it absolute with. All the addresses that are made of
  // others come to four times the document and 1 MB: past that they stay as they are.
  std::string resolve(std::string_view reference);
  // The bytes at the address, of all addresses together no more than 64 MB from files.
  std::optional<std::string> load(std::string_view reference);
  // The picture at the address, read once for all of its places. Nil when there is none or it is no picture.
  std::shared_ptr<const text::Attachment> picture(std::string_view reference, double width, double height);

 private:
  std::string absolute(const std::string& address);
  std::optional<std::string> loadFile(const foundation::UrlParts& url);

  const ReadOptions& options_;
  std::optional<foundation::UrlParts> base_;
  bool hasBaseElement_ = false;
  std::filesystem::path folder_;                            // without symbolic links; empty: no file may be read
  size_t fileBudget_, addressBudget_;                       // bytes
  std::unordered_map<std::string, std::string> addresses_;  // absolute ones, by what stands in the document
  std::unordered_map<std::string, std::shared_ptr<const text::Attachment>> pictures_;
  pictures::SizedPictures sized_;
};

}  // namespace standin::formats::html
