// The streams put together: the text and the pages of its properties in one, the tables that lead to them in another.
#include "standin/formats/doc/writer.hpp"

#include <algorithm>

#include "standin/formats/compound_file/writer.hpp"
#include "standin/formats/doc/background.hpp"
#include "standin/formats/doc/layout.hpp"
#include "standin/formats/doc/modifiers.hpp"
#include "standin/formats/doc/writer_characters.hpp"
#include "standin/formats/doc/writer_properties.hpp"
#include "standin/formats/doc/writer_styles.hpp"
#include "standin/formats/doc/writer_summary.hpp"
#include "standin/formats/doc/writer_text.hpp"
#include "standin/formats/fonts.hpp"

namespace standin::formats::doc {
namespace {

constexpr compound_file::ClassIdentifier wordDocument = {0x06, 0x09, 0x02, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
constexpr size_t textStart = 1024;  // behind the file information block
constexpr size_t leastSize = 4096;  // of the document stream: programs do not expect it among small ones
constexpr uint64_t mostBytes = uint64_t{1} << 30;

// The file information block, its places of parts filled as the parts are added to the table stream.
class Parts {
 public:
  Parts() : block(information::parts + information::partCount97 * 8 + 2, '\0') {
    constexpr uint16_t shorts = 14, longs = 22, usEnglish = 0x0409;
    constexpr uint32_t noPage = 0x000FFFFF;
    constexpr size_t pagePlaces[] = {0x6C, 0x70, 0x78, 0x7C, 0x84, 0x88};  // which only tables of before tell
    set16(information::signature, signature);
    set16(information::version, version97);
    set16(information::language, usEnglish);
    set16(information::readableBy, 191);
    set16(information::shortCount, shorts);
    set16(information::longCount, longs);
    set16(information::partCount, information::partCount97);
    set16(information::shorts + (shorts - 1) * 2, usEnglish);  // of East Asian text
    for (const size_t place : pagePlaces) set32(place, noPage);
  }

  void set16(size_t place, size_t number) { setNumber(block, place, static_cast<uint16_t>(number)); }
  void set32(size_t place, size_t number) { setNumber(block, place, static_cast<uint32_t>(number)); }

  void add(Part part, const std::string& bytes) {
    if (bytes.empty()) return;
    set32(placeOf(part), table.size());
    set32(placeOf(part) + 4, bytes.size());
    table += bytes;
  }

  std::string block, table;
};

// One piece: all characters of the document, of one or two bytes each.
std::string pieceTable(size_t length, TextPlace place) {
  constexpr char isPieceTable = 2;
  constexpr uint32_t ofBytes = 0x40000000;
  constexpr size_t pieceTableSize = 16;
  std::string table(1, isPieceTable);
  append32(table, pieceTableSize);
  append32(table, 0);
  append32(table, length);
  append16(table, 0);
  append32(table, place.bytesInCharacter == 1 ? place.start * 2 | ofBytes : place.start);
  append16(table, 0);
  return table;
}

std::string fieldTable(const WrittenText& text) {
  std::string table;
  if (text.fields.empty()) return table;
  for (const FieldMark& field : text.fields) append32(table, field.character);
  append32(table, text.units.size());
  for (const FieldMark& field : text.fields) append16(table, field.mark | field.detail << 8);
  return table;
}

uint16_t flagsOf(const WrittenText& text, const DocumentInformation& information) {
  constexpr uint16_t readOnlyIsRecommended = 0x0400, quickSaves = 0x00F0;
  return static_cast<uint16_t>(quickSaves | secondTableStream | extendedCharacters |
                               (text.pictures.empty() ? 0 : hasPictures) |
                               (information.readOnly.value_or(0) > 0 ? readOnlyIsRecommended : 0));
}

// The document stream.
std::string documentOf(const WrittenText& text, Parts& parts, const DocumentInformation& information) {
  std::string document(textStart, '\0');
  const TextPlace place{textStart, appendCharacters(document, text.units)};
  const size_t textEnd = document.size();
  pad(document, pageSize);
  parts.add(Part::characterPages, appendCharacterPages(document, text.characters, place));
  parts.add(Part::paragraphPages, appendParagraphPages(document, text.paragraphs, place));
  parts.add(Part::sections, sectionTable(text.units.size(), document.size()));
  document += sectionProperties(information.page);
  parts.add(Part::pieces, pieceTable(text.units.size(), place));
  parts.set32(information::textBegin, textStart);
  parts.set32(information::textEnd, textEnd);
  parts.set32(information::documentEnd, document.size());
  document.resize(std::max(document.size(), leastSize));
  return document;
}

void addTables(Parts& parts, const WrittenText& text, FontTable& fonts, const DocumentInformation& information) {
  const text::Style plain;
  const text::Style& mostly = text.mostly != nullptr ? *text.mostly : plain;
  parts.add(Part::styleSheet, styleSheet(fontOf(mostly), fonts));
  parts.add(Part::fonts, fonts.bytes());
  parts.add(Part::fields, fieldTable(text));
  parts.add(Part::documentProperties, documentProperties(information, mostly.paragraph));
  if (information.background) parts.add(Part::drawings, backgroundDrawings(*information.background));
}

}  // namespace

std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information) {
  FontTable fonts;
  const WrittenText text = writtenText(styled, fonts, textWidth(information.page));
  if (text.units.size() * sizeof(char16_t) + text.pictures.size() > mostBytes) return std::nullopt;
  Parts parts;
  std::string document = documentOf(text, parts, information);
  addTables(parts, text, fonts, information);
  parts.set16(information::flags, flagsOf(text, information));
  parts.set32(information::textLength, text.units.size());
  document.replace(0, parts.block.size(), parts.block);
  const std::string summaryBytes = summary(information.properties);
  const std::string documentSummaryBytes = documentSummary(information.properties);
  std::vector<compound_file::Stream> streams = {{documentStream, document},
                                                {tableStreams[1], parts.table},
                                                {summaryStream, summaryBytes},
                                                {documentSummaryStream, documentSummaryBytes}};
  if (!text.pictures.empty()) streams.push_back({dataStream, text.pictures});
  return compound_file::write(streams, wordDocument);
}

}  // namespace standin::formats::doc
