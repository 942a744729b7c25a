// Pictures are numbered in the order of the text, equal ones once.
#include "standin/formats/webarchive/writer.hpp"

#include <map>

#include "standin/formats/html/charset.hpp"
#include "standin/formats/html/writer.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/webarchive/archive.hpp"

namespace standin::formats::webarchive {
namespace {

class PictureFiles {
 public:
  // The address of the picture, which becomes one of the files; empty for an attachment that is no picture.
  std::string addressOf(const text::Attachment& attachment) {
    const auto format = pictures::formatOf(attachment.contents);
    if (format == pictures::Format::unknown) return "";
    std::string& address = addresses_[attachment.contents.data()];
    if (address.empty()) {
      address = "file:///picture" + std::to_string(files_.size() + 1) + "." + std::string(pictures::extensionOf(format));
      files_.push_back({.url = address,
                        .mimeType = std::string(pictures::mimeTypeOf(format)),
                        .contents = {attachment.contents.begin(), attachment.contents.end()}});
    }
    return address;
  }

  std::vector<Resource> take() { return std::move(files_); }

 private:
  std::map<const uint8_t*, std::string> addresses_;
  std::vector<Resource> files_;
};

}  // namespace

std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information) {
  PictureFiles files;
  auto page =
      html::write(styled, information, [&](const text::Attachment& attachment) { return files.addressOf(attachment); });
  if (!page) return std::nullopt;
  return serialize({.page = {.url = "file:///index.html",
                             .mimeType = "text/html",
                             .encodingName = *html::charsetNamed(information.textEncodingName),
                             .contents = *std::move(page)},
                    .files = files.take()});
}

}  // namespace standin::formats::webarchive
