// What RTF groups open and close: the character and paragraph formatting in force.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <vector>

#include "standin/text/style.hpp"

namespace standin::formats::rtf {

// Where text goes.
enum class Destination : uint8_t { body, skip, fonts, colors, property, fieldInstruction, picture, graphic, background };

// What a shadow is unless more is said of it: one point to the right and below, a third of black.
struct ShadowFormat {
  int offsetX = 20, offsetY = -20, blurRadius = 0;  // twentieths of a point, to the right and up
  int opacity = 85;                                 // of 255
  int color = 0;                                    // 0: black; -1: no shadow is drawn

  auto operator<=>(const ShadowFormat&) const = default;
};

// Character formatting in the units of RTF; fonts, colours, links and attachments by index, -1 for none.
struct CharacterFormat {
  int font = -1;
  int halfPoints = 24;
  int foreground = -1, background = -1, underlineColor = -1, strikethroughColor = -1, strokeColor = -1;
  int underline = 0, strikethrough = 0, superscript = 0;
  int baseline = 0;     // half points
  int kern = 0;         // twentieths of a point
  int expansion = 0;    // per cent beyond the font's own width
  int strokeWidth = 0;  // twentieths of a per cent of the font's size
  int obliqueness = 0;  // thousandths
  int ligature = -1;    // -1: the font's own
  int link = -1;
  int attachment = -1;
  bool bold = false, italic = false, hidden = false, hasShadow = false;
  ShadowFormat shadow{};

  auto operator<=>(const CharacterFormat&) const = default;
};

struct TabFormat {
  int position = 0;
  text::TabKind kind = text::TabKind::left;

  auto operator<=>(const TabFormat&) const = default;
};

// Paragraph formatting in twips, as the words gave it: what some of them mean, others say behind them.
struct ParagraphFormat {
  text::Alignment alignment = text::Alignment::natural;
  text::WritingDirection direction = text::WritingDirection::natural;
  int firstLineIndent = 0;  // from the left indent
  int leftIndent = 0;
  int tailIndent = 0;  // as text::Paragraph counts it
  int spaceBefore = 0, spaceAfter = 0;
  int lineHeight = 0;                               // positive: at least, negative: exactly
  bool isMultiple = false;                          // lineHeight counts lines of 240
  std::optional<int> minimumHeight, maximumHeight;  // instead of what lineHeight says
  int lineSpacing = 0, tabInterval = 0;
  int hyphenation = 0;  // per cent
  int headerLevel = 0;
  std::optional<std::vector<TabFormat>> tabs;

  auto operator<=>(const ParagraphFormat&) const = default;
};

// The same in points.
text::Paragraph paragraphOf(const ParagraphFormat& format);

// The formatting that a group restores when it closes.
struct GroupState {
  Destination destination = Destination::body;
  CharacterFormat characters;
  ParagraphFormat paragraph;
  text::TabKind nextTab = text::TabKind::left;
  int unicodeSkip = 1;
  bool starred = false;     // \* came: an unknown destination is to be skipped
  bool atStart = true;      // nothing but \* came yet
  bool isField = false;     // \field: its instruction sets the link of its result
  bool skipsFirst = false;  // \upr: the first group inside is the fallback
};

}  // namespace standin::formats::rtf
