// Pictures that readers find inside documents, as attachments.
#pragma once

#include <map>
#include <string>
#include <tuple>

#include "standin/text/attachment.hpp"

namespace standin::formats::pictures {

// An attachment of the bytes, which it owns; sizes are points, 0 the picture's own.
std::shared_ptr<const text::Attachment> newAttachment(std::string bytes, std::string fileName, double width = 0,
                                                      double height = 0);

// The same picture in another size; its bytes are shared.
std::shared_ptr<const text::Attachment> withSize(const text::Attachment& attachment, double width, double height);

// Pictures in the sizes in which a document shows them, one attachment for all places that show a picture alike.
class SizedPictures {
 public:
  // Like withSize; the picture has contents.
  std::shared_ptr<const text::Attachment> of(const text::Attachment& picture, double width, double height);

 private:
  // By the address of the contents, which the attachment keeps from being another's, width and height.
  std::map<std::tuple<const uint8_t*, double, double>, std::shared_ptr<const text::Attachment>> sized_;
};

}  // namespace standin::formats::pictures
