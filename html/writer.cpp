// Opens and closes tags from one run to the next.
#include "html/writer.hpp"

#include <cmath>
#include <cstdint>

#include "html/color_palette.hpp"
#include "html/escape.hpp"
#include "html/state.hpp"
#include "html/text.hpp"

namespace html {

namespace {

// What the writer reads of a run. Everything is borrowed from the run's attributes; nil attributes have nothing.
struct RunStyle {
  NSObject* link;
  NSFont* font;
  bool underline;
  NSColor* color;

  explicit RunStyle(NSDictionary* attributes)
      : link(NSDictionary::objectForKey(attributes, NSLinkAttributeName)),
        font(static_cast<NSFont*>(NSDictionary::objectForKey(attributes, NSFontAttributeName))),
        underline(NSNumber::boolValue(NSDictionary::objectForKey(attributes, NSUnderlineStyleAttributeName)) != NO),
        color(static_cast<NSColor*>(NSDictionary::objectForKey(attributes, NSForegroundColorAttributeName))) {}
};

struct FontStyle {
  bool bold = false;
  bool italic = false;
  float size = defaultFontSize;
};

// A missing font has size 0 and no traits.
FontStyle styleOf(NSFont* font) {
  if (font == nullptr) return {false, false, 0.0F};
  NSFontManager* manager = NSFontManager::sharedFontManager(classOf<NSFontManager>());
  const NSFontTraitMask traits = NSFontManager::traitsOfFont(manager, font);
  return {(traits & NSBoldFontMask) != 0, (traits & NSItalicFontMask) != 0, static_cast<float>(NSFont::pointSize(font))};
}

class TagWriter {
 public:
  explicit TagWriter(std::u16string& output) : output_(output) {}

  // The tags between a run and the one before it.
  void change(const RunStyle& next, const RunStyle& last) {
    if (next.link != last.link) changeLink(next.link, last.link);
    if (next.font != last.font) changeFont(next.font, last.font);
    toggle(next.underline, last.underline, "<u>", "</u>");
    if (next.color != last.color) changeColor(next.color, last.color);
  }

  // The tags after the last run.
  void close(const RunStyle& last) {
    const FontStyle font = styleOf(last.font);
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

  void changeFont(NSFont* nextFont, NSFont* lastFont) {
    const FontStyle next = styleOf(nextFont);
    const FontStyle last = lastFont == nullptr ? FontStyle() : styleOf(lastFont);
    toggle(next.bold, last.bold, "<b>", "</b>");
    toggle(next.italic, last.italic, "<i>", "</i>");
    if (next.size == last.size) return;
    if (lastFont != nullptr) append("</font>");
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

void changeAttributes(NSDictionary* attributes, std::u16string& output) {
  if (cachedAttributes != nullptr && NSDictionary::isEqualToDictionary(attributes, cachedAttributes)) return;
  TagWriter(output).change(RunStyle(attributes), RunStyle(cachedAttributes));
  hold(cachedAttributes, retain(attributes));
}

}  // namespace

std::u16string write(NSAttributedString* source) {
  resetWriter();
  const Units units(NSAttributedString::string(source));
  const std::u16string_view text = units;
  std::u16string output;
  output.reserve(text.size());
  NSRange run{0, 0};
  for (std::size_t index = 0; index < text.size(); index = run.location + run.length) {
    NSDictionary* attributes = NSAttributedString::attributesAtIndex(source, index, &run);
    if (attributes == nullptr) break;
    changeAttributes(attributes, output);
    appendEscaped(text.substr(run.location, run.length), output);
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
