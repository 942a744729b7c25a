// What each tag does.
#include "html/tags.hpp"

#include <array>
#include <cstdio>
#include <string>

#include "html/attributes.hpp"
#include "html/text.hpp"

namespace html {

namespace {

using Tag = std::u16string_view;

// Point sizes lie this far above the size numbers of font tags.
constexpr double sizeOffset = 9.0;

// The text of the first quoted value, or else everything after the first equals sign, or else nil.
Owned<NSString> linkTarget(Tag tag) {
  if (const std::size_t quote = tag.find(u'"'); quote != Tag::npos) {
    const Tag rest = tag.substr(quote + 1);
    const std::size_t closing = rest.find(u'"');
    if (closing != Tag::npos) return newString(rest.substr(0, closing));
    return retain(NSString::substringToIndex(newString(rest), NSNotFound));
  }
  const std::size_t equals = tag.find(u'=');
  return equals == Tag::npos ? nullptr : newString(tag.substr(equals + 1));
}

void openLink(Tag tag, StyledText&) { hold(linkString, linkTarget(tag)); }
void closeLink(Tag, StyledText&) { hold(linkString, Owned<NSString>()); }

template <NSFontTraitMask Trait, bool On>
void changeTrait(Tag, StyledText&) {
  setTrait(Trait, On);
}

template <bool On>
void changeUnderline(Tag, StyledText&) {
  underlineFlag = On;
}

void breakParagraph(Tag, StyledText& text) { text.append(u"\n\n"); }
void breakLine(Tag, StyledText& text) { text.append(u"\n"); }
void closeFont(Tag, StyledText&) { fontsize = defaultFontSize; }

// The tag up to the first character that no size number is written with.
std::string asciiPrefix(Tag tag) {
  std::string prefix;
  for (const char16_t unit : tag) {
    if (unit == 0 || unit >= 0x80) break;
    prefix.push_back(static_cast<char>(unit));
  }
  return prefix;
}

void changeSize(Tag tag, StyledText&) {
  const std::string text = asciiPrefix(tag);
  float number = 0.0F;
  if (std::sscanf(text.c_str(), "font size = +%f", &number) == 1) {
    fontsize = static_cast<float>(fontsize + (number + sizeOffset));
  } else if (std::sscanf(text.c_str(), "font size = %f", &number) == 1) {
    fontsize = static_cast<float>(number + sizeOffset);
  }
}

enum class Match { whole, beginning };

struct TagRow {
  Match match;
  Tag text;
  void (*act)(Tag tag, StyledText& text);
};

// The first row that fits decides.
constexpr TagRow rows[] = {
    {Match::beginning, u"a ", openLink},
    {Match::whole, u"/a", closeLink},
    {Match::whole, u"b", changeTrait<NSBoldFontMask, true>},
    {Match::whole, u"/b", changeTrait<NSBoldFontMask, false>},
    {Match::whole, u"i", changeTrait<NSItalicFontMask, true>},
    {Match::whole, u"/i", changeTrait<NSItalicFontMask, false>},
    {Match::whole, u"u", changeUnderline<true>},
    {Match::whole, u"/u", changeUnderline<false>},
    {Match::whole, u"p", breakParagraph},
    {Match::whole, u"br", breakLine},
    {Match::whole, u"/font", closeFont},
    {Match::beginning, u"font size=", changeSize},
    {Match::beginning, u"font size =", changeSize},
};

// Whether any row begins with the unit: most tags of ordinary pages fit none.
constexpr auto beginsRow = [] {
  std::array<bool, 0x80> begins{};
  for (const TagRow& row : rows) begins[row.text.front()] = true;
  return begins;
}();

bool fits(const TagRow& row, Tag tag) {
  if (tag.front() != row.text.front()) return false;
  return row.match == Match::whole ? tag == row.text : tag.starts_with(row.text);
}

}  // namespace

void actOnTag(Tag tag, StyledText& text) {
  if (tag.empty() || tag.front() >= beginsRow.size() || !beginsRow[tag.front()]) return;
  for (const TagRow& row : rows) {
    if (fits(row, tag)) return row.act(tag, text);
  }
}

}  // namespace html
