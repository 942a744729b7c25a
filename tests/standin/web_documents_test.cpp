// HTML, web archives and SimpleText as documents of attributed strings: what is asked for by the document attributes.
#include <gtest/gtest.h>

#include "standin/foundation/number.hpp"
#include "tests/standin/file_wrapper_support.hpp"

namespace {

using namespace file_wrapper_support;
using namespace std::string_literals;

NSDictionary* asked(NSString* type, std::initializer_list<std::pair<NSObject*, NSObject*>> more = {}) {
  Owned<NSMutableDictionary> attributes = newMutableDictionary(newDictionary(more));
  standin::foundation::set(attributes, NSDocumentTypeDocumentAttribute, type);
  return attributes.autorelease();
}

NSAttributedString* styled(std::string_view text) {
  return adopt(NSAttributedString::initWithString(alloc<NSAttributedString>(), ns(text))).autorelease();
}

std::string written(NSAttributedString* string, NSDictionary* attributes, NSError** error = nullptr) {
  return contentOf(NSAttributedString::dataFromRange(string, {0, NSAttributedString::length(string)}, attributes, error));
}

struct Opened {
  NSAttributedString* string = nullptr;
  NSDictionary* attributes = nullptr;

  std::string text() const { return string != nullptr ? utf8(NSAttributedString::string(string)) : "(nil)"; }
};

NSObject* attribute(const Opened& document, NSString* name, NSUInteger location) {
  return NSAttributedString::attributeAtIndex(document.string, name, location, nullptr);
}

Opened opened(std::string content, NSString* type = nullptr) {
  Opened document;
  NSDictionary* options = type != nullptr ? newDictionary({{NSDocumentTypeDocumentOption, type}}).autorelease() : nullptr;
  document.string =
      adopt(send<NSAttributedString*>(alloc<NSAttributedString>(),
                                      "initWithData:options:documentAttributes:error:", bytes(std::move(content)), options,
                                      &document.attributes, static_cast<NSError**>(nullptr)))
          .autorelease();
  return document;
}

TEST(WebDocuments, HtmlIsWrittenAsTheAttributesAsk) {
  const AutoreleasePool pool;
  const auto names = [](std::initializer_list<const char*> list) {
    Owned<NSMutableArray> array = newMutableArray();
    for (const char* name : list) standin::foundation::append(array, ns(name));
    return array.autorelease();
  };
  const auto number = [](long value) { return newNumber(value).autorelease(); };
  const struct {
    std::pair<NSObject*, NSObject*> entry;
    std::string expected;
  } rows[] = {
      {{NSTitleDocumentAttribute, ns("Über")}, "<title>Über</title>"},
      {{NSKeywordsDocumentAttribute, names({"a", "b c"})}, "<meta name=\"keywords\" content=\"a, b c\">"},
      {{NSExcludedElementsDocumentAttribute, names({"doctype", "html", "head", "body", "XML"})},
       "<p style=\"margin: 0pt 0pt 0pt 0pt; font: 12pt Helvetica\">Grü</p>\n"},
      {{NSExcludedElementsDocumentAttribute, names({})},
       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE html PUBLIC "
       "\"-//W3C//DTD XHTML 1.0 Transitional//EN\""},
      {{NSPrefixSpacesDocumentAttribute, number(3)}, "\n   <body>\n      <p class=\"p1\">Grü</p>\n   </body>\n"},
      {{NSCharacterEncodingDocumentAttribute, number(30)}, ">Gr\x9F<"},
      {{NSCharacterEncodingDocumentAttribute, number(1)}, "charset=US-ASCII\">"},
      {{NSTextEncodingNameDocumentAttribute, ns("iso-8859-1")}, ">Gr\xFC<"},
      {{NSTextEncodingNameDocumentAttribute, number(1)}, ">Grü<"},
  };
  for (const auto& row : rows) {
    const std::string html = written(styled("Grü"), asked(NSHTMLTextDocumentType, {row.entry}));
    EXPECT_NE(html.find(row.expected), html.npos) << row.expected << "\nis not in\n" << html;
  }
  for (const auto& [key, value] :
       std::initializer_list<std::pair<NSString*, NSObject*>>{{NSCharacterEncodingDocumentAttribute, number(12345)},
                                                              {NSTextEncodingNameDocumentAttribute, ns("no encoding")}}) {
    for (NSString* type : {NSHTMLTextDocumentType, NSWebArchiveTextDocumentType}) {
      NSError* error = nullptr;
      EXPECT_EQ(written(styled("x"), asked(type, {{key, value}}), &error), "(nil)");
      EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 512");
    }
  }
}

TEST(WebDocuments, HtmlAndArchivesKeepTextAndPictures) {
  const AutoreleasePool pool;
  const auto string = adopt(static_cast<NSMutableAttributedString*>(
      NSAttributedString::initWithString(alloc<NSMutableAttributedString>(), ns("first\nsecond \xE2\x80\xA8third"))));
  NSMutableAttributedString::addAttribute(string, NSLinkAttributeName, ns("http://example.org/"), {0, 5});
  const Opened picture =
      opened("<p><img src='data:image/gif;base64,R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAICRAEAOw=='>",
             NSHTMLTextDocumentType);
  ASSERT_EQ(picture.text(), "\xEF\xBF\xBC");
  NSMutableAttributedString::appendAttributedString(string, picture.string);
  for (NSString* type : {NSHTMLTextDocumentType, NSWebArchiveTextDocumentType}) {
    const Opened again = opened(written(string, asked(type, {{NSTitleDocumentAttribute, ns("T")}})));
    EXPECT_EQ(again.text(), "first\nsecond \xE2\x80\xA8third\xEF\xBF\xBC") << utf8(type);
    EXPECT_EQ(utf8(find(again.attributes, NSDocumentTypeDocumentAttribute)), utf8(type));
    EXPECT_EQ(utf8(find(again.attributes, NSTitleDocumentAttribute)), "T");
    ASSERT_NE(again.string, nullptr);
    EXPECT_NE(attribute(again, NSLinkAttributeName, 4), nullptr);
    EXPECT_EQ(attribute(again, NSLinkAttributeName, 5), nullptr);
    EXPECT_NE(attribute(again, NSAttachmentAttributeName, 19), nullptr);
  }
}

TEST(WebDocuments, SimpleTextIsMacRomanWithCarriageReturns) {
  const AutoreleasePool pool;
  EXPECT_EQ(opened("Gr\x9F\xA7\rtwo\r\nthree\n", NSMacSimpleTextDocumentType).text(), "Grüß\ntwo\nthree\n");
  EXPECT_EQ(opened("", NSMacSimpleTextDocumentType).text(), "");
  EXPECT_EQ(written(styled("Grü\n\ntwo\r\nthree\xE2\x80\xA8"
                           "four"),
                    asked(NSMacSimpleTextDocumentType)),
            "Gr\x9F\r\rtwo\rthree\rfour");
  NSError* error = nullptr;
  EXPECT_EQ(written(styled("漢"), asked(NSMacSimpleTextDocumentType), &error), "(nil)");
  EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 517");
}

}  // namespace
