// Attachments written.
#pragma once

#include <string>

#include "standin/text/attachment.hpp"

namespace standin::formats::rtf {

// By the name of its file when it has one in the package; else as a picture, when its contents are one that RTF holds; else
// not at all.
void appendAttachment(std::string& out, const text::Attachment& attachment);

}  // namespace standin::formats::rtf
