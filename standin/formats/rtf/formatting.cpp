// Each word's effect on the formatting that it changes.
#include "standin/formats/rtf/formatting.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace standin::formats::rtf {
namespace {

// The lengths of the page in the order of their actions.
constexpr std::array lengthMembers = {&PageSetup::paperWidth,  &PageSetup::paperHeight, &PageSetup::leftMargin,
                                      &PageSetup::rightMargin, &PageSetup::topMargin,   &PageSetup::bottomMargin};

// Positive: at least; negative: exactly; with the multiple rule: lines of 12 points.
void setLineHeight(GroupState& state, bool multiple) {
  text::Paragraph& paragraph = state.paragraph;
  paragraph.minimumLineHeight = paragraph.maximumLineHeight = paragraph.lineHeightMultiple = 0;
  if (multiple) {
    paragraph.lineHeightMultiple = state.lineHeight == 12 ? 0 : state.lineHeight / 12;
  } else {
    paragraph.minimumLineHeight = std::abs(state.lineHeight);
    if (state.lineHeight < 0) paragraph.maximumLineHeight = -state.lineHeight;
  }
}

void addTab(GroupState& state, double position) {
  constexpr size_t mostTabs = 64;
  auto& stops = state.paragraph.tabs;
  std::vector<text::TabStop>& tabs = stops ? *stops : stops.emplace();
  if (tabs.size() < mostTabs) tabs.push_back({position, state.nextTab});
  state.nextTab = text::TabKind::left;
}

}  // namespace

void formatCharacters(CharacterFormat& format, const ControlWord& word, std::optional<int> parameter) {
  const bool on = parameter.value_or(1) != 0;
  const int number = parameter.value_or(0);
  switch (word.action) {
    case Action::bold:
      format.bold = on;
      break;
    case Action::italic:
      format.italic = on;
      break;
    case Action::hidden:
      format.hidden = on;
      break;
    case Action::kern:
      format.kern = std::clamp(number, -32768, 32767);
      break;
    case Action::expansion:
      format.expansion = std::clamp(number, 1, 600) - 100;
      break;
    case Action::fontSize:
      format.halfPoints = std::clamp(parameter.value_or(24), 1, 3276);
      break;
    case Action::foreground:
      format.foreground = number;
      break;
    case Action::background:
      format.background = number;
      break;
    case Action::underlineColor:
      format.underlineColor = number;
      break;
    case Action::underline:
      format.underline = on ? word.value : 0;
      break;
    case Action::strikethrough:
      format.strikethrough = on ? word.value : 0;
      break;
    case Action::superscript:
      format.superscript = on ? word.value : 0;
      break;
    case Action::raise:
      format.baseline = word.value * std::clamp(parameter.value_or(6), -3276, 3276);
      break;
    default:
      break;
  }
}

void formatParagraph(GroupState& state, const ControlWord& word, std::optional<int> parameter) {
  text::Paragraph& paragraph = state.paragraph;
  const double points = parameter.value_or(0) / twipsInPoint;
  switch (word.action) {
    case Action::paragraphDefaults:
      paragraph = {};
      state.lineHeight = 0;
      break;
    case Action::alignment:
      paragraph.alignment = static_cast<text::Alignment>(word.value);
      break;
    case Action::direction:
      paragraph.direction = static_cast<text::WritingDirection>(word.value);
      break;
    // RTF counts the first line from the left indent, the platform from the margin.
    case Action::firstLineIndent:
      paragraph.firstLineIndent = paragraph.headIndent + points;
      break;
    case Action::leftIndent:
      paragraph.firstLineIndent += points - paragraph.headIndent;
      paragraph.headIndent = points;
      break;
    case Action::rightIndent:
      paragraph.tailIndent = -std::max(points, 0.0);  // into the margin it cannot reach
      break;
    case Action::spaceBefore:
      paragraph.spacingBefore = points;
      break;
    case Action::spaceAfter:
      paragraph.spacingAfter = points;
      break;
    case Action::lineHeight:
      state.lineHeight = points;
      setLineHeight(state, false);
      break;
    case Action::lineHeightRule:
      setLineHeight(state, parameter.value_or(0) != 0);
      break;
    case Action::tabPosition:
      addTab(state, points);
      break;
    case Action::tabKind:
      state.nextTab = static_cast<text::TabKind>(word.value);
      break;
    default:
      break;
  }
}

void takeInformation(DocumentInformation& document, Action action, int number) {
  if (action <= Action::bottomMargin) {
    document.page.*lengthMembers[static_cast<size_t>(action) - static_cast<size_t>(Action::paperWidth)] =
        number / twipsInPoint;
    return;
  }
  switch (action) {
    case Action::defaultTab:
      document.defaultTabInterval = number / twipsInPoint;
      break;
    case Action::viewMode:
      document.viewMode = number;
      break;
    case Action::viewZoom:
      document.viewZoom = number;
      break;
    case Action::viewWidth:
      document.viewWidth = number / twipsInPoint;
      break;
    case Action::viewHeight:
      document.viewHeight = number / twipsInPoint;
      break;
    case Action::hyphenation:
      document.hyphenationFactor = number / 100.0;
      break;
    case Action::readOnly:
      document.readOnly = number;
      break;
    default:
      document.rtfVersion = number;
      break;
  }
}

}  // namespace standin::formats::rtf
