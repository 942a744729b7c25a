// The encodings of HTML documents that are written.
#pragma once

#include <optional>
#include <string>

namespace standin::formats::html {

// The encoding's name as documents have it: "UTF-8" for none. Nothing for an unknown one.
std::optional<std::string> charsetNamed(const std::string& name);

// The document in an encoding that `charsetNamed` gave. Characters that it lacks become numeric references.
std::optional<std::string> encoded(std::string document, const std::string& charset);

}  // namespace standin::formats::html
