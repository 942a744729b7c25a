// Goes over the text paragraph by paragraph, whose properties are kept with the marks at their ends.
#include "standin/formats/doc/reader.hpp"

#include <algorithm>
#include <utility>

#include "standin/formats/code_pages.hpp"
#include "standin/formats/compound_file/reader.hpp"
#include "standin/formats/doc/background.hpp"
#include "standin/formats/doc/fields.hpp"
#include "standin/formats/doc/formatter.hpp"
#include "standin/formats/doc/old_numbering.hpp"
#include "standin/formats/doc/picture_reader.hpp"
#include "standin/formats/doc/raw_text.hpp"
#include "standin/formats/doc/scanning.hpp"
#include "standin/formats/doc/sections.hpp"
#include "standin/formats/doc/summary_reader.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::doc {
namespace {

// What a special character is in text; 0 for those that are none.
char16_t textOfSpecial(char16_t unit) {
  struct Row {
    SpecialCharacter special;
    char16_t text;
  };
  constexpr Row rows[] = {
      {lineBreak, 0x2028}, {pageBreak, u'\f'}, {columnBreak, u'\f'}, {noBreakHyphen, 0x2011}, {softHyphen, 0xAD}};
  for (const Row& row : rows) {
    if (row.special == unit) return row.text;
  }
  return unit == u'\t' ? unit : u'\0';
}

class Reader {
 public:
  explicit Reader(const Source& source)
      : source_(source),
        pieces_(source),
        text_(source, pieces_),
        paragraphPages_(paragraphRunsOf(source)),
        sections_(source),
        fonts_(source),
        lists_(source),
        resolver_(source, lists_),
        pictures_(source),
        formatter_(resolver_, fonts_, builder_, 20'000 + text_.units.size() / 16),
        markerBudget_(text_.units.size() * 8 + 4096) {}

  Document read() {
    builder_.document.text.reserve(text_.units.size());
    for (size_t begin = 0; begin < text_.units.size();) begin = readParagraph(begin);
    if (builder_.text().ends_with(u'\n')) builder_.removeLast(1);
    readInformation();
    return std::move(builder_.document);
  }

 private:
  // Gives where the next one begins.
  size_t readParagraph(size_t begin) {
    const size_t mark = findMark(begin);
    const auto [place, piece] = text_.originOf(mark);
    const auto page = findRun(paragraphPages_, place);
    const bool isOnPage = page != paragraphPages_.end() && page->begin <= place;
    paragraph_ = resolver_.paragraphOf(isOnPage ? page->style : normalStyle,
                                       {isOnPage ? page->modifiers : Bytes(), piece->modifiers});
    const ParagraphProperties& properties = resolver_.paragraph(paragraph_);
    oldMarker_ = oldNumbering_.nextMarker(properties);
    hasMarker_ = !oldMarker_.empty() || properties.formatting.list.value_or(0) > 0;
    for (size_t at = begin; at <= mark;) at = readRun(at, mark + 1);
    return mark + 1;
  }

  // The end of the paragraph: its mark, or the last unit of a text that ends without.
  size_t findMark(size_t begin) {
    const char16_t* const units = text_.units.data();
    const char16_t* const last = units + text_.units.size() - 1;
    const char16_t* at = findSpecial(units + begin, last);
    while (at != last && !isMark(static_cast<size_t>(at - units))) at = findSpecial(at + 1, last);
    return static_cast<size_t>(at - units);
  }

  bool isMark(size_t at) {
    const char16_t unit = text_.units[at];
    return unit == paragraphEnd || unit == cellEnd || (unit == pageBreak && isSectionEnd(at));
  }

  bool isSectionEnd(size_t at) const {
    return std::binary_search(sections_.ends.begin(), sections_.ends.end(), static_cast<uint32_t>(at + 1));
  }

  size_t readRun(size_t begin, size_t paragraphEnd) {
    while (text_.runs[run_].end <= begin) ++run_;
    const RawRun& run = text_.runs[run_];
    const size_t end = std::min(run.end, paragraphEnd);
    characters_ = resolver_.charactersOf(resolver_.paragraph(paragraph_).style, run.modifiers);
    properties_ = &resolver_.characters(characters_);
    for (size_t at = begin; at < end;) at = readUnits(at, end);
    return end;
  }

  // A stretch of plain units, or a special one.
  size_t readUnits(size_t begin, size_t end) {
    const char16_t* const units = text_.units.data();
    const char16_t first = units[begin];
    if (first < firstPrintable) {
      readSpecial(begin);
      return begin + 1;
    }
    if (properties_->hasSymbol && first == symbolCharacter) {
      addText({&properties_->symbol, 1});
      return begin + 1;
    }
    const char16_t* const stop = findSpecial(units + begin + 1, units + (properties_->hasSymbol ? begin + 1 : end));
    const std::u16string_view stretch(units + begin, static_cast<size_t>(stop - (units + begin)));
    source_.isOld ? addBytes(stretch) : addText(stretch);
    return begin + stretch.size();
  }

  void readSpecial(size_t at) {
    switch (const char16_t unit = text_.units[at]) {
      case fieldBegin:
        return fields_.begin();
      case fieldSeparator:
        return fields_.separate();
      case fieldEnd:
        return fields_.end();
      case pictureCharacter:
        if (properties_->hasPicture && !properties_->isFieldData) addPicture(pictures_.inLine(properties_->pictureLocation));
        return;
      case shapeCharacter:
        return addPicture(pictures_.atCharacter(static_cast<uint32_t>(at)));
      default:
        if (isMark(at)) return endParagraph();
        if (const char16_t text = textOfSpecial(unit)) addText({&text, 1});
    }
  }

  // A row's end is no paragraph; one that is deleted or hidden joins what is before it and behind.
  void endParagraph() {
    const char16_t end = u'\n';
    if (!resolver_.paragraph(paragraph_).isRowEnd) addText({&end, 1});
  }

  // Bytes of the code page of their font.
  void addBytes(std::u16string_view units) {
    const std::string bytes(units.begin(), units.end());
    std::u16string decoded;
    decoder_.append(decoded, bytes, fonts_.codePageOf(properties_->fonts[static_cast<size_t>(Script::ascii)]));
    addText(decoded);
  }

  void addText(std::u16string_view text) {
    if (fields_.inInstruction()) return fields_.addInstruction(text);
    if (properties_->isLeftOut()) return;
    if (std::exchange(hasMarker_, false)) addMarker();
    if (properties_->isComplex) {
      builder_.append(text, styleFor(Script::complex));
    } else if (properties_->variesByScript()) {
      addByScript(text);
    } else {
      builder_.append(text, styleFor(Script::ascii));
    }
  }

  void addByScript(std::u16string_view text) {
    while (!text.empty()) {
      const Script script = scriptOf(text.front());
      const char16_t* const end = findOtherScript(script, text.data() + 1, text.data() + text.size());
      const auto length = static_cast<size_t>(end - text.data());
      builder_.append(text.substr(0, length), styleFor(script));
      text.remove_prefix(length);
    }
  }

  uint32_t styleFor(Script script) {
    const uint32_t link = fields_.link();
    return formatter_.indexOf({paragraph_, characters_, link, script}, link != 0 ? fields_.target(link) : text::Link());
  }

  void addMarker() {
    const ParagraphFormatting& formatting = resolver_.paragraph(paragraph_).formatting;
    const std::u16string marker =
        markerText(!oldMarker_.empty() ? oldMarker_ : lists_.nextMarker(*formatting.list, formatting.listLevel.value_or(0)));
    if (marker.size() > markerBudget_) return;
    markerBudget_ -= marker.size();
    builder_.append(marker, formatter_.indexOf({paragraph_, characters_, 0, Script::ascii}, {}));
  }

  void addPicture(std::shared_ptr<const text::Attachment> picture) {
    if (picture == nullptr || fields_.inInstruction() || properties_->isLeftOut()) return;
    if (std::exchange(hasMarker_, false)) addMarker();
    builder_.append(text::attachmentCharacter, formatter_.indexWith(styleFor(Script::ascii), std::move(picture)));
  }

  void readInformation() {
    constexpr size_t tabIntervalPlace = 10, viewPlace = 82;
    Document& document = builder_.document;
    document.page = sections_.page;
    document.properties = propertiesOf(source_);
    document.background = backgroundIn(source_.part(Part::drawings));
    const Bytes properties = source_.part(Part::documentProperties);
    const uint16_t tabInterval = properties.read16(tabIntervalPlace);
    if (tabInterval != 0) document.defaultTabInterval = tabInterval / twipsPerPoint;
    const int zoom = properties.read16(viewPlace) >> 3 & 0x1FF;
    if (zoom != 0) document.viewZoom = zoom;
  }

  const Source& source_;
  Pieces pieces_;
  RawText text_;
  PropertyRuns paragraphPages_;
  Sections sections_;
  Fonts fonts_;
  Lists lists_;
  Resolver resolver_;
  PictureReader pictures_;
  DocumentBuilder builder_;
  Formatter formatter_;
  Fields fields_;
  Decoder decoder_;
  size_t markerBudget_;  // units: a list's long markers before many short items could be very many
  size_t run_ = 0;
  uint32_t paragraph_ = 0, characters_ = 0;  // the ones in force, of the resolver
  const CharacterProperties* properties_ = nullptr;
  OldNumbering oldNumbering_;
  std::u16string oldMarker_;
  bool hasMarker_ = false;  // to be added before the paragraph's first text
};

}  // namespace

std::optional<Document> read(std::span<const uint8_t> bytes) {
  const auto source = Source::open(bytes);
  if (!source) return std::nullopt;
  return Reader(*source).read();
}

bool isEncrypted(std::span<const uint8_t> bytes) {
  const auto file = compound_file::File::open(bytes);
  if (!file) return false;
  const auto document = file->read(documentStream).value_or(std::vector<uint8_t>());
  return (Bytes(document).read16(information::flags) & encrypted) != 0 || file->read("EncryptedPackage").has_value();
}

}  // namespace standin::formats::doc
