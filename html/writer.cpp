// Opens and closes tags from one run to the next.
#include "html/writer.hpp"

#include <cmath>
#include <cstdint>

#include "html/color_palette.hpp"
#include "html/escape.hpp"
#include "html/run_style.hpp"
#include "html/text.hpp"

namespace html {

namespace {

class TagWriter {
 public:
  explicit TagWriter(std::u16string& output) : output_(output) {}

  // The tags between a run and the one before it.
  void change(const RunStyle& next, const RunStyle& last) {
    if (next.link != last.link) changeLink(next.link, last.link);
    if (next.font != last.font) changeFont(next, last);
    toggle(next.underline, last.underline, "<u>", "</u>");
    if (next.color != last.color) changeColor(next.color, last.color);
  }

  // The tags after the last run.
  void close(const RunStyle& last) {
    const FontStyle& font = last.fontStyle;
    if (last.link != nullptr) append("</a>");
    if (font.size != defaultFontSize || (last.color != nullptr && !isBlackText(colorText(last.color)))) append("</font>");
    if (last.underline) append("</u>");
    if (font.italic) append("</i>");
    if (font.bold) append("</b>");
  }

 private:
  void changeLink(NSObject* next, NSObject* last) {
    if (last != nullptr) append("</a>");
    if (next == nullptr) return;
    append("<a href=\"");
    output_ += Units(NSObject::description(next)).view();
    append("\">");
  }

  void changeFont(const RunStyle& nextRun, const RunStyle& lastRun) {
    const FontStyle& next = nextRun.fontStyle;
    const FontStyle last = lastRun.font == nullptr ? FontStyle() : lastRun.fontStyle;
    toggle(next.bold, last.bold, "<b>", "</b>");
    toggle(next.italic, last.italic, "<i>", "</i>");
    if (next.size == last.size) return;
    if (lastRun.font != nullptr) append("</font>");
    append("<font size=" + std::to_string(sizeNumber(next.size)) + ">");
  }

  void changeColor(NSColor* next, NSColor* last) {
    if (last != nullptr) append("</font>");
    if (next == nullptr) return;
    const std::string text = colorText(next);
    if (!isBlackText(text)) append("<font color=\"" + text + "\">");
  }

  void toggle(bool next, bool last, const char* opening, const char* closing) {
    if (next != last) append(next ? opening : closing);
  }

  // Point sizes lie this far above the size numbers of font tags, which are 32-bit; sizes beyond them have none.
  static int32_t sizeNumber(float size) {
    constexpr int32_t offset = 9;
    constexpr float limit = 2.0e9F;
    return std::abs(size) <= limit ? static_cast<int32_t>(size) - offset : INT32_MIN;
  }

  void append(std::string_view ascii) { output_.append(ascii.begin(), ascii.end()); }

  std::u16string& output_;
};

void resetWriter() {
  hold(cachedAttributes, Owned<NSDictionary>());
  if (fontDirectiveStack == nullptr) {
    hold(fontDirectiveStack, retain(NSMutableArray::array(classOf<NSMutableArray>())));
  } else {
    NSMutableArray::removeAllObjects(fontDirectiveStack);
  }
}

// Keeps what was read of the attributes in `cachedAttributes` beside them.
class RunWriter {
 public:
  explicit RunWriter(std::u16string& output) : output_(output) { resetWriter(); }

  void write(NSDictionary* attributes, std::u16string_view text) {
    if (attributes != cachedAttributes) change(attributes);
    appendEscaped(text, output_);
  }

 private:
  void change(NSDictionary* attributes) {
    const RunStyle& next = styles_.of(attributes);
    const bool canBeEqual = cachedAttributes != nullptr && next.canEqual(last_);
    if (canBeEqual && NSDictionary::isEqualToDictionary(attributes, cachedAttributes)) return;
    TagWriter(output_).change(next, last_);
    hold(cachedAttributes, retain(attributes));
    last_ = next;
  }

  std::u16string& output_;
  RunStyles styles_;
  RunStyle last_;
};

}  // namespace

std::u16string write(NSAttributedString* source) {
  const Units units(NSAttributedString::string(source));
  const std::u16string_view text = units;
  std::u16string output;
  output.reserve(text.size());
  RunWriter writer(output);
  NSRange run{0, 0};
  for (std::size_t index = 0; index < text.size(); index = run.location + run.length) {
    NSDictionary* attributes = NSAttributedString::attributesAtIndex(source, index, &run);
    if (attributes == nullptr) break;
    writer.write(attributes, text.substr(run.location, run.length));
  }
  output += closingTags();
  return output;
}

std::u16string closingTags() {
  std::u16string tags;
  TagWriter(tags).close(RunStyle(cachedAttributes));
  return tags;
}

}  // namespace html
