// Pictures that readers find inside documents, as attachments.
#pragma once

#include <string>

#include "standin/text/attachment.hpp"

namespace standin::formats::pictures {

// An attachment of the bytes, which it owns; sizes are points, 0 the picture's own.
std::shared_ptr<const text::Attachment> newAttachment(std::string bytes, std::string fileName, double width = 0,
                                                      double height = 0);

// The same picture in another size; its bytes are shared.
std::shared_ptr<const text::Attachment> withSize(const text::Attachment& attachment, double width, double height);

}  // namespace standin::formats::pictures
