// A picture is a header with its size, a drawing's shape, and the file's own bytes.
#include "standin/formats/doc/writer_pictures.hpp"

#include "standin/formats/doc/drawing_records.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::doc {
namespace {

struct Kind {
  pictures::Format format;
  uint8_t number;             // in the description of the picture
  uint16_t record, instance;  // of its bytes
};
constexpr Kind kinds[] = {{pictures::Format::jpeg, 5, 0xF01D, 0x46A}, {pictures::Format::png, 6, 0xF01E, 0x6E0}};

const Kind* kindOf(std::span<const uint8_t> bytes) {
  const auto format = pictures::formatOf(bytes);
  for (const Kind& kind : kinds) {
    if (kind.format == format) return &kind;
  }
  return nullptr;
}

// 16 bytes that differ between pictures: programs take pictures with equal ones for the same.
std::string identityOf(std::span<const uint8_t> bytes) {
  constexpr uint64_t prime = 0x100000001B3;
  uint64_t first = 0xCBF29CE484222325, second = bytes.size();
  for (const uint8_t byte : bytes) {
    first = (first ^ byte) * prime;
    second = (second + byte) * prime ^ second >> 32;
  }
  std::string identity;
  appendNumber(identity, first);
  appendNumber(identity, second);
  return identity;
}

std::string pictureRecords(std::span<const uint8_t> bytes, const Kind& kind) {
  constexpr char noTag = '\xFF';
  const std::string identity = identityOf(bytes);
  const std::string_view contents(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  std::string blip;
  appendRecord(blip, {0, kind.instance, kind.record}, (identity + noTag).append(contents));

  std::string description{static_cast<char>(kind.number), static_cast<char>(kind.number)};
  description += identity;
  append16(description, 0xFF);
  append32(description, blip.size());
  append32(description, 1);  // references
  append32(description, 0);
  append32(description, 0);
  std::string records;
  appendRecord(records, {2, kind.number, RecordType::pictureDescription}, description + blip);
  return records;
}

std::string shapeRecords() {
  constexpr uint16_t pictureFrame = 75, pictureNumber = 0x4104;
  constexpr uint32_t shapeNumber = 0x0402, hasAnchorAndType = 0x0A00;
  std::string shape;
  appendShape(shape, pictureFrame, shapeNumber, hasAnchorAndType);
  appendShapeOptions(shape, {{pictureNumber, 1}});
  appendRecord(shape, {0, 0, RecordType::anchor}, std::string(4, '\0'));
  std::string records;
  appendRecord(records, {15, 0, RecordType::shapeContainer}, shape);
  return records;
}

// Twips; a picture without a size of its own shows a pixel as a point.
uint16_t extent(double points, int pixels) {
  constexpr double mostTwips = 31'680;
  return static_cast<uint16_t>(std::max(1L, wholeParts(points > 0 ? points : pixels, twipsPerPoint, mostTwips)));
}

std::string header(size_t size, uint16_t width, uint16_t height) {
  constexpr size_t headerSize = 68, unusedBeforeExtents = 14, unusedBehindScale = 28;
  constexpr uint16_t isShape = 100, fullScale = 1000;
  std::string bytes;
  append32(bytes, headerSize + size);
  append16(bytes, headerSize);
  append16(bytes, isShape);
  bytes.resize(bytes.size() + 6 + unusedBeforeExtents);
  for (const uint16_t number : {width, height, fullScale, fullScale}) append16(bytes, number);
  bytes.resize(bytes.size() + unusedBehindScale + 4);
  return bytes;
}

}  // namespace

bool appendPicture(std::string& data, const text::Attachment& attachment) {
  const Kind* kind = kindOf(attachment.contents);
  const auto size = kind != nullptr ? pictures::sizeOf(attachment.contents) : std::nullopt;
  if (!size) return false;
  const std::string records = shapeRecords() + pictureRecords(attachment.contents, *kind);
  data += header(records.size(), extent(attachment.width, size->width), extent(attachment.height, size->height));
  data += records;
  return true;
}

}  // namespace standin::formats::doc
