// Attributed strings in a readable form, for the tests of the HTML dialect.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "html/messages.hpp"
#include "html/state.hpp"
#include "html/text.hpp"
#include "platform/guard.h"

namespace html_test {

using html::hold;
using html::newString;

inline std::u16string unitsOf(NSString* string) { return std::u16string(html::Units(string).view()); }

inline std::string utf8(std::u16string_view units) {
  const Owned<NSString> string = newString(units);
  const char* bytes = NSString::UTF8String(string);
  return bytes == nullptr ? "not UTF-8" : bytes;
}

// Each run as "{size traits link}text": "{12}plain{14bi}bold italic{12u link=x}underlined link{-}without attributes".
std::string show(NSAttributedString* styled);

// What reading the source gives, with the reader's state as it happens to be.
Owned<NSAttributedString> read(std::u16string_view source);

// Starts and ends with nothing kept of earlier documents.
class HtmlTest : public testing::Test {
 protected:
  HtmlTest() { forget(); }
  ~HtmlTest() override { forget(); }

  static void forget();
  static void fillTables() { html::didLoad(classOf<NSAttributedString>()); }

 private:
  AutoreleasePool pool_;
};

}  // namespace html_test
