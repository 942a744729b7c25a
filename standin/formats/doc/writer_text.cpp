// Each run as the formats that its style becomes, each once, and its units as the characters that stand for them.
#include "standin/formats/doc/writer_text.hpp"

#include <algorithm>
#include <unordered_map>

#include "standin/formats/doc/modifiers.hpp"
#include "standin/formats/doc/writer_formats.hpp"
#include "standin/formats/doc/writer_pictures.hpp"
#include "standin/formats/doc/writer_scripts.hpp"
#include "standin/formats/fonts.hpp"

namespace standin::formats::doc {
namespace {

// Units that other characters stand for. The rest of the control characters cannot be in a document: they would be taken for
// marks of its own.
struct Replacement {
  char16_t unit, character;
};
constexpr Replacement replacements[] = {
    {u'\t', u'\t'},     {u'\n', paragraphEnd}, {u'\r', paragraphEnd},      {u'\v', lineBreak},
    {u'\f', pageBreak}, {u'\xAD', softHyphen}, {u'\u2011', noBreakHyphen}, {u'\u2028', lineBreak},
};

bool isPlain(char16_t unit) {
  return unit >= 0x20 && unit != u'\xAD' && unit != u'\u2011' && unit != u'\u2028' && unit != text::attachmentCharacter;
}

char16_t characterFor(char16_t unit) {
  const auto found = std::find_if(std::begin(replacements), std::end(replacements),
                                  [&](const Replacement& row) { return row.unit == unit; });
  return found != std::end(replacements) ? found->character : u'\0';
}

bool endsField(char16_t character) { return character == paragraphEnd || character == pageBreak; }

// A place inside the document comes after a switch of its own.
std::u16string instructionOf(std::u16string_view target) {
  std::u16string instruction = u" HYPERLINK ";
  if (target.starts_with(u'#')) {
    instruction += u"\\l ";
    target.remove_prefix(1);
  }
  instruction += u'"';
  for (const char16_t unit : target) {
    if (unit == u'"') instruction += u"%22";
    if (unit >= 0x20 && unit != u'"') instruction += unit;
  }
  return instruction + u"\" ";
}

constexpr uint32_t unknown = UINT32_MAX;

// The formats of a style, by number, once they are known.
struct StyleFormats {
  uint32_t plain = unknown, rightToLeft = unknown, special = unknown, picture = unknown, paragraph = unknown;
  bool pictureIsMissing = false;
  uint64_t units = 0;  // of the text in this style
};

// Formats by number, equal ones once.
class FormatList {
 public:
  uint32_t indexOf(std::string format) {
    const auto [found, isNew] = indices_.try_emplace(std::move(format), static_cast<uint32_t>(formats.size()));
    if (isNew) formats.push_back(found->first);
    return found->second;
  }

  std::vector<std::string> formats;

 private:
  std::unordered_map<std::string, uint32_t> indices_;
};

void extend(std::vector<Stretch>& stretches, size_t end, uint32_t format) {
  if (stretches.empty() || stretches.back().format != format) stretches.push_back({0, format});
  stretches.back().end = static_cast<uint32_t>(end);
}

class TextWriter {
 public:
  TextWriter(FontTable& fonts, double textWidth) : fonts_(fonts), textWidth_(textWidth) {}

  WrittenText write(const StyledRuns& styled) {
    out_.units.reserve(styled.text.size() + styled.text.size() / 8 + 16);
    uint32_t from = 0;
    for (const StyledRun& run : styled.runs) {
      enter(*run.style);
      count(run.length);
      styled.text.visitChunks(from, run.length, [this](auto units) { addUnits(units); });
      from += run.length;
    }
    const text::Style plain;
    if (style_ == nullptr) enter(plain);
    add(paragraphEnd);
    out_.characters.formats = std::move(characterFormats_.formats);
    out_.paragraphs.formats = std::move(paragraphFormats_.formats);
    return std::move(out_);
  }

 private:
  void enter(const text::Style& style) {
    if (style_ == &style) return;
    if (fieldStyle_ != nullptr && fieldStyle_->link != style.link) closeField();
    style_ = &style;
    formats_ = &formatsByStyle_[&style];
    if (formats_->plain == unknown) formats_->plain = characterFormat(false);
  }

  void count(uint32_t units) {
    formats_->units += units;
    if (formats_->units <= most_) return;
    most_ = formats_->units;
    out_.mostly = style_;
  }

  template <class Unit>
  void addUnits(std::span<const Unit> units) {
    for (size_t from = 0; from < units.size();) {
      size_t end = from;
      while (end < units.size() && isPlain(units[end])) ++end;
      if (from < end) addPlain(units.subspan(from, end - from));
      if (end < units.size()) addOther(units[end]);
      from = end + 1;
    }
  }

  template <class Unit>
  void addPlain(std::span<const Unit> units) {
    prepare();
    followsReturn_ = false;
    out_.units.append(units.begin(), units.end());
    if constexpr (sizeof(Unit) > 1) extendByScript(units);
    extend(out_.characters.stretches, out_.units.size(), formats_->plain);
  }

  // The stretches of right-to-left scripts, and what lies before each.
  void extendByScript(std::span<const char16_t> units) {
    const size_t start = out_.units.size() - units.size();
    forEachRightToLeft(units, [&](size_t from, size_t end) {
      if (formats_->rightToLeft == unknown) formats_->rightToLeft = characterFormat(true);
      if (start + from > endOfCharacters()) extend(out_.characters.stretches, start + from, formats_->plain);
      extend(out_.characters.stretches, start + end, formats_->rightToLeft);
    });
  }

  size_t endOfCharacters() const { return out_.characters.stretches.empty() ? 0 : out_.characters.stretches.back().end; }

  void addOther(char16_t unit) {
    const bool isSecondOfPair = unit == u'\n' && followsReturn_;
    followsReturn_ = unit == u'\r';
    if (unit == text::attachmentCharacter) return addAttachment();
    const char16_t character = characterFor(unit);
    if (character != 0 && !isSecondOfPair) add(character);
  }

  void add(char16_t character) {
    if (endsField(character)) closeField();
    prepare(!endsField(character));
    out_.units += character;
    extend(out_.characters.stretches, out_.units.size(), formats_->plain);
    if (character == paragraphEnd) finishParagraph();
  }

  void addAttachment() {
    if (style_->attachment == nullptr) return add(text::attachmentCharacter);
    if (formats_->picture == unknown && !formats_->pictureIsMissing) writePicture(*style_->attachment);
    if (formats_->pictureIsMissing) return;
    prepare();
    addSpecial(pictureCharacter, formats_->picture);
  }

  void writePicture(const text::Attachment& attachment) {
    Modifiers modifiers{characterModifiers(*style_, fonts_.indexOf(fontOf(*style_)))};
    modifiers.add(Property::pictureLocation, static_cast<int64_t>(out_.pictures.size()));
    modifiers.add(Property::isSpecial, 1);
    formats_->pictureIsMissing = !appendPicture(out_.pictures, attachment);
    if (!formats_->pictureIsMissing) formats_->picture = characterFormats_.indexOf(std::move(modifiers.bytes));
  }

  // What has to stand before a character of the style: a paragraph is laid out by the style that it begins with, and a link
  // begins as a field.
  void prepare(bool canBeLink = true) {
    if (startsParagraph_) paragraphStyle_ = formats_;
    if (startsParagraph_ && formats_->paragraph == unknown) {
      formats_->paragraph = paragraphFormats_.indexOf(paragraphProperties(style_->paragraph, textWidth_));
    }
    startsParagraph_ = false;
    if (canBeLink && !style_->link.empty() && fieldStyle_ == nullptr) openField();
  }

  void finishParagraph() {
    out_.paragraphs.stretches.push_back({static_cast<uint32_t>(out_.units.size()), paragraphStyle_->paragraph});
    startsParagraph_ = true;
  }

  void openField() {
    fieldStyle_ = style_;
    addMark(fieldBegin, hyperlinkField);
    out_.units += instructionOf(style_->link);
    extend(out_.characters.stretches, out_.units.size(), formats_->plain);
    addMark(fieldSeparator, 0xFF);
    fieldFormat_ = formats_->special;
  }

  void closeField() {
    constexpr uint8_t hasSeparator = 0x80;
    if (fieldStyle_ == nullptr) return;
    fieldStyle_ = nullptr;
    out_.fields.push_back({static_cast<uint32_t>(out_.units.size()), fieldEnd, hasSeparator});
    addSpecial(fieldEnd, fieldFormat_);
  }

  void addMark(SpecialCharacter mark, uint8_t detail) {
    if (formats_->special == unknown) formats_->special = specialFormat();
    out_.fields.push_back({static_cast<uint32_t>(out_.units.size()), static_cast<uint8_t>(mark), detail});
    addSpecial(mark, formats_->special);
  }

  void addSpecial(SpecialCharacter character, uint32_t format) {
    followsReturn_ = false;
    out_.units += static_cast<char16_t>(character);
    extend(out_.characters.stretches, out_.units.size(), format);
  }

  uint32_t characterFormat(bool isRightToLeft) {
    return characterFormats_.indexOf(characterModifiers(*style_, fonts_.indexOf(fontOf(*style_)), isRightToLeft));
  }
  uint32_t specialFormat() {
    Modifiers modifiers{characterFormats_.formats[formats_->plain]};
    modifiers.add(Property::isSpecial, 1);
    return characterFormats_.indexOf(std::move(modifiers.bytes));
  }

  FontTable& fonts_;
  const double textWidth_;
  WrittenText out_;
  FormatList characterFormats_, paragraphFormats_;
  std::unordered_map<const text::Style*, StyleFormats> formatsByStyle_;
  const text::Style* style_ = nullptr;       // of the run
  StyleFormats* formats_ = nullptr;          // of the style
  const text::Style* fieldStyle_ = nullptr;  // with which the field began that is open; nil when none is
  uint32_t fieldFormat_ = unknown;
  const StyleFormats* paragraphStyle_ = nullptr;
  uint64_t most_ = 0;  // units of one style
  bool startsParagraph_ = true, followsReturn_ = false;
};

}  // namespace

WrittenText writtenText(const StyledRuns& styled, FontTable& fonts, double textWidth) {
  return TextWriter(fonts, textWidth).write(styled);
}

}  // namespace standin::formats::doc
