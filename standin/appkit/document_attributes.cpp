// The document attributes, as rows: where the document holds each, and under which key it goes out and comes in.
#include "standin/appkit/document_attributes.hpp"

#include <algorithm>

#include "standin/appkit/color.hpp"
#include "standin/foundation/calendar.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/date.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/time_zone.hpp"

namespace standin::appkit {
namespace {

using formats::CalendarTime;
using formats::DocumentInformation;
using formats::PageSetup;
using formats::Properties;

struct LengthRow {
  NSString* const* key;
  std::optional<double> PageSetup::*member;
};
const LengthRow lengthRows[] = {
    {&NSLeftMarginDocumentAttribute, &PageSetup::leftMargin},
    {&NSRightMarginDocumentAttribute, &PageSetup::rightMargin},
    {&NSTopMarginDocumentAttribute, &PageSetup::topMargin},
    {&NSBottomMarginDocumentAttribute, &PageSetup::bottomMargin},
};

struct RealRow {
  NSString* const* key;
  std::optional<double> DocumentInformation::*member;
};
const RealRow realRows[] = {
    {&NSDefaultTabIntervalDocumentAttribute, &DocumentInformation::defaultTabInterval},
    {&NSHyphenationFactorDocumentAttribute, &DocumentInformation::hyphenationFactor},
};

struct IntegerRow {
  NSString* const* key;
  std::optional<int> DocumentInformation::*member;
};
const IntegerRow integerRows[] = {
    {&NSViewModeDocumentAttribute, &DocumentInformation::viewMode},
    {&NSViewZoomDocumentAttribute, &DocumentInformation::viewZoom},
    {&NSReadOnlyDocumentAttribute, &DocumentInformation::readOnly},
    {&NSCocoaVersionDocumentAttribute, &DocumentInformation::rtfVersion},
    {&NSPrefixSpacesDocumentAttribute, &DocumentInformation::prefixSpaces},
};

struct TextRow {
  NSString* const* key;
  std::u16string Properties::*member;
};
const TextRow textRows[] = {
    {&NSTitleDocumentAttribute, &Properties::title},         {&NSSubjectDocumentAttribute, &Properties::subject},
    {&NSAuthorDocumentAttribute, &Properties::author},       {&NSManagerDocumentAttribute, &Properties::manager},
    {&NSCompanyDocumentAttribute, &Properties::company},     {&NSCategoryDocumentAttribute, &Properties::category},
    {&NSCommentDocumentAttribute, &Properties::comment},     {&NSEditorDocumentAttribute, &Properties::editor},
    {&NSCopyrightDocumentAttribute, &Properties::copyright},
};

struct TimeRow {
  NSString* const* key;
  std::optional<CalendarTime> Properties::*member;
};
const TimeRow timeRows[] = {
    {&NSCreationTimeDocumentAttribute, &Properties::created},
    {&NSModificationTimeDocumentAttribute, &Properties::modified},
};

// The value of the key when it is of the class.
template <class Type>
Type* typed(NSDictionary* attributes, NSString* key) {
  NSObject* value = foundation::find(attributes, key);
  return NSObject::isKindOfClass(value, classOf<Type>()) ? static_cast<Type*>(value) : nullptr;
}

// Some programs write a date of zeros for none.
bool isDate(const CalendarTime& time) { return time.year > 0 && time.month > 0 && time.day > 0; }

// Documents write local times without a zone.
Owned<NSDate> dateOf(const CalendarTime& time) {
  const int64_t seconds =
      foundation::secondsSinceReference({time.year, time.month, time.day, time.hour, time.minute, time.second});
  const int64_t offset = foundation::secondsFromGMT(foundation::localTimeZone(), seconds);
  return foundation::newDate(static_cast<double>(seconds - offset));
}

CalendarTime timeOf(NSDate* date) {
  const int64_t seconds = foundation::wholeSeconds(stateOf<foundation::Date>(date).interval);
  const auto civil = foundation::civilTime(seconds + foundation::secondsFromGMT(foundation::localTimeZone(), seconds));
  const auto narrow = [](int64_t field) { return static_cast<int>(field); };
  return {narrow(std::clamp<int64_t>(civil.year, 1, 9999)),
          narrow(civil.month),
          narrow(civil.day),
          narrow(civil.hour),
          narrow(civil.minute),
          narrow(civil.second)};
}

// Keywords are a list, which documents write with commas between.
Owned<NSArray> keywordsOf(std::u16string_view text) {
  Owned<NSMutableArray> words = foundation::newMutableArray();
  while (!text.empty()) {
    const size_t end = std::min(text.find_first_of(u",;"), text.size());
    std::u16string_view word = text.substr(0, end);
    while (word.starts_with(u' ')) word.remove_prefix(1);
    while (word.ends_with(u' ')) word.remove_suffix(1);
    if (!word.empty()) foundation::append(words, foundation::newString(word));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

std::u16string joinedKeywords(NSArray* words) {
  std::u16string text;
  for (NSObject* word : foundation::arraySpan(words)) {
    if (!foundation::isString(word)) continue;
    if (!text.empty()) text += u", ";
    text += foundation::unitsOf(static_cast<NSString*>(word));
  }
  return text;
}

// Of other objects in the array nothing is known.
std::vector<std::string> namesIn(NSArray* array) {
  std::vector<std::string> names;
  for (NSObject* name : foundation::arraySpan(array)) {
    if (foundation::isString(name)) names.push_back(foundation::utf8Of(static_cast<NSString*>(name)));
  }
  return names;
}

// What HTML is to be written with.
void takeMarkup(NSDictionary* attributes, DocumentInformation& information) {
  if (NSString* name = typed<NSString>(attributes, NSTextEncodingNameDocumentAttribute))
    information.textEncodingName = foundation::utf8Of(name);
  if (NSArray* excluded = typed<NSArray>(attributes, NSExcludedElementsDocumentAttribute))
    information.excludedElements = namesIn(excluded);
}

// Both lengths or neither.
void addSize(NSMutableDictionary* attributes, NSString* key, const std::optional<double>& width,
             const std::optional<double>& height) {
  if (width && height) foundation::set(attributes, key, NSValue::valueWithSize(classOf<NSValue>(), NSSize{*width, *height}));
}

void takeSize(NSDictionary* attributes, NSString* key, std::optional<double>& width, std::optional<double>& height) {
  NSValue* value = typed<NSValue>(attributes, key);
  if (value == nullptr || foundation::isNumber(value)) return;
  const NSSize size = NSValue::sizeValue(value);
  width = size.width;
  height = size.height;
}

int limited(NSObject* number) {
  return static_cast<int>(std::clamp<int64_t>(foundation::integerOf(number), INT32_MIN, INT32_MAX));
}

void addProperties(NSMutableDictionary* attributes, const Properties& properties) {
  for (const TextRow& row : textRows) {
    const std::u16string_view text = properties.*row.member;
    if (!text.empty()) foundation::set(attributes, *row.key, foundation::newString(text));
  }
  for (const TimeRow& row : timeRows) {
    const auto& time = properties.*row.member;
    if (time && isDate(*time)) foundation::set(attributes, *row.key, dateOf(*time));
  }
  if (!properties.keywords.empty())
    foundation::set(attributes, NSKeywordsDocumentAttribute, keywordsOf(properties.keywords));
}

void takeProperties(NSDictionary* attributes, Properties& properties) {
  for (const TextRow& row : textRows) {
    if (NSString* text = typed<NSString>(attributes, *row.key)) properties.*row.member = foundation::unitsOf(text);
  }
  for (const TimeRow& row : timeRows) {
    if (NSDate* date = typed<NSDate>(attributes, *row.key)) properties.*row.member = timeOf(date);
  }
  NSString* keywords = typed<NSString>(attributes, NSKeywordsDocumentAttribute);
  properties.keywords = keywords != nullptr ? foundation::unitsOf(keywords)
                                            : joinedKeywords(typed<NSArray>(attributes, NSKeywordsDocumentAttribute));
}

}  // namespace

NSDictionary* documentAttributesOf(const DocumentInformation& document, NSString* type) {
  Owned<NSMutableDictionary> attributes = foundation::newMutableDictionary();
  const auto setNumber = [&](NSString* key, const auto& number) {
    if (number) foundation::set(attributes, key, foundation::newNumber(*number));
  };
  foundation::set(attributes, NSDocumentTypeDocumentAttribute, type);
  addSize(attributes, NSPaperSizeDocumentAttribute, document.page.paperWidth, document.page.paperHeight);
  addSize(attributes, NSViewSizeDocumentAttribute, document.viewWidth, document.viewHeight);
  for (const LengthRow& row : lengthRows) setNumber(*row.key, document.page.*row.member);
  for (const RealRow& row : realRows) setNumber(*row.key, document.*row.member);
  for (const IntegerRow& row : integerRows) setNumber(*row.key, document.*row.member);
  setNumber(NSCharacterEncodingDocumentAttribute, document.characterEncoding);
  if (!document.textEncodingName.empty())
    foundation::set(attributes, NSTextEncodingNameDocumentAttribute, foundation::newString(document.textEncodingName));
  if (document.background) foundation::set(attributes, NSBackgroundColorDocumentAttribute, newColor(*document.background));
  addProperties(attributes, document.properties);
  return attributes.autorelease();
}

DocumentInformation informationOf(NSDictionary* attributes) {
  DocumentInformation found;
  const auto number = [&](NSString* key) { return typed<NSNumber>(attributes, key); };
  takeSize(attributes, NSPaperSizeDocumentAttribute, found.page.paperWidth, found.page.paperHeight);
  takeSize(attributes, NSViewSizeDocumentAttribute, found.viewWidth, found.viewHeight);
  for (const LengthRow& row : lengthRows) {
    if (NSNumber* length = number(*row.key)) found.page.*row.member = foundation::doubleOf(length);
  }
  for (const RealRow& row : realRows) {
    if (NSNumber* real = number(*row.key)) found.*row.member = foundation::doubleOf(real);
  }
  for (const IntegerRow& row : integerRows) {
    if (NSNumber* integer = number(*row.key)) found.*row.member = limited(integer);
  }
  if (NSNumber* encoding = number(NSCharacterEncodingDocumentAttribute))
    found.characterEncoding = static_cast<uint64_t>(foundation::integerOf(encoding));
  if (NSColor* color = typed<NSColor>(attributes, NSBackgroundColorDocumentAttribute)) found.background = colorOf(color);
  takeProperties(attributes, found.properties);
  takeMarkup(attributes, found);
  return found;
}

}  // namespace standin::appkit
