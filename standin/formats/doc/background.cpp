// The drawings: what there is of them all, and the drawing of the main text, with its group and the shape behind the pages.
#include "standin/formats/doc/background.hpp"

#include "standin/formats/colors.hpp"
#include "standin/formats/doc/drawing_records.hpp"

namespace standin::formats::doc {
namespace {

constexpr uint16_t rectangle = 1, fillType = 0x0180, fillColor = 0x0181, fillSwitches = 0x01BF, lineSwitches = 0x01FF,
                   shapeSwitches = 0x033F;
constexpr uint32_t groupNumber = 0x0400, shapeNumber = 0x0401, isBackground = 0x0400;
constexpr uint32_t isFilled = 0x00100010, hasNoLine = 0x00080000, isBackgroundShape = 0x00010001;

std::string numbers(std::initializer_list<uint32_t> list) {
  std::string bytes;
  for (const uint32_t number : list) append32(bytes, number);
  return bytes;
}

std::string shapeOf(const text::Color& color) {
  constexpr uint32_t hasType = 0x0800;
  const auto [red, green, blue] = bytesOf(color);
  std::string shape;
  appendShape(shape, rectangle, shapeNumber, isBackground | hasType);
  appendShapeOptions(shape, {{fillColor, static_cast<uint32_t>(red | green << 8 | blue << 16)},
                             {fillSwitches, isFilled},
                             {lineSwitches, hasNoLine},
                             {shapeSwitches, isBackgroundShape}});
  return shape;
}

std::string groupOfShapes() {
  constexpr uint32_t isOutermostGroup = 5;
  std::string shape, group;
  appendRecord(shape, {1, 0, RecordType::group}, numbers({0, 0, 0, 0}));
  appendShape(shape, 0, groupNumber, isOutermostGroup);
  appendRecord(group, {15, 0, RecordType::shapeContainer}, shape);
  return group;
}

// Colours may also be numbers of a palette, with the highest byte set.
std::optional<text::Color> fillOf(Bytes options) {
  constexpr uint32_t plainFill = 0;
  std::optional<text::Color> color;
  bool isPlain = true;
  visitShapeOptions(options, [&](const ShapeOption& option) {
    const auto byte = [&](int shift) { return static_cast<uint8_t>(option.value >> shift); };
    if (option.number == fillType) isPlain = option.value == plainFill;
    if (option.number == fillColor && byte(24) == 0) color = colorOf(byte(0), byte(8), byte(16));
  });
  return isPlain ? color : std::nullopt;
}

}  // namespace

std::string backgroundDrawings(const text::Color& color) {
  constexpr uint32_t shapes = 2, firstDrawing = 1, clusters = 2, mostNumber = 0x0800;
  std::string all, records, contents;
  appendRecord(all, {0, 0, RecordType::drawings}, numbers({mostNumber, clusters, shapes, 1, firstDrawing, shapes}));
  appendRecord(records, {15, 0, RecordType::drawingsContainer}, all);
  records += '\0';  // the drawing of the main text follows
  appendRecord(contents, {0, firstDrawing, RecordType::drawing}, numbers({shapes, shapeNumber}));
  appendRecord(contents, {15, 0, RecordType::groupContainer}, groupOfShapes());
  appendRecord(contents, {15, 0, RecordType::shapeContainer}, shapeOf(color));
  appendRecord(records, {15, 0, RecordType::drawingContainer}, contents);
  return records;
}

std::optional<text::Color> backgroundIn(Bytes drawings) {
  std::optional<text::Color> color;
  bool isInBackground = false;
  const Bytes drawingOfText = drawings.part(recordHeaderSize + size_t{drawings.read32(4)} + 1);
  visitRecords(drawingOfText, [&](const Record& record) {
    const auto& [header, contents] = record;
    if (header.type == RecordType::shape) isInBackground = (contents.read32(4) & isBackground) != 0;
    const bool isFill = isInBackground && header.type == RecordType::shapeOptions;
    if (isFill) color = fillOf(contents);
    return !isFill;
  });
  return color;
}

}  // namespace standin::formats::doc
