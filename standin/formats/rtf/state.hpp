// What RTF groups open and close: the character and paragraph formatting in force.
#pragma once

#include <compare>
#include <cstdint>

#include "standin/text/style.hpp"

namespace standin::formats::rtf {

// Where text goes.
enum class Destination : uint8_t { body, skip, fonts, colors, property, fieldInstruction, picture, graphic };

// Character formatting in the units of RTF; fonts, colours, links and attachments by index, -1 for none.
struct CharacterFormat {
  int font = -1;
  int halfPoints = 24;
  int foreground = -1, background = -1, underlineColor = -1;
  int underline = 0, strikethrough = 0, superscript = 0;
  int baseline = 0;   // half points
  int kern = 0;       // twentieths of a point
  int expansion = 0;  // per cent beyond the font's own width
  int link = -1;
  int attachment = -1;
  bool bold = false, italic = false, hidden = false;

  auto operator<=>(const CharacterFormat&) const = default;
};

// The formatting that a group restores when it closes.
struct GroupState {
  Destination destination = Destination::body;
  CharacterFormat characters;
  text::Paragraph paragraph;
  text::TabKind nextTab = text::TabKind::left;
  double lineHeight = 0;  // points; what it means, the multiple rule says behind it
  int unicodeSkip = 1;
  bool starred = false;     // \* came: an unknown destination is to be skipped
  bool atStart = true;      // nothing but \* came yet
  bool isField = false;     // \field: its instruction sets the link of its result
  bool skipsFirst = false;  // \upr: the first group inside is the fallback
};

}  // namespace standin::formats::rtf
