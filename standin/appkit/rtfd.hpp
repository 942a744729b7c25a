// RTFD: styled text as a folder of its RTF and the files of its attachments.
#pragma once

#include <optional>

#include "standin/appkit/document_text.hpp"

namespace standin::appkit {

// The document that the package holds, its attachments those of the package's files. Nothing when the package is no folder
// or has no text that can be read.
std::optional<formats::Document> readRTFD(NSFileWrapper* package);
// The same from the bytes of an archived package.
std::optional<formats::Document> readRTFD(std::span<const uint8_t> archive);

// A package of the text and its attachments' files.
Owned<NSFileWrapper> newRTFD(ExportedRuns& exported, const formats::DocumentInformation& information);
// The package archived; nil when the files of attachments cannot be read.
Owned<NSData> newRTFDData(ExportedRuns& exported, const formats::DocumentInformation& information);

}  // namespace standin::appkit
