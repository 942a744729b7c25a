// Puts together binary Word documents byte by byte, so that tests can say what no writer of ours would.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "standin/formats/compound_file/writer.hpp"
#include "standin/formats/doc/layout.hpp"
#include "standin/formats/doc/modifiers.hpp"
#include "standin/formats/little_endian.hpp"

namespace tests {

using standin::formats::append16;
using standin::formats::append32;
using standin::formats::doc::Modifiers;
using standin::formats::doc::Part;
using standin::formats::doc::Property;

// Modifiers with operands of fixed size.
inline std::string list(std::initializer_list<std::pair<Property, int64_t>> modifiers) {
  Modifiers made;
  for (const auto& [property, operand] : modifiers) made.add(property, operand);
  return made.bytes;
}
inline std::string counted(Property property, std::string_view operand) {
  Modifiers made;
  made.add(property, operand);
  return made.bytes;
}
inline std::string wide(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) append16(bytes, unit);
  return bytes;
}
inline std::string numbers(std::initializer_list<uint32_t> all) {
  std::string bytes;
  for (const uint32_t number : all) append32(bytes, number);
  return bytes;
}

struct WordDocument {
  struct Piece {
    std::string bytes;
    bool isWide = false;
    uint16_t modifier = 0;
    bool isMoved = false;  // behind all others in the stream
  };
  // Units of the text in the order of the stream.
  struct Run {
    size_t length;
    std::string modifiers{};
    uint16_t style = 0;
  };
  struct Style {
    uint8_t kind;
    uint16_t parent = standin::formats::doc::noStyle;
    std::string paragraph{}, characters{};
    uint16_t identifier = standin::formats::doc::userStyleIdentifier;
  };

  std::vector<Piece> pieces{};
  std::vector<std::string> pieceLists{};
  std::vector<Run> characters{}, paragraphs{};
  std::vector<Style> styles = {{.kind = 1, .identifier = 0}};
  std::vector<std::string> fonts = {"Times New Roman", "Arial", "Courier New", "Georgia"};
  std::map<Part, std::string> parts{};
  std::string behindLists{}, behindDocument{}, data{};
  std::map<std::string, std::string> streams{};
  uint16_t flags = 0;
  bool isOnePlace = false;           // all pieces are where the first one is
  std::vector<size_t> unitPlaces{};  // in the stream, in its order
  size_t textLength = SIZE_MAX;      // what the document says; its real length unless said

  std::string bytes() {
    std::string document(standin::formats::doc::information::size97, '\0'), table;
    standin::formats::pad(document, 512);
    const std::string pieceTable = addText(document);
    const std::string characterTable = addPages(document, characters, false);
    const std::string paragraphTable = addPages(document, paragraphs, true);
    document += behindDocument;
    parts[Part::pieces] = pieceTable;
    parts[Part::characterPages] = characterTable;
    parts[Part::paragraphPages] = paragraphTable;
    parts[Part::styleSheet] = styleSheet();
    parts[Part::fonts] = fontTable();
    for (const auto& [part, contents] : parts) {
      standin::formats::setNumber(document, standin::formats::doc::placeOf(part), static_cast<uint32_t>(table.size()));
      standin::formats::setNumber(document, standin::formats::doc::placeOf(part) + 4,
                                  static_cast<uint32_t>(contents.size()));
      table += contents;
      if (part == Part::lists) table += behindLists;
    }
    standin::formats::setNumber(document, 0, standin::formats::doc::signature);
    standin::formats::setNumber(document, standin::formats::doc::information::version, standin::formats::doc::version97);
    standin::formats::setNumber(document, standin::formats::doc::information::flags, flags);
    standin::formats::setNumber(document, standin::formats::doc::information::textLength,
                                static_cast<uint32_t>(textLength == SIZE_MAX ? length() : textLength));
    std::vector<standin::formats::compound_file::Stream> all = {
        {standin::formats::doc::documentStream, document}, {"0Table", table}, {"Data", data}};
    for (const auto& [name, contents] : streams) all.push_back({name, contents});
    return standin::formats::compound_file::write(all, {}).value();
  }

 private:
  static size_t lengthOf(const Piece& piece) { return piece.bytes.size() / (piece.isWide ? 2 : 1); }
  size_t length() const {
    size_t sum = 0;
    for (const Piece& piece : pieces) sum += lengthOf(piece);
    return sum;
  }

  std::string addText(std::string& document) {
    std::vector<size_t> places(pieces.size());
    for (const bool moved : {false, true}) {
      for (size_t index = 0; index < pieces.size(); ++index) {
        if (pieces[index].isMoved != moved) continue;
        places[index] = 1024;
        if (isOnePlace && index > 0) continue;
        places[index] = document.size();
        document += pieces[index].bytes;
        for (size_t unit = 0; unit < lengthOf(pieces[index]); ++unit) {
          unitPlaces.push_back(places[index] + unit * (pieces[index].isWide ? 2 : 1));
        }
      }
    }
    unitPlaces.push_back(document.size());
    standin::formats::pad(document, 512);
    std::string table, description, all;
    size_t end = 0;
    append32(table, 0);
    for (size_t index = 0; index < pieces.size(); ++index) {
      append32(table, end += lengthOf(pieces[index]));
      append16(description, 0);
      append32(description, pieces[index].isWide ? places[index] : places[index] * 2 | 0x40000000);
      append16(description, pieces[index].modifier);
    }
    for (const std::string& modifiers : pieceLists) {
      all += '\1';
      append16(all, modifiers.size());
      all += modifiers;
    }
    all += '\2';
    append32(all, table.size() + description.size());
    return all + table + description;
  }

  // A page a run.
  std::string addPages(std::string& document, const std::vector<Run>& runs, bool ofParagraphs) {
    std::string places, pages;
    size_t unit = 0;
    for (const Run& run : runs) {
      std::string page;
      append32(page, unitPlaces[unit]);
      append32(places, unitPlaces[unit]);
      append32(page, unitPlaces[unit += run.length]);
      const std::string contents =
          ofParagraphs ? wide({reinterpret_cast<const char16_t*>(&run.style), 1}) + run.modifiers : run.modifiers;
      const size_t place = 508 - (contents.size() + 3) / 2 * 2;
      page += static_cast<char>(place / 2);
      page.resize(512);
      if (!ofParagraphs) page.replace(place, contents.size() + 1, static_cast<char>(contents.size()) + contents);
      if (ofParagraphs)
        page.replace(place, contents.size() + 2, std::string{'\0', static_cast<char>((contents.size() + 1) / 2)} + contents);
      page[511] = 1;
      append32(pages, document.size() / 512);
      document += page;
    }
    if (runs.empty()) return {};
    append32(places, unitPlaces[unit]);
    return places + pages;
  }

  std::string styleSheet() const {
    std::string sheet;
    append16(sheet, 18);
    for (const size_t number :
         {styles.size(), size_t{10}, size_t{1}, size_t{0}, size_t{15}, size_t{0}, size_t{0}, size_t{0}, size_t{0}})
      append16(sheet, number);
    uint16_t number = 0;
    for (const Style& style : styles) {
      const bool ofParagraph = style.kind == 1;
      std::string own;
      append16(own, style.identifier);
      append16(own, style.kind | style.parent << 4);
      for (const int field : {ofParagraph ? 2 : 1, 0, 0, 1, u's' + 0, 0}) append16(own, field);
      if (ofParagraph) {
        append16(own, style.paragraph.size() + 2);
        append16(own, number);
        own += style.paragraph;
        standin::formats::pad(own, 2);
      }
      append16(own, style.characters.size());
      own += style.characters;
      standin::formats::pad(own, 2);
      append16(sheet, own.size());
      sheet += own;
      ++number;
    }
    return sheet;
  }

  std::string fontTable() const {
    std::string table;
    append16(table, fonts.size());
    append16(table, 0);
    for (const std::string& font : fonts) {
      std::string description(39, '\0');
      for (const char letter : font) append16(description, letter);
      append16(description, 0);
      table += static_cast<char>(description.size());
      table += description;
    }
    return table;
  }
};

}  // namespace tests
