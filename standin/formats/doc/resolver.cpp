// Styles first, then what the pages say, then the piece; a list's own indents hold from where the list is named.
#include "standin/formats/doc/resolver.hpp"

namespace standin::formats::doc {

Resolver::Resolver(const Source& source, const Lists& lists)
    : source_(source), lists_(lists), styles_(source), elsewhereBudget_(source.data.size() * 16) {}

size_t Resolver::Hash::operator()(const Key& key) const {
  const std::hash<std::string_view> hash;
  return (hash(key.ofPage) * 31 + hash(key.ofPiece)) * 31 + key.style;
}

uint32_t Resolver::paragraphOf(uint16_t style, const StretchModifiers& modifiers) {
  const Key key{style, modifiers.ofPage.characters(), modifiers.ofPiece.characters()};
  const auto [entry, isNew] = paragraphIndices_.try_emplace(key, static_cast<uint32_t>(paragraphs_.size()));
  if (isNew) paragraphs_.push_back(makeParagraph(style, modifiers));
  return entry->second;
}

uint32_t Resolver::charactersOf(uint16_t paragraphStyle, const StretchModifiers& modifiers) {
  const Key key{paragraphStyle, modifiers.ofPage.characters(), modifiers.ofPiece.characters()};
  const auto [entry, isNew] = characterIndices_.try_emplace(key, static_cast<uint32_t>(characters_.size()));
  if (isNew) characters_.push_back(makeCharacters(paragraphStyle, modifiers));
  return entry->second;
}

ParagraphProperties Resolver::makeParagraph(uint16_t style, const StretchModifiers& modifiers) {
  ParagraphProperties properties = paragraphStyle(style);
  applyParagraph(properties, modifiers.ofPage, true);
  applyParagraph(properties, modifiers.ofPiece, true);
  return properties;
}

ParagraphProperties Resolver::paragraphStyle(uint16_t style) {
  const auto [entry, isNew] = paragraphStyles_.try_emplace(style);
  if (isNew) {
    ParagraphProperties properties;
    properties.style = style;
    if (const int level = styles_.headerLevelOf(style)) properties.formatting.headerLevel = level;
    for (const Bytes list : styles_.modifiersOf(style).paragraph) applyParagraph(properties, list, false);
    paragraphStyles_[style] = properties;
    return properties;
  }
  return entry->second;
}

void Resolver::applyParagraph(ParagraphProperties& properties, Bytes list, bool isOutermost) {
  ModifierList modifiers(list, source_.isOld);
  while (const auto modifier = modifiers.next()) {
    if (modifier->property == Property::paragraphStyle && isOutermost) {
      properties = paragraphStyle(modifier->operand.read16(0));
    } else if (modifier->property == Property::storedElsewhere || modifier->property == Property::storedElsewhere97) {
      if (isOutermost) applyParagraph(properties, elsewhere(modifier->operand), false);
    } else {
      apply(properties, *modifier);
    }
    if (modifier->property != Property::list && modifier->property != Property::listLevel) continue;
    const auto& [listNumber, level] = std::tie(properties.formatting.list, properties.formatting.listLevel);
    ModifierList ofLevel(lists_.modifiersOf(listNumber.value_or(0), level.value_or(0)), false);
    while (const auto indent = ofLevel.next()) apply(properties, *indent);
  }
}

// Each list counts against a budget: a document could name one very long list for every paragraph.
Bytes Resolver::elsewhere(Bytes operand) {
  const uint32_t place = operand.read32(0);
  const Bytes list = source_.data.part(size_t{place} + 2, source_.data.read16(place));
  if (list.size() > elsewhereBudget_) return {};
  elsewhereBudget_ -= list.size();
  return list;
}

const CharacterProperties& Resolver::charactersOfStyle(uint16_t style) {
  const auto [entry, isNew] = characterStyles_.try_emplace(style);
  if (isNew) {
    CharacterProperties& properties = entry->second;
    std::copy(std::begin(styles_.defaultFonts), std::end(styles_.defaultFonts), properties.fonts);
    for (const Bytes list : styles_.modifiersOf(style).characters) {
      const CharacterProperties parent = properties;
      applyCharacters(properties, list, parent);
    }
  }
  return entry->second;
}

void Resolver::applyCharacters(CharacterProperties& properties, Bytes list, const CharacterProperties& style) {
  ModifierList modifiers(list, source_.isOld);
  while (const auto modifier = modifiers.next()) apply(properties, *modifier, style);
}

CharacterProperties Resolver::styledAs(const CharacterProperties& paragraph, const StretchModifiers& modifiers) {
  CharacterProperties styled = paragraph;
  for (const Bytes list : {modifiers.ofPage, modifiers.ofPiece}) {
    ModifierList rest(list, source_.isOld);
    while (const auto modifier = rest.next()) {
      if (modifier->property != Property::characterStyle) continue;
      styled = paragraph;
      for (const Bytes own : styles_.modifiersOf(modifier->operand.read16(0)).characters) {
        applyCharacters(styled, own, paragraph);
      }
    }
  }
  return styled;
}

CharacterProperties Resolver::makeCharacters(uint16_t paragraphStyle, const StretchModifiers& modifiers) {
  const CharacterProperties style = styledAs(charactersOfStyle(paragraphStyle), modifiers);
  CharacterProperties properties = style;
  applyCharacters(properties, modifiers.ofPage, style);
  applyCharacters(properties, modifiers.ofPiece, style);
  return properties;
}

}  // namespace standin::formats::doc
