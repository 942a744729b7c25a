// Records of Office's drawings: each a header and what it holds, which may be other records.
#pragma once

#include <initializer_list>
#include <string>

#include "standin/formats/little_endian.hpp"

namespace standin::formats::doc {

enum RecordType : uint16_t {
  drawingsContainer = 0xF000,
  drawingContainer = 0xF002,
  groupContainer = 0xF003,
  shapeContainer = 0xF004,
  drawings = 0xF006,
  pictureDescription = 0xF007,
  drawing = 0xF008,
  group = 0xF009,
  shape = 0xF00A,
  shapeOptions = 0xF00B,
  anchor = 0xF010,
};

struct RecordHeader {
  uint16_t version, instance, type;  // 4, 12 and 16 bits; containers are of version 15
};

inline void appendRecord(std::string& out, const RecordHeader& header, std::string_view contents) {
  append16(out, header.version | header.instance << 4);
  append16(out, header.type);
  append32(out, contents.size());
  out += contents;
}

inline void appendShape(std::string& out, uint16_t kind, uint32_t number, uint32_t flags) {
  std::string contents;
  append32(contents, number);
  append32(contents, flags);
  appendRecord(out, {2, kind, RecordType::shape}, contents);
}

struct ShapeOption {
  uint16_t number;
  uint32_t value;
};
inline constexpr size_t shapeOptionSize = 6;

inline void appendShapeOptions(std::string& out, std::initializer_list<ShapeOption> options) {
  std::string contents;
  for (const ShapeOption& option : options) {
    append16(contents, option.number);
    append32(contents, option.value);
  }
  appendRecord(out, {3, static_cast<uint16_t>(options.size()), RecordType::shapeOptions}, contents);
}

struct Record {
  RecordHeader header;
  Bytes contents;
};
inline constexpr size_t recordHeaderSize = 8;

inline Record recordAt(Bytes bytes) {
  const uint16_t first = bytes.read16(0);
  return {{static_cast<uint16_t>(first & 0xF), static_cast<uint16_t>(first >> 4), bytes.read16(2)},
          bytes.part(recordHeaderSize, bytes.read32(4))};
}

// Goes over records in their order, those inside containers after these, however deep. `visit` says whether to go on.
template <class Visit>
void visitRecords(Bytes rest, Visit visit) {
  constexpr uint16_t container = 15;
  while (rest.size() >= recordHeaderSize) {
    const Record record = recordAt(rest);
    if (!visit(record)) return;
    rest = rest.part(recordHeaderSize + (record.header.version == container ? 0 : record.contents.size()));
  }
}

// `visit` takes a ShapeOption.
template <class Visit>
void visitShapeOptions(Bytes contents, Visit visit) {
  for (size_t place = 0; place + shapeOptionSize <= contents.size(); place += shapeOptionSize) {
    visit(ShapeOption{contents.read16(place), contents.read32(place + 2)});
  }
}

}  // namespace standin::formats::doc
