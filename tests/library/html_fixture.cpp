// Attributed strings in a readable form.
#include "tests/library/html_fixture.hpp"

#include <sstream>

#include "html/attributes.hpp"

namespace html_test {

namespace {

std::string describe(NSDictionary* attributes) {
  auto* const font = static_cast<NSFont*>(NSDictionary::objectForKey(attributes, NSFontAttributeName));
  if (font == nullptr) return "-";
  std::ostringstream text;
  NSFontManager* const manager = NSFontManager::sharedFontManager(classOf<NSFontManager>());
  const NSFontTraitMask traits = NSFontManager::traitsOfFont(manager, font);
  text << NSFont::pointSize(font) << ((traits & NSBoldFontMask) != 0 ? "b" : "")
       << ((traits & NSItalicFontMask) != 0 ? "i" : "");
  NSObject* const underline = NSDictionary::objectForKey(attributes, NSUnderlineStyleAttributeName);
  EXPECT_NE(underline, nullptr) << "underlined or not, a run says so";
  if (NSNumber::boolValue(underline) != NO) text << "u";
  if (NSObject* const link = NSDictionary::objectForKey(attributes, NSLinkAttributeName)) {
    text << " link=" << utf8(unitsOf(static_cast<NSString*>(link)));
  }
  return text.str();
}

}  // namespace

std::string show(NSAttributedString* styled) {
  const std::u16string text = unitsOf(NSAttributedString::string(styled));
  std::string shown;
  NSRange run{0, 0};
  for (std::size_t index = 0; index < text.size(); index = run.location + run.length) {
    NSDictionary* const attributes = NSAttributedString::attributesAtIndex(styled, index, &run);
    shown += "{" + describe(attributes) + "}" + utf8(std::u16string_view(text).substr(run.location, run.length));
  }
  return shown;
}

Owned<NSAttributedString> read(std::u16string_view source) {
  return adopt(html::initWithHTML_ZKT(alloc<NSAttributedString>(), newString(source)));
}

void HtmlTest::forget() {
  html::resetStyle();
  hold(html::linkString, Owned<NSString>());
  hold(html::keywordDictionary, Owned<NSDictionary>());
  hold(html::blackColorString, Owned<NSString>());
  hold(html::cachedAttributes, Owned<NSDictionary>());
  hold(html::fontDirectiveStack, Owned<NSMutableArray>());
}

}  // namespace html_test
