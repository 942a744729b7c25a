// Colours, where a person reads.
#pragma once

#include <string>
#include <string_view>

namespace tool {

enum class Stream { Output = 1, Error = 2 };  // the numbers of their descriptors
enum class Look { Heading, Detail, Error };

// The text with that look where the stream goes to a terminal that has colours and NO_COLOR is not set; else as it is.
std::string styled(Stream stream, Look look, std::string_view text);

}  // namespace tool
