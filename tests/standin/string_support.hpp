// What tests with strings share: making and reading them, and the exception that an action ends in.
#pragma once

#include <string>
#include <string_view>

#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/owned.h"

namespace string_support {

inline NSString* text(std::u16string_view units) {
  return NSString::stringWithCharacters(classOf<NSString>(), units.data(), units.size());
}

inline std::u16string units(NSString* string) {
  std::u16string units(NSString::length(string), 0);
  NSString::getCharacters(string, units.data());
  return units;
}

// "name: reason" of the platform exception, "" without one.
template <class Action>
std::string raised(Action&& action) {
  NSException* const exception = catchException(action);
  if (exception == nullptr) return "";
  return std::string(NSString::UTF8String(NSException::name(exception))) + ": " +
         NSString::UTF8String(NSException::reason(exception));
}

}  // namespace string_support
