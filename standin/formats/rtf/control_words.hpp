// The control words that the reader acts on, and the kinds of action there are.
#pragma once

#include <cstdint>
#include <string_view>

namespace standin::formats::rtf {

enum class Action : uint8_t {
  character,    // a unit of text: value
  destination,  // value: a Destination
  bold,
  italic,
  hidden,
  kern,
  expansion,
  font,
  fontSize,
  foreground,
  background,
  underlineColor,
  strikethroughColor,
  strokeColor,
  strokeWidth,
  obliqueness,
  ligature,
  shadow,
  shadowDetail,   // value: a ShadowDetail
  underline,      // value: the line style, its parameter 0 meaning none
  strikethrough,  // value: the line style
  superscript,    // value: sign, its parameter the levels
  raise,          // value: sign
  plain,
  paragraphDefaults,
  paragraphEnd,
  tableCell,
  alignment,  // value: an Alignment
  direction,  // value: a WritingDirection
  rightIndent,
  paragraphNumber,  // value: a ParagraphNumber
  lineHeight,
  lineHeightRule,
  minimumHeight,
  maximumHeight,
  headerLevel,
  noTabs,
  tabPosition,
  tabKind,
  unicode,
  unicodeSkip,
  binary,
  codePage,
  defaultFont,
  fontCharset,
  fontCodePage,
  red,
  green,
  blue,
  paperWidth,
  paperHeight,
  leftMargin,
  rightMargin,
  topMargin,
  bottomMargin,
  defaultTab,
  viewMode,
  viewZoom,
  viewWidth,
  viewHeight,
  hyphenation,
  readOnly,
  rtfVersion,
  pictureWidth,
  pictureHeight,
  field,
  uprGroup,
  property,  // value: index into the text properties
  created,
  modified,
  year,
  month,
  day,
  hour,
  minute,
  second,
};

// Members of the formatting that take a word's parameter as it is.
enum class ShadowDetail { offsetX, offsetY, blurRadius, opacity, color };
enum class ParagraphNumber {
  firstLineIndent,
  leftIndent,
  tailIndent,
  spaceBefore,
  spaceAfter,
  lineSpacing,
  tabInterval,
  hyphenation,
};

struct ControlWord {
  std::string_view name;
  Action action;
  int value = 0;
};

// Nil for a word that the reader does not know.
const ControlWord* findControlWord(std::string_view name);

}  // namespace standin::formats::rtf
