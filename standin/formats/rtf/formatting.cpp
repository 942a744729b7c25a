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

// The members in the order of their numbers.
constexpr std::array shadowMembers = {&ShadowFormat::offsetX, &ShadowFormat::offsetY, &ShadowFormat::blurRadius,
                                      &ShadowFormat::opacity, &ShadowFormat::color};
constexpr std::array paragraphMembers = {&ParagraphFormat::firstLineIndent, &ParagraphFormat::leftIndent,
                                         &ParagraphFormat::tailIndent,      &ParagraphFormat::spaceBefore,
                                         &ParagraphFormat::spaceAfter,      &ParagraphFormat::lineSpacing,
                                         &ParagraphFormat::tabInterval,     &ParagraphFormat::hyphenation};

// No page is longer; further on, sums would not fit.
int length(int twips) { return std::clamp(twips, -100'000'000, 100'000'000); }

double points(int twips) { return twips / twipsInPoint; }

// A single line is what there is without a word.
void setLineHeights(text::Paragraph& paragraph, const ParagraphFormat& format) {
  const int height = std::abs(format.lineHeight);
  constexpr int singleLine = 240;
  if (format.isMultiple) {
    paragraph.lineHeightMultiple = height == singleLine ? 0 : height / double{singleLine};
  } else {
    paragraph.minimumLineHeight = points(height);
    if (format.lineHeight < 0) paragraph.maximumLineHeight = points(height);
  }
  if (format.minimumHeight) paragraph.minimumLineHeight = points(*format.minimumHeight);
  if (format.maximumHeight) paragraph.maximumLineHeight = points(*format.maximumHeight);
}

// Body text has the level behind the last of a heading.
int headerLevel(int outlineLevel) { return outlineLevel >= 0 && outlineLevel < 9 ? outlineLevel + 1 : 0; }

void addTab(GroupState& state, int position) {
  constexpr size_t mostTabs = 64;
  auto& stops = state.paragraph.tabs;
  std::vector<TabFormat>& tabs = stops ? *stops : stops.emplace();
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
    case Action::strikethroughColor:
      format.strikethroughColor = number;
      break;
    case Action::strokeColor:
      format.strokeColor = number;
      break;
    case Action::strokeWidth:
      format.strokeWidth = number;
      break;
    case Action::obliqueness:
      format.obliqueness = number;
      break;
    case Action::ligature:
      format.ligature = std::max(number, -1);
      break;
    case Action::shadow:
      format.hasShadow = on;
      format.shadow = {};
      break;
    case Action::shadowDetail:
      format.shadow.*shadowMembers[static_cast<size_t>(word.value)] = number;
      break;
    case Action::underline:
      format.underline = on ? word.value : 0;
      break;
    case Action::strikethrough:
      format.strikethrough = on ? word.value : 0;
      break;
    case Action::superscript:
      format.superscript = word.value * std::clamp(parameter.value_or(1), 0, 100);
      break;
    case Action::raise:
      format.baseline = word.value * std::clamp(parameter.value_or(6), -3276, 3276);
      break;
    default:
      break;
  }
}

void formatParagraph(GroupState& state, const ControlWord& word, std::optional<int> parameter) {
  ParagraphFormat& paragraph = state.paragraph;
  const int number = length(parameter.value_or(0));
  switch (word.action) {
    case Action::paragraphDefaults:
      paragraph = {};
      break;
    case Action::alignment:
      paragraph.alignment = static_cast<text::Alignment>(word.value);
      break;
    case Action::direction:
      paragraph.direction = static_cast<text::WritingDirection>(word.value);
      break;
    case Action::rightIndent:
      paragraph.tailIndent = -std::max(number, 0);  // into the margin it cannot reach
      break;
    case Action::paragraphNumber:
      paragraph.*paragraphMembers[static_cast<size_t>(word.value)] = number;
      break;
    case Action::lineHeight:
      paragraph.lineHeight = number;
      paragraph.isMultiple = false;
      break;
    case Action::lineHeightRule:
      paragraph.isMultiple = number != 0;
      break;
    case Action::minimumHeight:
      paragraph.minimumHeight = number;
      break;
    case Action::maximumHeight:
      paragraph.maximumHeight = number;
      break;
    case Action::headerLevel:
      paragraph.headerLevel = headerLevel(number);
      break;
    case Action::noTabs:
      paragraph.tabs.emplace();
      break;
    case Action::tabPosition:
      addTab(state, number);
      break;
    case Action::tabKind:
      state.nextTab = static_cast<text::TabKind>(word.value);
      break;
    default:
      break;
  }
}

// RTF counts the first line from the left indent, the platform from the margin.
text::Paragraph paragraphOf(const ParagraphFormat& format) {
  text::Paragraph paragraph;
  paragraph.alignment = format.alignment;
  paragraph.direction = format.direction;
  paragraph.headIndent = points(format.leftIndent);
  paragraph.firstLineIndent = points(format.leftIndent + format.firstLineIndent);
  paragraph.tailIndent = points(format.tailIndent);
  paragraph.spacingBefore = points(format.spaceBefore);
  paragraph.spacingAfter = points(format.spaceAfter);
  paragraph.lineSpacing = points(format.lineSpacing);
  paragraph.defaultTabInterval = points(format.tabInterval);
  paragraph.hyphenationFactor = format.hyphenation / 100.0;
  paragraph.headerLevel = format.headerLevel;
  setLineHeights(paragraph, format);
  if (format.tabs) paragraph.tabs.emplace();
  for (const TabFormat& tab : format.tabs.value_or(std::vector<TabFormat>())) {
    paragraph.tabs->push_back({points(tab.position), tab.kind});
  }
  return paragraph;
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
