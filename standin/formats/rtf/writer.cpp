// The document: header, tables, and each run as what changes from the run before it.
#include "standin/formats/rtf/writer.hpp"

#include <algorithm>
#include <cmath>

#include "standin/formats/rtf/attachments.hpp"
#include "standin/formats/rtf/characters.hpp"
#include "standin/formats/rtf/information.hpp"
#include "standin/formats/rtf/tables.hpp"

namespace standin::formats::rtf {
namespace {

// The control words of the platform's line styles; the low byte is the line, the bits above it the pattern.
struct UnderlineWord {
  int style;
  const char* word;
};
constexpr UnderlineWord underlineWords[] = {
    {0, "\\ulnone"},    {1, "\\ul"},           {2, "\\ulth"},          {9, "\\uldb"},
    {0x101, "\\uld"},   {0x201, "\\uldash"},   {0x301, "\\uldashd"},   {0x401, "\\uldashdd"},
    {0x102, "\\ulthd"}, {0x202, "\\ulthdash"}, {0x302, "\\ulthdashd"}, {0x402, "\\ulthdashdd"},
    {0x8001, "\\ulw"},
};

const char* underlineWord(int style) {
  const auto found = std::find_if(std::begin(underlineWords), std::end(underlineWords),
                                  [&](const UnderlineWord& row) { return row.style == style; });
  return found != std::end(underlineWords) ? found->word : "\\ul";
}

// Half points, within what readers take.
long halfPoints(double size) { return std::isfinite(size) ? std::lrint(std::clamp(size, 0.5, 1638.0) * 2) : 24; }

// Parts of the value. Real documents go beyond 16 bits; a limit keeps nonsense within what readers take.
long scaled(double value, double parts) {
  return std::isfinite(value) ? std::lrint(std::clamp(value * parts, -1e6, 1e6)) : 0;
}

long twips(double points) { return scaled(points, 20); }

// The positions just behind each paragraph's end as RTF counts it, and the text's end.
std::vector<uint32_t> paragraphEnds(const text::Text& text) {
  std::vector<uint32_t> ends;
  uint32_t position = 0;
  text.visitChunks(0, text.size(), [&](auto units) {
    for (const auto unit : units) {
      ++position;
      if (unit == u'\n') ends.push_back(position);
    }
  });
  ends.push_back(position);
  return ends;
}

class Writer {
 public:
  explicit Writer(const StyledRuns& styled) : styled_(styled), tables_(styled.runs), ends_(paragraphEnds(styled.text)) {}

  std::string write(const DocumentInformation& information) {
    out_.reserve(styled_.text.size() + styled_.text.size() / 4 + 256);
    out_ += "{\\rtf1\\ansi\\ansicpg1252\\uc1\n";
    tables_.write(out_);
    appendInformation(out_, information);
    out_ += "\\pard\\fs24 ";
    uint32_t from = 0;
    for (const StyledRun& run : styled_.runs) {
      writeRun(*run.style, from, from + run.length);
      from += run.length;
    }
    closeField();
    out_ += "}";
    return std::move(out_);
  }

 private:
  // A run may hold many paragraphs, and a paragraph many runs: the paragraph is laid out by what its first run says.
  void writeRun(const text::Style& style, uint32_t from, uint32_t end) {
    while (from < end) {
      if (startsParagraph_) writeParagraphFormat(style.paragraph);
      if (link_ != style.link) closeField();
      writeChanges(style);
      current_ = &style;
      if (link_ != style.link) openField(style.link);
      const uint32_t stop = std::min(end, ends_[paragraph_]);
      writeCharacters(style, from, stop);
      startsParagraph_ = stop == ends_[paragraph_];
      // A field may not reach into the next paragraph: each paragraph's part of a link is a field of its own, its end
      // included.
      if (startsParagraph_) closeField();
      if (startsParagraph_ && paragraph_ + 1 < ends_.size()) ++paragraph_;
      from = stop;
    }
  }

  void writeCharacters(const text::Style& style, uint32_t from, uint32_t stop) {
    for (uint32_t at = from; style.attachment != nullptr && at < stop; ++at) {
      if (styled_.text[at] != text::attachmentCharacter) continue;
      appendCharacters(out_, styled_.text, from, at - from);
      appendAttachment(out_, *style.attachment);
      from = at + 1;
    }
    appendCharacters(out_, styled_.text, from, stop - from);
  }

  void writeParagraphFormat(const text::Paragraph& paragraph) {
    startsParagraph_ = false;
    if (paragraph == currentParagraph_) return;
    currentParagraph_ = paragraph;
    out_ += "\\pard";
    constexpr const char* alignments[] = {"\\ql", "\\qr", "\\qc", "\\qj", ""};
    out_ += alignments[static_cast<size_t>(paragraph.alignment)];
    if (paragraph.direction == text::WritingDirection::rightToLeft) out_ += "\\rtlpar";
    if (paragraph.direction == text::WritingDirection::leftToRight) out_ += "\\ltrpar";
    length("\\li", paragraph.headIndent);
    length("\\fi", paragraph.firstLineIndent - paragraph.headIndent);
    if (paragraph.tailIndent < 0) length("\\ri", -paragraph.tailIndent);
    if (paragraph.tailIndent > 0) length("\\tailindent", paragraph.tailIndent);
    length("\\sb", paragraph.spacingBefore);
    length("\\sa", paragraph.spacingAfter);
    writeLineHeight(paragraph);
    length("\\slleading", paragraph.lineSpacing);
    if (paragraph.hyphenationFactor > 0) number("\\parhyphfactor", scaled(paragraph.hyphenationFactor, 100));
    if (paragraph.headerLevel > 0) number("\\outlinelevel", std::min(paragraph.headerLevel, 9) - 1);
    writeTabs(paragraph);
    out_ += ' ';
  }

  void writeTabs(const text::Paragraph& paragraph) {
    length("\\pardeftab", paragraph.defaultTabInterval);
    if (paragraph.tabs && paragraph.tabs->empty()) out_ += "\\notabs";
    for (const text::TabStop& tab : paragraph.tabs.value_or(std::vector<text::TabStop>())) {
      constexpr const char* kinds[] = {"", "\\tqr", "\\tqc", "\\tqdec"};
      out_ += kinds[static_cast<size_t>(tab.kind)];
      number("\\tx", twips(tab.position));
    }
  }

  // A multiple counts lines of 12 points; a height that may not grow is written as a negative one. What these do not say,
  // words of the platform's own do.
  void writeLineHeight(const text::Paragraph& paragraph) {
    const double least = paragraph.minimumLineHeight, most = paragraph.maximumLineHeight;
    if (paragraph.lineHeightMultiple > 0) {
      number("\\sl", scaled(paragraph.lineHeightMultiple, 240));
      out_ += "\\slmult1";
      length("\\slminimum", least);
      length("\\slmaximum", most);
    } else if (most > 0) {
      number("\\sl", -twips(most));
      if (twips(least) != twips(most)) number("\\slminimum", twips(least));
    } else {
      length("\\sl", least);
    }
  }

  void openField(const text::Link& link) {
    link_ = link;
    aroundField_ = current_;
    fontAroundField_ = fontNumber_;
    out_ += "{\\field{\\*\\fldinst{HYPERLINK \"";
    std::u16string quoted;
    for (const char16_t unit : link.text()) unit == u'"' ? quoted += u"%22" : quoted += unit;
    appendCharacters(out_, text::Text::utf16(quoted), 0, static_cast<uint32_t>(quoted.size()));
    out_ += "\"}}{\\fldrslt ";
  }

  // What its runs changed ends with it.
  void closeField() {
    if (link_.empty()) return;
    out_ += "}}";
    link_ = {};
    current_ = aroundField_;
    fontNumber_ = fontAroundField_;
  }

  void writeChanges(const text::Style& style) {
    if (current_ == &style) return;
    const size_t before = out_.size();
    const text::Style& old = current_ != nullptr ? *current_ : plain_;
    writeFont(old, style);
    writeColors(old, style);
    writeLines(old, style);
    writeSpacing(old, style);
    writeEffects(old, style);
    if (out_.size() != before) out_ += ' ';
  }

  void writeFont(const text::Style& old, const text::Style& style) {
    const text::Font &was = fontOf(old), &is = fontOf(style);
    if (current_ == nullptr || is.family != was.family || is.name != was.name) writeFontNumber(is);
    if (halfPoints(is.size) != halfPoints(was.size)) number("\\fs", halfPoints(is.size));
    onOff("\\b", was.bold(), is.bold());
    onOff("\\i", was.italic(), is.italic());
  }

  // Bold and italic faces have their family's number.
  void writeFontNumber(const text::Font& font) {
    const size_t index = tables_.fontIndex(font);
    if (current_ == nullptr || index != fontNumber_) number("\\f", static_cast<long>(index));
    fontNumber_ = index;
  }

  void writeColors(const text::Style& old, const text::Style& style) {
    if (style.foreground != old.foreground) number("\\cf", colorNumber(style.foreground));
    if (style.background != old.background) {
      number("\\cb", colorNumber(style.background));
      number("\\chshdng0\\chcbpat", colorNumber(style.background));
    }
  }

  void writeLines(const text::Style& old, const text::Style& style) {
    if (style.underline != old.underline) out_ += underlineWord(style.underline);
    if (style.underlineColor != old.underlineColor) number("\\ulc", colorNumber(style.underlineColor));
    if (style.strikethrough != old.strikethrough) {
      out_ += style.strikethrough == 9 ? "\\striked1" : style.strikethrough != 0 ? "\\strike" : "\\strike0\\striked0";
    }
    if (style.strikethroughColor != old.strikethroughColor) number("\\strikec", colorNumber(style.strikethroughColor));
  }

  void writeSpacing(const text::Style& old, const text::Style& style) {
    if (style.superscript != old.superscript) writeSuperscript(style.superscript);
    if (style.baselineOffset != old.baselineOffset) {
      number(style.baselineOffset < 0 ? "\\dn" : "\\up", std::abs(twips(style.baselineOffset)) / 10);
    }
    if (style.kern != old.kern) number("\\expndtw", twips(style.kern));
    if (style.expansion != old.expansion) number("\\charscalex", scaled(1 + style.expansion, 100));
  }

  // Readers that do not know levels take any number for one.
  void writeSuperscript(int levels) {
    out_ += levels > 0 ? "\\super" : levels < 0 ? "\\sub" : "\\nosupersub";
    if (std::abs(levels) > 1) out_ += std::to_string(std::abs(levels));
  }

  void writeEffects(const text::Style& old, const text::Style& style) {
    if (style.strokeWidth != old.strokeWidth) number("\\strokewidth", scaled(style.strokeWidth, 20));
    if (style.strokeColor != old.strokeColor) number("\\strokec", colorNumber(style.strokeColor));
    if (style.obliqueness != old.obliqueness) number("\\obliqueness", scaled(style.obliqueness, 1000));
    if (style.ligature != old.ligature) number("\\ligature", style.ligature.value_or(-1));
    if (style.shadow != old.shadow) writeShadow(style.shadow);
  }

  void writeShadow(const std::optional<text::Shadow>& shadow) {
    out_ += shadow ? "\\shad" : "\\shad0";
    if (!shadow) return;
    number("\\shadx", twips(shadow->offsetX));
    number("\\shady", twips(shadow->offsetY));
    number("\\shadr", twips(shadow->blurRadius));
    if (shadow->color) number("\\shado", scaled(shadow->color->alpha, 255));
    number("\\shadc", shadow->color ? colorNumber(shadow->color) : -1);
  }

  long colorNumber(const std::optional<text::Color>& color) const {
    return color ? static_cast<long>(tables_.colorIndex(*color)) : 0;
  }
  void number(const char* word, long value) { (out_ += word) += std::to_string(value); }
  void length(const char* word, double points) {
    if (twips(points) != 0) number(word, twips(points));
  }
  void onOff(const char* word, bool was, bool is) {
    if (was != is) (out_ += word) += is ? "" : "0";
  }

  const StyledRuns& styled_;
  const Tables tables_;
  const std::vector<uint32_t> ends_;
  size_t paragraph_ = 0, fontNumber_ = 0, fontAroundField_ = 0;
  bool startsParagraph_ = true;
  const text::Style plain_;
  text::Paragraph currentParagraph_;
  const text::Style *current_ = nullptr, *aroundField_ = nullptr;
  text::Link link_;  // of the field that is open
  std::string out_;
};

}  // namespace

std::string write(const StyledRuns& styled, const DocumentInformation& information) {
  return Writer(styled).write(information);
}

}  // namespace standin::formats::rtf
