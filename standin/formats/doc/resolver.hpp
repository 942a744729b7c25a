// The properties of the paragraphs and characters of a document, made of styles, lists and modifiers; each set once.
#pragma once

#include <deque>
#include <unordered_map>

#include "standin/formats/doc/character_properties.hpp"
#include "standin/formats/doc/lists.hpp"
#include "standin/formats/doc/paragraph_properties.hpp"
#include "standin/formats/doc/styles.hpp"

namespace standin::formats::doc {

// What the pages say of a stretch, and what its piece says over that.
struct StretchModifiers {
  Bytes ofPage, ofPiece;
};

class Resolver {
 public:
  Resolver(const Source& source, const Lists& lists);

  // Sets of properties by index, one for all uses of the same modifiers.
  uint32_t paragraphOf(uint16_t style, const StretchModifiers& modifiers);
  uint32_t charactersOf(uint16_t paragraphStyle, const StretchModifiers& modifiers);

  const ParagraphProperties& paragraph(uint32_t index) const { return paragraphs_[index]; }
  const CharacterProperties& characters(uint32_t index) const { return characters_[index]; }

 private:
  struct Key {
    uint16_t style;
    std::string_view ofPage, ofPiece;

    bool operator==(const Key&) const = default;
  };
  struct Hash {
    size_t operator()(const Key& key) const;
  };
  using Indices = std::unordered_map<Key, uint32_t, Hash>;

  ParagraphProperties makeParagraph(uint16_t style, const StretchModifiers& modifiers);
  CharacterProperties makeCharacters(uint16_t paragraphStyle, const StretchModifiers& modifiers);
  ParagraphProperties paragraphStyle(uint16_t style);
  const CharacterProperties& charactersOfStyle(uint16_t style);
  void applyParagraph(ParagraphProperties& properties, Bytes list, bool isOutermost);
  void applyCharacters(CharacterProperties& properties, Bytes list, const CharacterProperties& style);
  // The character style that the modifiers name, over the paragraph's.
  CharacterProperties styledAs(const CharacterProperties& paragraph, const StretchModifiers& modifiers);
  // A list that is kept in the data stream.
  Bytes elsewhere(Bytes operand);

  const Source& source_;
  const Lists& lists_;
  Styles styles_;
  size_t elsewhereBudget_;
  Indices paragraphIndices_, characterIndices_;
  std::deque<ParagraphProperties> paragraphs_;
  std::deque<CharacterProperties> characters_;
  std::unordered_map<uint16_t, ParagraphProperties> paragraphStyles_;
  std::unordered_map<uint16_t, CharacterProperties> characterStyles_;  // of the paragraphs of a style
};

}  // namespace standin::formats::doc
