// Writes styled text as an HTML document: strict HTML 4.01 with a style sheet of classes, or what is left of it when
// elements are excluded.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::html {

// The address under which a document finds a picture; empty: it is left out.
using PictureAddress = std::function<std::string(const text::Attachment&)>;
// The picture itself as a "data:" URL; empty for an attachment that is no picture.
std::string dataAddress(const text::Attachment& attachment);

// The bytes in the encoding that the information names, UTF-8 where it names none; characters that it lacks become numeric
// references. Nothing when the encoding is unknown.
std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information,
                                 const PictureAddress& address = dataAddress);

}  // namespace standin::formats::html
