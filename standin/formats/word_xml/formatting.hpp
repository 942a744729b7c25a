// What Word's formatting elements say, and the styles that they come to.
#pragma once

#include "standin/formats/formatting.hpp"
#include "standin/formats/scripts.hpp"
#include "standin/formats/word_xml/property_record.hpp"
#include "standin/formats/word_xml/theme.hpp"

namespace standin::formats::word_xml {

struct RunFormatting : CharacterFormatting {
  std::optional<std::string> eastAsianFont, complexFont;
  std::optional<double> complexSize;
  std::optional<bool> complexBold, complexItalic;
  std::optional<bool> isComplex;  // all characters are in the complex script's font
  std::optional<std::optional<text::Color>> highlight;
  std::optional<int> ligature;

  static constexpr auto members() {
    using R = RunFormatting;
    return std::tuple_cat(CharacterFormatting::members(),
                          std::tuple(&R::eastAsianFont, &R::complexFont, &R::complexSize, &R::complexBold, &R::complexItalic,
                                     &R::isComplex, &R::highlight, &R::ligature));
  }
};

struct TabChange {
  text::TabStop stop;
  bool clears;
};

struct ParagraphProperties : ParagraphFormatting {
  std::vector<TabChange> tabChanges;  // of the styles from the first ancestor on, and of the paragraph
  std::optional<bool> pageBreakBefore;
};

// The tabs that a style sets come to those that it inherits.
void overlay(ParagraphProperties& under, const ParagraphProperties& over);

// Bold and italic of a character style are switched off where the paragraph's style has them on already.
void overlayCharacterStyle(RunFormatting& under, const RunFormatting& over);

RunFormatting runFormattingOf(const PropertyRecord& record, const Theme& theme);
ParagraphProperties paragraphPropertiesOf(const PropertyRecord& record);

// Of the record's element of the name: its value; empty without one.
std::string valueIn(const PropertyRecord& record, Name name);

text::Style styleOf(const RunFormatting& formatting, Script script);
text::Paragraph paragraphOf(const ParagraphProperties& properties);

}  // namespace standin::formats::word_xml
