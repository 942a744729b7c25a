// The information block is at the start of the document stream; versions 6 and 95 have another one, and one stream for all.
#include "standin/formats/doc/source.hpp"

#include "standin/formats/compound_file/reader.hpp"

namespace standin::formats::doc {
namespace {

// In the information block of versions 6 and 95.
constexpr size_t oldTextLength = 0x34, oldParts = 0x58;
constexpr auto lastOldPart = Part::pieces;

}  // namespace

std::optional<Source> Source::open(std::span<const uint8_t> bytes) {
  const auto file = compound_file::File::open(bytes);
  if (!file) return std::nullopt;
  const auto stream = [&](std::string_view name) { return file->read(name).value_or(std::vector<uint8_t>()); };
  Source source;
  source.documentBytes_ = stream(documentStream);
  source.document = Bytes(source.documentBytes_);
  const uint16_t flags = source.document.read16(information::flags), version = source.document.read16(information::version);
  const uint16_t mark = source.document.read16(0);
  const bool isKnown = mark == signature || (mark == signature95 && version >= version6);
  if (!isKnown || (flags & encrypted) != 0) return std::nullopt;
  source.isOld = version < version97;
  source.isFastSaved = (flags & fastSaved) != 0;
  source.textBegin = source.document.read32(information::textBegin);
  source.textLength = source.document.read32(source.isOld ? oldTextLength : information::textLength);
  if (source.isOld) {
    source.table = source.data = source.document;
  } else {
    source.tableBytes_ = stream(tableStreams[(flags & secondTableStream) != 0]);
    source.dataBytes_ = stream(dataStream);
    source.table = Bytes(source.tableBytes_);
    source.data = Bytes(source.dataBytes_);
  }
  source.summary = stream(summaryStream);
  source.documentSummary = stream(documentSummaryStream);
  return source;
}

size_t Source::placeOfPart(Part part) const { return isOld ? oldParts + static_cast<size_t>(part) * 8 : placeOf(part); }

Bytes Source::part(Part part) const {
  if (isOld && part > lastOldPart) return {};
  const size_t place = placeOfPart(part);
  return table.part(document.read32(place), document.read32(place + 4));
}

Bytes Source::behind(Part part) const {
  if (isOld && part > lastOldPart) return {};
  const size_t place = placeOfPart(part);
  return table.part(size_t{document.read32(place)} + document.read32(place + 4));
}

}  // namespace standin::formats::doc
