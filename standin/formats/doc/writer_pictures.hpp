// Pictures as the data stream holds them.
#pragma once

#include <string>

#include "standin/text/attachment.hpp"

namespace standin::formats::doc {

// Appends the attachment as a picture in the line; false when it is no picture of a kind that documents hold.
bool appendPicture(std::string& data, const text::Attachment& attachment);

}  // namespace standin::formats::doc
