// Documents by type: formats found from content, name and options, plain text in its encodings, document attributes written
// and read again, errors that say what can be read and written.
#include <gtest/gtest.h>

#include "standin/formats/signatures.hpp"
#include "standin/foundation/number.hpp"
#include "tests/standin/file_wrapper_support.hpp"

namespace {

using namespace file_wrapper_support;
using namespace std::string_literals;

struct Opened {
  std::string text = "(nil)";
  NSDictionary* attributes = nullptr;
  NSError* error = nullptr;

  NSObject* operator[](NSString* key) const { return find(attributes, key); }
};

Opened opened(NSAttributedString* made, NSDictionary* attributes, NSError* error) {
  const Owned<NSAttributedString> string = adopt(made);
  return {utf8(NSAttributedString::string(string)), attributes, error};
}

Opened fromFile(const std::string& path, NSDictionary* options = nullptr) {
  NSDictionary* attributes = nullptr;
  NSError* error = nullptr;
  auto* made = send<NSAttributedString*>(
      alloc<NSAttributedString>(), "initWithURL:options:documentAttributes:error:", url(path), options, &attributes, &error);
  return opened(made, attributes, error);
}

Opened fromData(std::string content, NSDictionary* options = nullptr) {
  NSDictionary* attributes = nullptr;
  NSError* error = nullptr;
  auto* made = send<NSAttributedString*>(alloc<NSAttributedString>(),
                                         "initWithData:options:documentAttributes:error:", bytes(std::move(content)),
                                         options, &attributes, &error);
  return opened(made, attributes, error);
}

NSDictionary* with(std::initializer_list<std::pair<NSObject*, NSObject*>> entries) {
  return newDictionary(entries).autorelease();
}
NSObject* number(long value) { return newNumber(value).autorelease(); }

NSAttributedString* styled(std::string_view text) {
  return adopt(NSAttributedString::initWithString(alloc<NSAttributedString>(), ns(text))).autorelease();
}

std::string written(NSAttributedString* string, NSDictionary* attributes, NSError** error = nullptr) {
  return contentOf(NSAttributedString::dataFromRange(string, {0, NSAttributedString::length(string)}, attributes, error));
}

std::string description(NSError* error) {
  return error != nullptr ? utf8(NSError::localizedDescription(error)) : "no error";
}

TEST(DocumentFormats, AreFoundFromTheContentThenFromTheName) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  const struct {
    const char *name, *content, *type, *text;
  } rows[] = {
      {"a.rtf", "{\\rtf1 rich}", "NSRTF", "rich"},
      {"b.txt", "\r\n{\\rtf1 rich}", "NSRTF", "rich"},
      {"c", "plain", "NSPlainText", "plain"},
      {"d.unknown", "one\r\ntwo\rthree\n", "NSPlainText", "one\r\ntwo\rthree\n"},
      {"empty.txt", "", "NSPlainText", ""},
  };
  for (const auto& row : rows) {
    const Opened document = fromFile(folder.file(row.name, row.content));
    EXPECT_EQ(document.text, row.text) << row.name;
    EXPECT_EQ(utf8(document[NSDocumentTypeDocumentAttribute]), row.type) << row.name;
    EXPECT_EQ(codeOf(document.error), "no error") << row.name;
  }
  EXPECT_EQ(fromFile(folder.file("g.RTF", "no rtf")).text, "(nil)");
  EXPECT_EQ(
      fromFile(folder.file("h.rtf", "{\\rtf1 x}"), with({{NSDocumentTypeDocumentOption, NSPlainTextDocumentType}})).text,
      "{\\rtf1 x}");
}

TEST(DocumentFormats, WhatCannotBeReadSaysWhatCan) {
  const AutoreleasePool pool;
  const TemporaryFolder folder;
  const struct {
    const char *name, *content, *code, *says;
  } rows[] = {
      {"c", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", "NSCocoaErrorDomain 259", "NSDocFormat"},
      {"d.rtf", "{\\rtx}", "NSCocoaErrorDomain 259", "NSRTF"},
      {"e/missing", nullptr, "NSCocoaErrorDomain 260", "missing"},
      {"package/empty", "", "NSCocoaErrorDomain 259", "NSRTFD"},
  };
  for (const auto& row : rows) {
    std::string path = folder / row.name;
    if (row.content != nullptr) folder.file(row.name, row.content);
    if (row.name == "package/empty"s) path = folder / "package";
    const Opened document = fromFile(path);
    EXPECT_EQ(document.text, "(nil)") << row.name;
    EXPECT_EQ(document.attributes, nullptr) << row.name;
    EXPECT_EQ(codeOf(document.error), row.code) << row.name;
    EXPECT_NE(description(document.error).find(row.says), std::string::npos) << description(document.error);
  }
  const Opened unknown = fromData("x", with({{NSDocumentTypeDocumentOption, ns("NSTicket")}}));
  EXPECT_EQ(description(unknown.error),
            "Documents of type NSTicket cannot be read. These can be read: NSRTF, NSRTFD, NSWebArchive, NSWordML, NSHTML, "
            "NSDocFormat, NSOfficeOpenXML, NSOpenDocument, NSMacSimpleText and NSPlainText.");
  NSError* error = nullptr;
  auto* remote = send<NSAttributedString*>(alloc<NSAttributedString>(), "initWithURL:options:documentAttributes:error:",
                                           NSURL::URLWithString(classOf<NSURL>(), ns("http://example.org/a.rtf")), nullptr,
                                           nullptr, &error);
  EXPECT_EQ(remote, nullptr);
  EXPECT_EQ(codeOf(error), "NSCocoaErrorDomain 262");
}

TEST(DocumentFormats, PlainTextIsReadInTheEncodingThatItIsIn) {
  const AutoreleasePool pool;
  const struct {
    std::string content;
    long asked;  // 0: none
    std::string text;
    int64_t encoding;
  } rows[] = {
      {"Gr\xC3\xBC\xC3\x9F", 0, "Grüß", 4},
      {"\xEF\xBB\xBFGr\xC3\xBC\xC3\x9F", 0, "Grüß", 4},
      {"Gr\x9F\xA7", 0, "Grüß", 30},
      {"Gr\xFC\xDF", 5, "Grüß", 5},
      {"\xFE\xFF\0A\0\xFC"s, 5, "Aü", 10},
      {"\xFF\xFE\x3D\xD8\x00\xDE"s, 0, "😀", 10},
      {"\xFF\xFE\0\0A\0\0\0"s, 0, "A", 0x8C000100},
      {"\xFF\xFE\0\0A\0\0\0"s, 10, "\0A\0"s, 10},
      {"\xFF\xFEodd"s, 0, "ˇ˛odd", 30},
      {"T\0h\0e\0 \0w\0i\0d\0t\0h\0 \0t\0e\0l\0l\0s\0.\0"s, 0, "The width tells.", 0x94000100},
      {"\xDD\xF2\xEE \xEE\xE1\xFB\xF7\xED\xFB\xE9 \xF0\xF3\xF1\xF1\xEA\xE8\xE9 \xF2\xE5\xEA\xF1\xF2, \xE8 \xEE\xED \xED\xE5 "
       "\xE3\xEE\xE2\xEE\xF0\xE8\xF2, \xE2 \xEA\xE0\xEA\xEE\xE9 \xEA\xEE\xE4\xE8\xF0\xEE\xE2\xEA\xE5 \xEE\xED \xE1\xFB\xEB "
       "\xE7\xE0\xEF\xE8\xF1\xE0\xED \xED\xE0 \xE4\xE8\xF1\xEA.",
       0, "Это обычный русский текст, и он не говорит, в какой кодировке он был записан на диск.", 11},
  };
  for (const auto& row : rows) {
    NSDictionary* options = row.asked != 0 ? with({{NSCharacterEncodingDocumentOption, number(row.asked)}}) : nullptr;
    const Opened document = fromData(row.content, options);
    EXPECT_EQ(document.text, row.text);
    EXPECT_EQ(integerOf(document[NSCharacterEncodingDocumentAttribute]), row.encoding) << row.text;
  }
  EXPECT_EQ(codeOf(fromData("\x80", with({{NSCharacterEncodingDocumentOption, number(1)}})).error),
            "NSCocoaErrorDomain 261");
}

TEST(DocumentFormats, TextIsWrittenInTheTypeAndTheEncodingThatAreAskedFor) {
  const AutoreleasePool pool;
  const auto plainIn = [](long encoding) {
    return with({{NSDocumentTypeDocumentAttribute, NSPlainTextDocumentType},
                 {NSCharacterEncodingDocumentAttribute, number(encoding)}});
  };
  EXPECT_EQ(written(styled("Grüß\r\n"), with({{NSDocumentTypeDocumentAttribute, NSPlainTextDocumentType}})), "Grüß\r\n");
  EXPECT_EQ(written(styled("Grü"), plainIn(30)), "Gr\x9F");
  EXPECT_EQ(written(styled("ü"), plainIn(10)), "\xFF\xFE\xFC\0"s);
  const struct {
    NSDictionary* attributes;
    const char *code, *says;
  } refused[] = {
      {plainIn(1), "NSCocoaErrorDomain 517", "The text has characters that the encoding lacks."},
      {plainIn(12345), "NSCocoaErrorDomain 517", "encoding"},
      {nullptr, "NSCocoaErrorDomain 66062",
       "No document type is given. These can be written: NSRTF, NSRTFD, NSWebArchive, NSWordML, NSHTML, NSDocFormat, "
       "NSOfficeOpenXML, NSOpenDocument, NSMacSimpleText and NSPlainText."},
      {with({{NSDocumentTypeDocumentAttribute, ns("NSTicket")}}), "NSCocoaErrorDomain 66062",
       "Documents of type NSTicket cannot be written."},
  };
  for (const auto& row : refused) {
    NSError* error = nullptr;
    EXPECT_EQ(written(styled("Grü"), row.attributes, &error), "(nil)");
    EXPECT_EQ(codeOf(error), row.code);
    EXPECT_NE(description(error).find(row.says), std::string::npos) << description(error);
    error = nullptr;
    EXPECT_EQ(NSAttributedString::fileWrapperFromRange(styled("Grü"), {0, 3}, row.attributes, &error), nullptr);
    EXPECT_EQ(codeOf(error), row.code);
  }
  NSFileWrapper* file = NSAttributedString::fileWrapperFromRange(
      styled("plain"), {1, 3}, with({{NSDocumentTypeDocumentAttribute, NSPlainTextDocumentType}}), nullptr);
  EXPECT_EQ(contentOf(NSFileWrapper::regularFileContents(file)), "lai");
  EXPECT_EQ(raised([&] { written(nullptr, nullptr); }), "");
  EXPECT_NE(raised([] { NSAttributedString::dataFromRange(styled("x"), {1, 1}, nullptr, nullptr); }), "");
}

TEST(DocumentFormats, DocumentAttributesComeBackFromRichText) {
  const AutoreleasePool pool;
  const LocalZone zone("Europe/Berlin");
  NSObject* size = NSValue::valueWithSize(classOf<NSValue>(), NSSize{595.3, 841.9});
  NSDate* summer = NSDate::dateWithTimeIntervalSinceReferenceDate(classOf<NSDate>(), 394111222);
  NSDictionary* attributes = with({
      {NSPaperSizeDocumentAttribute, size},
      {NSViewSizeDocumentAttribute, NSValue::valueWithSize(classOf<NSValue>(), NSSize{400, 300})},
      {NSLeftMarginDocumentAttribute, number(72)},
      {NSBottomMarginDocumentAttribute, newNumber(36.5).autorelease()},
      {NSDefaultTabIntervalDocumentAttribute, number(28)},
      {NSHyphenationFactorDocumentAttribute, newNumber(0.5).autorelease()},
      {NSViewModeDocumentAttribute, number(1)},
      {NSViewZoomDocumentAttribute, number(150)},
      {NSReadOnlyDocumentAttribute, number(1)},
      {NSTitleDocumentAttribute, ns("Über {alles} \\ 漢字")},
      {NSAuthorDocumentAttribute, ns("A. Nother")},
      {NSCompanyDocumentAttribute, ns("& Sons")},
      {NSKeywordsDocumentAttribute, newArray({ns("one"), ns("two words")}).autorelease()},
      {NSCreationTimeDocumentAttribute, summer},
  });
  for (NSString* type : {NSRTFTextDocumentType, NSRTFDTextDocumentType}) {
    NSMutableDictionary* asked = newMutableDictionary(attributes).autorelease();
    standin::foundation::set(asked, NSDocumentTypeDocumentAttribute, type);
    const Opened again = fromData(written(styled("text"), asked));
    EXPECT_EQ(again.text, "text");
    EXPECT_EQ(utf8(again[NSDocumentTypeDocumentAttribute]), utf8(type));
    forEachEntry(attributes, [&](NSObject* key, NSObject* value) {
      EXPECT_EQ(describe(again[static_cast<NSString*>(key)]), describe(value)) << utf8(key);
    });
  }
  // Keywords in one string are a list all the same.
  NSDictionary* words =
      with({{NSDocumentTypeDocumentAttribute, NSRTFTextDocumentType}, {NSKeywordsDocumentAttribute, ns("one, two words")}});
  EXPECT_EQ(describe(fromData(written(styled("text"), words))[NSKeywordsDocumentAttribute]),
            describe(NSDictionary::objectForKey(attributes, NSKeywordsDocumentAttribute)));
  NSDictionary* nonsense = with({{NSDocumentTypeDocumentAttribute, NSRTFTextDocumentType},
                                 {NSTitleDocumentAttribute, number(1)},
                                 {NSLeftMarginDocumentAttribute, ns("wide")},
                                 {NSRightMarginDocumentAttribute, newNumber(1e300).autorelease()}});
  EXPECT_EQ(fromData(written(styled("text"), nonsense)).text, "text");
}

TEST(DocumentFormats, SignaturesTellTheFormatsApart) {
  using namespace standin::formats;
  const struct {
    std::string content;
    bool (*is)(std::string_view);
  } rows[] = {
      {"bplist00 ... WebMainResource", looksLikeWebArchive},
      {"<?xml version=\"1.0\"?>\n<?mso-application progid=\"Word.Document\"?>", looksLikeWordML},
      {"PK\3\4 [Content_Types].xml word/document.xml", looksLikeOfficeOpenXML},
      {"PK\3\4"s + std::string(26, '\0') + "mimetypeapplication/vnd.oasis.opendocument.textPK", looksLikeOpenDocument},
      {"\xEF\xBB\xBF \n<!DOCTYPE html>", looksLikeHTML},
      {"<?xml version=\"1.0\"?><html xmlns=\"\">", looksLikeHTML},
  };
  for (const auto& row : rows) {
    for (const auto& other : rows) {
      EXPECT_EQ(row.is(other.content), row.is == other.is) << other.content;
      EXPECT_FALSE(row.is(other.content.substr(0, 3))) << other.content;
    }
  }
}

}  // namespace
