// The document attributes, as rows: where the document holds each, and under which key it goes out.
#include "standin/appkit/document_attributes.hpp"

#include "standin/foundation/calendar.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/date.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/time_zone.hpp"

namespace standin::appkit {
namespace {

using formats::Document;
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
  std::optional<formats::CalendarTime> Properties::*member;
};
const TimeRow timeRows[] = {
    {&NSCreationTimeDocumentAttribute, &Properties::created},
    {&NSModificationTimeDocumentAttribute, &Properties::modified},
};

// Documents write local times without a zone.
Owned<NSDate> dateOf(const formats::CalendarTime& time) {
  const int64_t seconds =
      foundation::secondsSinceReference({time.year, time.month, time.day, time.hour, time.minute, time.second});
  const int64_t offset = foundation::secondsFromGMT(foundation::localTimeZone(), seconds);
  return foundation::newDate(static_cast<double>(seconds - offset));
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

}  // namespace

NSDictionary* documentAttributesOf(const Document& document, NSString* type) {
  Owned<NSMutableDictionary> attributes = foundation::newMutableDictionary();
  const auto set = [&](NSString* key, Owned<NSObject> value) { foundation::set(attributes, key, value); };
  set(NSDocumentTypeDocumentAttribute, retain<NSObject>(type));
  if (document.page.paperWidth && document.page.paperHeight) {
    const NSSize paper{*document.page.paperWidth, *document.page.paperHeight};
    set(NSPaperSizeDocumentAttribute, retain<NSObject>(NSValue::valueWithSize(classOf<NSValue>(), paper)));
  }
  for (const LengthRow& row : lengthRows) {
    if (const auto& length = document.page.*row.member) set(*row.key, foundation::newNumber(*length));
  }
  for (const TextRow& row : textRows) {
    const std::u16string& text = document.properties.*row.member;
    if (!text.empty()) set(*row.key, foundation::newString(std::u16string_view(text)));
  }
  for (const TimeRow& row : timeRows) {
    if (const auto& time = document.properties.*row.member) set(*row.key, dateOf(*time));
  }
  if (!document.properties.keywords.empty()) set(NSKeywordsDocumentAttribute, keywordsOf(document.properties.keywords));
  if (document.defaultTabInterval)
    set(NSDefaultTabIntervalDocumentAttribute, foundation::newNumber(*document.defaultTabInterval));
  if (document.viewMode) set(NSViewModeDocumentAttribute, foundation::newNumber(*document.viewMode));
  if (document.viewZoom) set(NSViewZoomDocumentAttribute, foundation::newNumber(*document.viewZoom));
  return attributes.autorelease();
}

}  // namespace standin::appkit
