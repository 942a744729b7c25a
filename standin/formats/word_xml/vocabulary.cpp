// The tables: the first row of several with one meaning is the one that is written.
#include "standin/formats/word_xml/vocabulary.hpp"

#include <algorithm>

#include "standin/formats/colors.hpp"
#include "standin/formats/word_xml/values.hpp"

namespace standin::formats::word_xml {
namespace {

struct UnderlineRow {
  std::string_view name;
  int style;  // the low byte is the line, the bits above it the pattern
};
constexpr UnderlineRow underlines[] = {
    {"single", 1},         {"double", 9},
    {"thick", 2},          {"words", 0x8001},
    {"dotted", 0x101},     {"dottedHeavy", 0x102},
    {"dash", 0x201},       {"dashedHeavy", 0x202},
    {"dotDash", 0x301},    {"dashDotHeavy", 0x302},
    {"dotDotDash", 0x401}, {"dashDotDotHeavy", 0x402},
    {"dashLong", 0x201},   {"dashLongHeavy", 0x202},
    {"wavyDouble", 9},     {"wavyHeavy", 2},
    {"none", 0},
};

struct AlignmentRow {
  std::string_view name;
  text::Alignment alignment;
};
constexpr AlignmentRow alignments[] = {
    {"left", text::Alignment::left},
    {"right", text::Alignment::right},
    {"center", text::Alignment::center},
    {"both", text::Alignment::justified},
    {"start", text::Alignment::left},
    {"end", text::Alignment::right},
    {"distribute", text::Alignment::justified},
    {"thaiDistribute", text::Alignment::justified},
    {"lowKashida", text::Alignment::justified},
    {"mediumKashida", text::Alignment::justified},
    {"highKashida", text::Alignment::justified},
};

constexpr TabName tabs[] = {
    {"left", text::TabKind::left},       {"right", text::TabKind::right}, {"center", text::TabKind::center},
    {"decimal", text::TabKind::decimal}, {"start", text::TabKind::left},  {"end", text::TabKind::right},
    {"num", text::TabKind::left},        {"list", text::TabKind::left},
};

struct NumberFormatRow {
  std::string_view name;
  int code;
  NumberFormat format;
};
constexpr NumberFormatRow numberFormats[] = {
    {"decimal", 0, NumberFormat::decimal},
    {"upperRoman", 1, NumberFormat::upperRoman},
    {"lowerRoman", 2, NumberFormat::lowerRoman},
    {"upperLetter", 3, NumberFormat::upperLetter},
    {"lowerLetter", 4, NumberFormat::lowerLetter},
    {"ordinal", 5, NumberFormat::ordinal},
    {"decimalZero", 22, NumberFormat::decimalZero},
    {"bullet", 23, NumberFormat::bullet},
    {"none", 255, NumberFormat::none},
};

}  // namespace

int underlineNamed(std::string_view name) {
  const UnderlineRow* row = findRow(underlines, name);
  return row != nullptr ? row->style : 1;
}

std::string_view underlineName(int style) {
  if (style == 0) return {};
  for (const UnderlineRow& row : underlines) {
    if (row.style == style) return row.name;
  }
  return "single";
}

std::optional<text::Color> highlightOf(std::string_view name) {
  std::string camel;
  for (size_t at = 0; at < name.size(); ++at) {
    const bool joins = name[at] == '-' && at + 1 < name.size();
    camel += joins ? static_cast<char>(name[++at] & ~0x20) : name[at];
  }
  return highlightNamed(camel);
}

text::Alignment alignmentNamed(std::string_view name) {
  const AlignmentRow* row = findRow(alignments, name);
  return row != nullptr ? row->alignment : text::Alignment::natural;
}

std::string_view alignmentName(text::Alignment alignment) {
  for (const AlignmentRow& row : alignments) {
    if (row.alignment == alignment) return row.name;
  }
  return {};
}

std::optional<text::TabKind> tabNamed(std::string_view name) {
  const TabName* row = findRow(tabs, name);
  if (row == nullptr) return std::nullopt;
  return row->kind;
}

std::string_view tabName(text::TabKind kind) { return tabs[static_cast<size_t>(kind)].name; }

NumberFormat numberFormatNamed(std::string_view name) {
  const NumberFormatRow* row = findRow(numberFormats, name);
  return row != nullptr ? row->format : NumberFormat::decimal;
}

NumberFormat numberFormatCoded(int code) {
  const auto* row = std::find_if(std::begin(numberFormats), std::end(numberFormats),
                                 [&](const NumberFormatRow& each) { return each.code == code; });
  return row != std::end(numberFormats) ? row->format : NumberFormat::decimal;
}

}  // namespace standin::formats::word_xml
