// Messages that read numbers out of a string or change its case.
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "standin/foundation/string_classes.hpp"

namespace standin::foundation {
namespace {

// The UTF-8 text from the first character that is no space.
std::string trimmed(NSString* self) {
  std::string text = utf8Of(self);
  return text.erase(0, std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

// The decimal number at the start, 0 without one; numbers beyond the type's limits answer the limit.
template <class Integer>
Integer integerAtStart(NSString* self) {
  const std::string text = trimmed(self);
  const char* start = text.c_str() + (text.starts_with('+') ? 1 : 0);
  Integer value = 0;
  const auto result = std::from_chars(start, text.c_str() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  return *start == '-' ? std::numeric_limits<Integer>::min() : std::numeric_limits<Integer>::max();
}

int intValue(NSString* self) { return integerAtStart<int>(self); }
NSInteger integerValue(NSString* self) { return integerAtStart<NSInteger>(self); }
long long longLongValue(NSString* self) { return integerAtStart<long long>(self); }

// A point is a point in every locale; hexadecimal and words for numbers are no numbers here.
double doubleValue(NSString* self) {
  const std::string text = trimmed(self);
  const char* start = text.c_str() + (text.starts_with('+') ? 1 : 0);
  const char* digits = start + (*start == '-' ? 1 : 0);
  double value = 0;
  if ((*digits < '0' || *digits > '9') && *digits != '.') return 0;
  const auto result = std::from_chars(start, text.c_str() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) return std::strtod(start, nullptr);
  return value;
}
float floatValue(NSString* self) { return static_cast<float>(doubleValue(self)); }

// True for Y, y, T, t, or a digit other than zero after sign and zeros.
BOOL boolValue(NSString* self) {
  const std::string text = trimmed(self);
  size_t at = text.starts_with('+') || text.starts_with('-') ? 1 : 0;
  at = std::min(text.find_first_not_of('0', at), text.size());
  const char first = text.c_str()[at];
  return (first >= '1' && first <= '9') || (first != 0 && std::string_view("YyTt").find(first) != std::string_view::npos)
             ? YES
             : NO;
}

template <class Change>
NSString* changed(NSString* self, Change&& change) {
  const std::u16string units = unitsOf(self);
  icu::UnicodeString text(units.data(), static_cast<int32_t>(units.size()));
  change(text);
  return answer(text::Text::utf16({text.getBuffer(), static_cast<size_t>(text.length())}));
}

NSString* uppercaseString(NSString* self) {
  return changed(self, [](icu::UnicodeString& text) { text.toUpper(icu::Locale::getRoot()); });
}
NSString* lowercaseString(NSString* self) {
  return changed(self, [](icu::UnicodeString& text) { text.toLower(icu::Locale::getRoot()); });
}
NSString* capitalizedString(NSString* self) {
  return changed(self, [](icu::UnicodeString& text) { text.toTitle(nullptr, icu::Locale::getRoot()); });
}

[[maybe_unused]] const Category values = Category("NSString")
                                             .method<intValue>("intValue")
                                             .method<integerValue>("integerValue")
                                             .method<longLongValue>("longLongValue")
                                             .method<doubleValue>("doubleValue")
                                             .method<floatValue>("floatValue")
                                             .method<boolValue>("boolValue")
                                             .method<uppercaseString>("uppercaseString")
                                             .method<lowercaseString>("lowercaseString")
                                             .method<capitalizedString>("capitalizedString");

}  // namespace
}  // namespace standin::foundation
