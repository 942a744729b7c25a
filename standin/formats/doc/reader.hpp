// Reads Word's binary documents, version 6 to 2003: styles, lists, fields, tables as paragraphs, pictures, document
// properties.
#pragma once

#include <optional>
#include <span>

#include "standin/formats/document.hpp"

namespace standin::formats::doc {

// The main text of the document; or nothing when the bytes are no document, or an encrypted one. Of a damaged one what can
// be found is kept.
std::optional<Document> read(std::span<const uint8_t> bytes);

// Whether the bytes are a document that takes a password to read, of this format or of a newer one in the same container.
bool isEncrypted(std::span<const uint8_t> bytes);

}  // namespace standin::formats::doc
