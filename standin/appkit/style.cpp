// Attribute dictionaries to styles and back: each attribute is read and written in one place.
#include "standin/appkit/style.hpp"

#include "standin/appkit/color.hpp"
#include "standin/appkit/font.hpp"
#include "standin/appkit/paragraph_style.hpp"
#include "standin/appkit/shadow.hpp"
#include "standin/appkit/text_attachment.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/url.hpp"

namespace standin::appkit {
namespace {

using text::Style;

// Attributes by the class of their values, each with the member of the style that it fills.
struct ColorRow {
  NSString* const* key;
  std::optional<text::Color> Style::*member;
};
const ColorRow colorRows[] = {
    {&NSForegroundColorAttributeName, &Style::foreground},
    {&NSBackgroundColorAttributeName, &Style::background},
    {&NSUnderlineColorAttributeName, &Style::underlineColor},
    {&NSStrikethroughColorAttributeName, &Style::strikethroughColor},
    {&NSStrokeColorAttributeName, &Style::strokeColor},
};
struct IntegerRow {
  NSString* const* key;
  int Style::*member;
};
const IntegerRow integerRows[] = {
    {&NSUnderlineStyleAttributeName, &Style::underline},
    {&NSStrikethroughStyleAttributeName, &Style::strikethrough},
    {&NSSuperscriptAttributeName, &Style::superscript},
};
struct RealRow {
  NSString* const* key;
  double Style::*member;
};
const RealRow realRows[] = {
    {&NSBaselineOffsetAttributeName, &Style::baselineOffset}, {&NSKernAttributeName, &Style::kern},
    {&NSExpansionAttributeName, &Style::expansion},           {&NSStrokeWidthAttributeName, &Style::strokeWidth},
    {&NSObliquenessAttributeName, &Style::obliqueness},
};

// The value of the key when it is of the class.
template <class Type>
Type* typed(NSDictionary* attributes, NSString* key) {
  NSObject* value = foundation::find(attributes, key);
  return NSObject::isKindOfClass(value, classOf<Type>()) ? static_cast<Type*>(value) : nullptr;
}

// A link is a URL, or a text that stands for one.
text::Link linkOf(NSDictionary* attributes) {
  NSString* target = typed<NSString>(attributes, NSLinkAttributeName);
  if (NSURL* url = typed<NSURL>(attributes, NSLinkAttributeName)) target = NSURL::absoluteString(url);
  return target != nullptr ? foundation::unitsOf(target) : std::u16string();
}

text::Link linkOf(NSDictionary* attributes, SharedLinks& links) {
  NSObject* const object = foundation::find(attributes, NSLinkAttributeName);
  if (object == nullptr) return {};
  const auto [entry, isNew] = links.targets.try_emplace(object);
  if (isNew) entry->second = linkOf(attributes);
  return entry->second;
}

// A text that is no URL stays a text.
Owned<NSObject> linkObject(const text::Link& target) {
  Owned<NSString> text = foundation::newString(std::u16string_view(target));
  if (Owned<NSURL> url = foundation::newURL(text)) return url;
  return text;
}

Owned<NSObject> linkObject(const text::Link& target, SharedLinks& links) {
  Owned<NSObject>& object = links.objects[target];
  if (!object) object = linkObject(target);
  return object;
}

}  // namespace

Style styleOf(NSDictionary* attributes) {
  SharedLinks links;
  return styleOf(attributes, links);
}

Style styleOf(NSDictionary* attributes, SharedLinks& links) {
  Style style;
  if (NSFont* font = typed<NSFont>(attributes, NSFontAttributeName)) style.font = fontOf(font);
  if (auto* paragraph = typed<NSParagraphStyle>(attributes, NSParagraphStyleAttributeName)) {
    style.paragraph = paragraphOf(paragraph);
  }
  for (const ColorRow& row : colorRows) {
    if (NSColor* color = typed<NSColor>(attributes, *row.key)) style.*row.member = colorOf(color);
  }
  for (const IntegerRow& row : integerRows) {
    style.*row.member = static_cast<int>(foundation::integerOf(foundation::find(attributes, *row.key)));
  }
  for (const RealRow& row : realRows) style.*row.member = foundation::doubleOf(foundation::find(attributes, *row.key));
  if (auto* ligature = typed<NSNumber>(attributes, NSLigatureAttributeName)) {
    style.ligature = static_cast<int>(foundation::integerOf(ligature));
  }
  style.link = linkOf(attributes, links);
  if (auto* shadow = typed<NSShadow>(attributes, NSShadowAttributeName)) style.shadow = shadowOf(shadow);
  if (auto* attachment = typed<NSTextAttachment>(attributes, NSAttachmentAttributeName)) {
    style.attachment = attachmentValue(attachment);
  }
  return style;
}

Owned<NSDictionary> attributesOf(const Style& style) {
  SharedLinks links;
  return attributesOf(style, links);
}

Owned<NSDictionary> attributesOf(const Style& style, SharedLinks& links) {
  Owned<NSMutableDictionary> attributes = foundation::newMutableDictionary();
  const auto set = [&](NSString* key, const Owned<NSObject>& value) { foundation::set(attributes, key, value); };
  if (style.font) set(NSFontAttributeName, fontObject(*style.font));
  if (style.paragraph != text::Paragraph()) set(NSParagraphStyleAttributeName, newParagraphStyle(style.paragraph));
  for (const ColorRow& row : colorRows) {
    if (const auto& color = style.*row.member) set(*row.key, newColor(*color));
  }
  for (const IntegerRow& row : integerRows) {
    if (const int number = style.*row.member; number != 0) set(*row.key, foundation::newNumber(number));
  }
  for (const RealRow& row : realRows) {
    if (const double number = style.*row.member; number != 0) set(*row.key, foundation::newNumber(number));
  }
  if (style.ligature) set(NSLigatureAttributeName, foundation::newNumber(*style.ligature));
  if (!style.link.empty()) set(NSLinkAttributeName, linkObject(style.link, links));
  if (style.shadow) set(NSShadowAttributeName, newShadow(*style.shadow));
  if (style.attachment != nullptr) {
    if (auto attachment = attachmentOf(*style.attachment)) set(NSAttachmentAttributeName, std::move(attachment));
  }
  return attributes;
}

}  // namespace standin::appkit
