// The streams of a document that is read, and what its file information block says of them.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "standin/formats/doc/layout.hpp"
#include "standin/formats/little_endian.hpp"

namespace standin::formats::doc {

class Source {
 public:
  // Nothing when the bytes hold no document of version 6 or later, or one that is encrypted.
  static std::optional<Source> open(std::span<const uint8_t> bytes);

  Source(Source&&) = default;

  // A part of the table stream; empty where the document has none, and of a part that its version does not know.
  Bytes part(Part part) const;
  // From where a part ends in the table stream.
  Bytes behind(Part part) const;

  bool isOld;  // version 6 or 95: bytes for characters, shorter modifiers
  bool isFastSaved;
  uint32_t textBegin, textLength;  // of the main text, in the document and in characters

  Bytes document, table, data;
  std::vector<uint8_t> summary, documentSummary;  // empty where there is none

 private:
  Source() = default;
  size_t placeOfPart(Part part) const;

  std::vector<uint8_t> documentBytes_, tableBytes_, dataBytes_;
};

}  // namespace standin::formats::doc
