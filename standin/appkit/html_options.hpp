// The options of reading HTML, as dictionaries have them.
#pragma once

#include "standin/appkit/document_formats.hpp"
#include "standin/formats/html/reader.hpp"

namespace standin::appkit {

// A document from a file is relative to that where the options name no base.
formats::html::ReadOptions htmlOptionsOf(const DocumentSource& source);

std::optional<formats::Document> readHTML(const DocumentSource& source);

}  // namespace standin::appkit
