// Why a document cannot be read.
#pragma once

#include <string>

namespace tool {

// For people: what the platform says of the file, and what to do. `format` is the one that was asked for, "" when none was.
std::string whyUnreadable(const std::string& path, const std::string& format);

}  // namespace tool
