// Pictures are records of drawings: a description may stand before one, which may be kept elsewhere.
#include "standin/formats/doc/picture_reader.hpp"

#include <algorithm>
#include <utility>

#include "standin/formats/pictures/embedded.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::doc {
namespace {

constexpr size_t descriptionSize = 36, anchorSize = 26;
constexpr uint16_t firstPicture = 0xF018, bitmapPicture = 0xF01F, lastPicture = 0xF117;

bool isPicture(const Record& record) { return record.header.type >= firstPicture && record.header.type <= lastPicture; }

// A description, behind which the picture itself may stand.
Bytes behindDescription(const Record& description) {
  constexpr size_t nameSizePlace = 33;
  return description.contents.part(descriptionSize + description.contents.read8(nameSizePlace));
}

std::optional<Record> pictureIn(Bytes records) {
  std::optional<Record> found;
  visitRecords(records, [&](const Record& record) {
    const Record inside = record.header.type == pictureDescription ? recordAt(behindDescription(record)) : record;
    if (isPicture(inside)) found = inside;
    return !found;
  });
  return found;
}

// What a bitmap lacks to be a file: its size, and where its pixels begin.
std::string bitmapFile(Bytes bitmap) {
  constexpr uint32_t fileHeaderSize = 14, plainHeaderSize = 40, masksSize = 12, withMasks = 3;
  const uint16_t depth = bitmap.read16(14);
  const uint32_t used = bitmap.read32(32), most = depth <= 8 ? 1u << depth : 0;
  const bool hasMasks = bitmap.read32(0) == plainHeaderSize && bitmap.read32(16) == withMasks;
  const uint32_t colors = used != 0 ? std::min(used, 256u) : most;
  std::string file = "BM";
  append32(file, fileHeaderSize + bitmap.size());
  append32(file, 0);
  append32(file, fileHeaderSize + bitmap.read32(0) + colors * 4 + (hasMasks ? masksSize : 0));
  file += bitmap.characters();
  return file;
}

// The picture's file, behind one or two identifiers and a mark; empty when it is none of a known kind.
std::string fileOf(const Record& record) {
  for (const size_t place : {size_t{17}, size_t{33}}) {
    const Bytes file = record.contents.part(place);
    if (pictures::formatOf(file.span()) != pictures::Format::unknown) return std::string(file.characters());
  }
  constexpr uint16_t twoIdentifiers = 0x7A9;
  if (record.header.type != bitmapPicture) return {};
  return bitmapFile(record.contents.part(record.header.instance == twoIdentifiers ? 33 : 17));
}

}  // namespace

PictureReader::PictureReader(const Source& source)
    : source_(source), budget_(2 * (source.data.size() + source.document.size())) {}

std::shared_ptr<const text::Attachment> PictureReader::inLine(uint32_t place) {
  const auto [entry, isNew] = inLine_.try_emplace(place);
  if (isNew) entry->second = readInLine(source_.data.part(place, source_.data.read32(place)));
  return entry->second;
}

// The size that the picture is to have, and by how many thousandths it is shrunk or grown, are in the description.
PictureReader::Picture PictureReader::readInLine(Bytes description) {
  constexpr size_t headerSizePlace = 4, kindPlace = 6, widthPlace = 28, heightPlace = 30, widthScalePlace = 32,
                   heightScalePlace = 34;
  constexpr uint16_t drawn = 100, drawnWithName = 102;
  const uint16_t kind = description.read16(kindPlace);
  if (kind != drawn && kind != drawnWithName) return nullptr;
  const auto length = [&](size_t place, size_t scalePlace) {
    return description.read16(place) / twipsPerPoint * description.read16(scalePlace) / 1000;
  };
  const Bytes behind = description.part(description.read16(headerSizePlace));
  return newPicture(behind.part(kind == drawnWithName ? size_t{1} + behind.read8(0) : 0),
                    length(widthPlace, widthScalePlace), length(heightPlace, heightScalePlace));
}

PictureReader::Picture PictureReader::newPicture(Bytes records, double width, double height) {
  const auto record = pictureIn(records);
  if (!record || record->contents.size() > budget_) return nullptr;
  budget_ -= record->contents.size();
  std::string file = fileOf(*record);
  const std::span<const uint8_t> bytes(reinterpret_cast<const uint8_t*>(file.data()), file.size());
  const auto format = pictures::formatOf(bytes);
  const bool isCommon = format == pictures::Format::png || format == pictures::Format::jpeg;
  if (!isCommon && !pictures::sizeOf(bytes)) return nullptr;
  return pictures::newAttachment(std::move(file), {}, width, height);
}

std::shared_ptr<const text::Attachment> PictureReader::atCharacter(uint32_t character) {
  if (!std::exchange(knowsDrawings_, true)) readDrawings();
  const auto anchor = anchors_.find(character);
  return anchor != anchors_.end() ? readShape(anchor->second) : nullptr;
}

// The shape's number, and the edges of the place that it takes.
PictureReader::Picture PictureReader::readShape(Bytes anchor) {
  const auto picture = ofShapes_.find(anchor.read32(0));
  if (picture == ofShapes_.end() || picture->second > stored_.size() || picture->second == 0) return nullptr;
  const auto length = [&](size_t from, size_t to) {
    return (double(anchor.number<int32_t>(to)) - anchor.number<int32_t>(from)) / twipsPerPoint;
  };
  return newPicture(stored_[picture->second - 1], length(4, 12), length(8, 16));
}

// The first container holds the pictures; a byte stands before each of the others.
void PictureReader::readDrawings() {
  const auto visit = [this](const Record& record) { return takeRecord(record), true; };
  const Bytes all = source_.part(Part::drawings);
  const size_t size = recordHeaderSize + all.read32(4);
  visitRecords(all.part(0, size), visit);
  for (Bytes rest = all.part(size); rest.size() > recordHeaderSize;) {
    const size_t drawingSize = 1 + recordHeaderSize + size_t{rest.read32(5)};
    visitRecords(rest.part(1, drawingSize - 1), visit);
    rest = rest.part(drawingSize);
  }
  readAnchors();
}

void PictureReader::takeRecord(const Record& record) {
  constexpr size_t deferredPlace = 28;
  constexpr uint16_t pictureOption = 0x104, optionNumber = 0x3FFF;
  if (record.header.type == pictureDescription) {
    const Bytes inside = behindDescription(record);
    stored_.push_back(inside.empty() ? source_.document.part(record.contents.read32(deferredPlace)) : inside);
  } else if (record.header.type == shape) {
    currentShape_ = record.contents.read32(0);
  } else if (record.header.type == shapeOptions) {
    visitShapeOptions(record.contents, [&](const ShapeOption& option) {
      if ((option.number & optionNumber) == pictureOption) ofShapes_.emplace(currentShape_, option.value);
    });
  }
}

void PictureReader::readAnchors() {
  const Bytes anchors = source_.part(Part::shapes);
  const size_t count = anchors.size() < 4 ? 0 : (anchors.size() - 4) / (4 + anchorSize);
  for (size_t index = 0; index < count; ++index) {
    anchors_.emplace(anchors.read32(index * 4), anchors.part((count + 1) * 4 + index * anchorSize, anchorSize));
  }
}

}  // namespace standin::formats::doc
