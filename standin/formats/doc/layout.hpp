// The parts of a Word binary document: the file information block, the parts of the table stream, the modifiers of
// properties.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace standin::formats::doc {

// Streams of the compound file. The block at the start of the document says which table stream holds.
inline constexpr std::string_view documentStream = "WordDocument";
inline constexpr std::string_view tableStreams[] = {"0Table", "1Table"};
inline constexpr std::string_view dataStream = "Data";
inline constexpr std::string_view summaryStream = "\5SummaryInformation";
inline constexpr std::string_view documentSummaryStream = "\5DocumentSummaryInformation";

// The file information block: where its fields begin. Numbers are little-endian.
namespace information {

inline constexpr size_t signature = 0x00;    // 16 bits
inline constexpr size_t version = 0x02;      // 16 bits
inline constexpr size_t language = 0x06;     // 16 bits
inline constexpr size_t flags = 0x0A;        // 16 bits
inline constexpr size_t readableBy = 0x0C;   // 16 bits: the oldest version that can read it
inline constexpr size_t textBegin = 0x18;    // 32 bits: in the document stream
inline constexpr size_t textEnd = 0x1C;      // 32 bits
inline constexpr size_t shortCount = 0x20;   // 16 bits: how many 16-bit numbers follow
inline constexpr size_t shorts = 0x22;       // of 14
inline constexpr size_t longCount = 0x3E;    // 16 bits: how many 32-bit numbers follow
inline constexpr size_t documentEnd = 0x40;  // 32 bits: bytes of the document stream in use
inline constexpr size_t textLength = 0x4C;   // 32 bits: characters of the main text
inline constexpr size_t partCount = 0x98;    // 16 bits: how many places of parts follow
inline constexpr size_t parts = 0x9A;        // 32 bits of place in the table stream and 32 bits of length, each
inline constexpr size_t size97 = 0x382;      // of the whole block as version 193 has it, with partCount97 parts
inline constexpr uint16_t partCount97 = 93;

}  // namespace information

inline constexpr uint16_t signature = 0xA5EC;
inline constexpr uint16_t signature95 = 0xA5DC;  // versions 6 and 95
inline constexpr uint16_t version97 = 193;
inline constexpr uint16_t version6 = 101;

enum InformationFlag : uint16_t {
  fastSaved = 0x0004,
  hasPictures = 0x0008,
  encrypted = 0x0100,
  secondTableStream = 0x0200,
  extendedCharacters = 0x1000,
};

// Parts of the table stream by their numbers.
enum class Part : uint8_t {
  styleSheet = 1,
  sections = 6,
  characterPages = 12,
  paragraphPages = 13,
  fonts = 15,
  fields = 16,
  documentProperties = 31,
  pieces = 33,
  shapes = 40,
  drawings = 50,
  lists = 73,
  listOverrides = 74,
};
constexpr size_t placeOf(Part part) { return information::parts + static_cast<size_t>(part) * 8; }

// Property pages are of this size; their numbers count from the start of the document stream.
inline constexpr size_t pageSize = 512;

// Characters that stand for more than themselves.
enum SpecialCharacter : char16_t {
  pictureCharacter = 0x01,
  cellEnd = 0x07,  // and the end of a row
  shapeCharacter = 0x08,
  lineBreak = 0x0B,
  pageBreak = 0x0C,  // and the end of a section
  paragraphEnd = 0x0D,
  columnBreak = 0x0E,
  fieldBegin = 0x13,
  fieldSeparator = 0x14,
  fieldEnd = 0x15,
  noBreakHyphen = 0x1E,
  softHyphen = 0x1F,
  symbolCharacter = 0x28,  // with the property of a symbol
};

// The kinds of styles.
enum StyleKind : uint8_t { paragraphStyle = 1, characterStyle = 2, tableStyle = 3, listStyle = 4 };
inline constexpr uint16_t noStyle = 0x0FFF;
// Styles that every document numbers so, and which identifiers the built-in ones have.
inline constexpr uint16_t normalStyle = 0, firstHeadingStyle = 1, lastHeadingStyle = 9;
inline constexpr uint16_t defaultCharacterStyle = 10;
inline constexpr uint16_t defaultCharacterIdentifier = 65, userStyleIdentifier = 0x0FFE;

// Modifiers: a property and how its operand is laid out. Operands are of the size that the number's upper three bits say.
// Lengths are twips where nothing is said; toggles are 0, 1, 0x80 (as the style) and 0x81 (the contrary of the style).
enum class Property : uint16_t {
  none = 0,

  // Of characters
  deleted = 0x0800,
  inserted = 0x0801,
  fieldHidden = 0x0802,
  pictureLocation = 0x6A03,  // place in the data stream
  isFieldData = 0x0806,
  symbol = 0x6A09,  // font, character, 16 bits each
  isObject = 0x080A,
  highlight = 0x2A0C,  // one of sixteen colours from 1; 0: none
  characterStyle = 0x4A30,
  plain = 0x2A33,          // everything as the paragraph's style has it
  bold = 0x0835,           // toggle
  italic = 0x0836,         // toggle
  strikethrough = 0x0837,  // toggle
  outline = 0x0838,        // toggle
  shadow = 0x0839,         // toggle
  smallCapitals = 0x083A,  // toggle
  capitals = 0x083B,       // toggle
  hidden = 0x083C,         // toggle
  defaultFont = 0x4A3D,
  underline = 0x2A3E,  // kind
  sizeAndPosition = 0xEA3F,
  spacing = 0x8840,
  colorIndex = 0x2A42,   // one of sixteen colours from 1; 0: automatic
  size = 0x4A43,         // half points
  position = 0x4845,     // half points up
  superscript = 0x2A48,  // 0 none, 1 up, 2 down
  minimumKernedSize = 0x484B,
  font = 0x4A4F,  // of ASCII
  eastAsianFont = 0x4A50,
  otherFont = 0x4A51,
  widthScale = 0x4852,  // per cent
  doubleStrikethrough = 0x2A53,
  imprint = 0x0854,  // toggle
  isSpecial = 0x0855,
  isRightToLeft = 0x085A,
  complexBold = 0x085C,    // toggle
  complexItalic = 0x085D,  // toggle
  complexFont = 0x4A5E,
  complexSize = 0x4A61,  // half points
  shading97 = 0x4866,
  color = 0x6870,    // red, green, blue, 0xFF for automatic
  shading = 0xCA71,  // foreground, background as the colour, 16 bits of pattern
  underlineColor = 0x6877,
  isComplex = 0x0882,

  // Of paragraphs
  paragraphStyle = 0x4600,
  physicalAlignment = 0x2403,  // 0 left, 1 centred, 2 right, 3 justified
  pageBreakBefore = 0x2407,
  listLevel = 0x260A,
  list = 0x460B,  // number of the list override from 1; 0: none
  tabsOfStyle = 0xC60D,
  rightIndent97 = 0x840E,
  leftIndent97 = 0x840F,
  nestedIndent97 = 0x4610,
  firstLineIndent97 = 0x8411,
  lineHeight = 0x6412,  // 16 bits: at least, exactly when negative; 16 bits: 1 when it counts lines of 240
  spaceBefore = 0xA413,
  spaceAfter = 0xA414,
  tabs = 0xC615,
  isInTable = 0x2416,
  isRowEnd = 0x2417,
  outlineLevel = 0x2640,  // 0 to 8; 9: text
  isRightToLeftParagraph = 0x2441,
  storedElsewhere97 = 0x6645,  // place in the data stream of 16 bits of length and the paragraph's modifiers
  storedElsewhere = 0x6646,
  isInnerRowEnd = 0x244C,
  automaticSpaceBefore = 0x245B,
  automaticSpaceAfter = 0x245C,
  rightIndent = 0x845D,
  leftIndent = 0x845E,
  nestedIndent = 0x465F,
  firstLineIndent = 0x8460,
  alignment = 0x2461,  // as physicalAlignment, the leading and the trailing side in the place of left and right

  numbering95 = 0xC63E,
  numberingLevel95 = 0x243D,  // no number of any version: 1 to 9 an outline's, 10 a number, 11 a bullet

  // Of sections
  sectionBreak = 0x3009,  // 0 continuous, 1 column, 2 page, 3 even page, 4 odd page
  landscape = 0x301D,     // 2
  pageWidth = 0xB01F,
  pageHeight = 0xB020,
  leftMargin = 0xB021,
  rightMargin = 0xB022,
  topMargin = 0x9023,  // negative: exactly, whatever the header takes
  bottomMargin = 0x9024,
  gutter = 0xB025,

  // Of tables
  tableDefinition = 0xD608,
  tableDefinition95 = 0xD606,
};

enum class PropertyKind : uint8_t { paragraph = 1, character = 2, picture = 3, section = 4, table = 5 };
constexpr PropertyKind kindOf(uint16_t modifier) { return static_cast<PropertyKind>(modifier >> 10 & 7); }

// Bytes of the operand; 0: its first byte is the length of the rest (of table definitions, the first two are the length and
// one more).
constexpr size_t operandSize(uint16_t modifier) {
  constexpr size_t sizes[] = {1, 1, 2, 4, 2, 2, 0, 3};
  return sizes[modifier >> 13];
}

// Kinds of underlines, and the platform's line styles that they are.
struct UnderlineRow {
  uint8_t kind;
  int style;
};
inline constexpr UnderlineRow underlines[] = {
    {0, 0},      {1, 0x01},  {2, 0x8001}, {3, 0x09},  {4, 0x101},  {6, 0x02},   {7, 0x201},
    {8, 0x101},  {9, 0x301}, {10, 0x401}, {11, 0x01}, {20, 0x102}, {23, 0x202}, {25, 0x302},
    {26, 0x402}, {27, 0x02}, {39, 0x201}, {43, 0x09}, {55, 0x202},
};

// How a field's instruction and its result are marked: the separator and the end come with the number of the beginning.
inline constexpr uint8_t hyperlinkField = 88;

}  // namespace standin::formats::doc
