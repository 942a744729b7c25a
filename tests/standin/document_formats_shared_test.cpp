// What the readers and writers of document formats share: XML, zip containers, styles, lists, units and colours.
#include <gtest/gtest.h>

#include <limits>

#include "standin/formats/calendar_times.hpp"
#include "standin/formats/colors.hpp"
#include "standin/formats/document_builder.hpp"
#include "standin/formats/formatting.hpp"
#include "standin/formats/list_markers.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/xml.hpp"
#include "standin/formats/zip.hpp"

namespace standin::formats {
namespace {

std::span<const uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

// Writes events as text: "<1 2='value'>text</1>".
struct Recorder final : xml::Handler {
  void startElement(const xml::Element& element) override {
    record += '<' + std::to_string(element.name);
    for (const auto& [name, value] : element.attributes)
      record += ' ' + std::to_string(name) + "='" + std::string(value) + '\'';
    record += '>';
  }
  void endElement(xml::NameNumber name) override { record += "</" + std::to_string(name) + '>'; }
  void characters(std::string_view text) override { record += text; }
  bool isFull() const override { return record.size() > most; }
  std::string record;
  size_t most = SIZE_MAX;
};

const xml::NameTable names({{"urn:one", "o"}, {"urn:other-one", "o"}},
                           {{"o:a", 1}, {"o:b", 2}, {"plain", 3}, {"o:v", 4}, {"v", 5}});

std::string recorded(std::string_view document, bool isGood = true) {
  Recorder recorder;
  EXPECT_EQ(xml::parse(bytesOf(document), names, recorder), isGood) << document.substr(0, 80);
  return recorder.record;
}

TEST(Xml, NamesAreKnownByNamespaceWhateverTheirPrefix) {
  EXPECT_EQ(recorded("<x:a xmlns:x='urn:one' x:v='1' v='2'><y:b xmlns:y='urn:other-one'/><x:unknown/><plain/></x:a>"),
            "<1 4='1' 5='2'><2></2><-1></-1><3></3></1>");
  EXPECT_EQ(recorded("<a xmlns='urn:nobody'><plain xmlns=''/></a>"), "<-1><3></3></-1>");
  EXPECT_EQ(recorded("<plain q:v='1'><q:plain/></plain>"), "<3><-1></-1></3>");
}

TEST(Xml, CharactersComeInUTF8FromAnyEncoding) {
  EXPECT_EQ(recorded("<?xml version='1.0' encoding='ISO-8859-1'?><plain>\xE9&amp;&#x20AC;</plain>"), "<3>é&€</3>");
  EXPECT_EQ(recorded(std::string_view("\xFF\xFE<\0p\0l\0a\0i\0n\0>\0\xE9\0<\0/\0p\0l\0a\0i\0n\0>\0", 34)), "<3>é</3>");
  EXPECT_EQ(recorded("<plain v='a&amp;b&lt;&#9;'><![CDATA[<&]]></plain>"), "<3 5='a&b<\t'><&</3>");
}

TEST(Xml, UTF16IsReadWhateverItsBytesLookLikeAndBoundedAsWell) {
  const auto utf16 = [](std::u16string_view text, bool isBig) {
    std::string bytes;
    for (const char16_t unit : text) {
      const auto high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
      bytes += isBig ? high : low;
      bytes += isBig ? low : high;
    }
    return bytes;
  };
  std::u16string text = u"\u4E3C\u3C4E", wide = u"<plain";
  for (int count = 0; count < 20'000; ++count) text += u"\u4E3D\u3D4E";
  for (int index = 0; index < 20'000; ++index) {
    wide += u" a";
    for (const char digit : std::to_string(index)) wide += static_cast<char16_t>(digit);
    wide += u"=''";
  }
  for (const bool isBig : {true, false}) {
    for (const char16_t* start : {u"\uFEFF", u"<?xml version='1.0' encoding='UTF-16'?>"}) {
      const std::string record = recorded(utf16(start + (u"<plain>" + text + u"</plain>"), isBig));
      EXPECT_TRUE(record.starts_with("<3>丼㱎丽㵎")) << isBig << record.substr(0, 40);
      EXPECT_EQ(record.size(), 3 * text.size() + 7);
      Recorder recorder;
      size_t fed = 0;
      const std::string document = utf16(start + (wide + u"/>"), isBig);
      const auto source = [&](char* to, int most) {
        const size_t count = document.copy(to, static_cast<size_t>(most), fed);
        fed += count;
        return static_cast<int>(count);
      };
      EXPECT_FALSE(xml::parse({source, document.size()}, names, recorder));
      EXPECT_LT(fed, document.size() / 4) << "refused before the parser compares all attributes";
    }
  }
}

TEST(Xml, EntitiesOfTheDocumentAreRefused) {
  EXPECT_EQ(recorded("<!DOCTYPE plain [<!ENTITY e 'eee'>]><plain>&e;</plain>", false).find("eee"), std::string::npos);
  EXPECT_EQ(
      recorded("<!DOCTYPE plain [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><plain v='&e;'>&e;</plain>", false).find("root"),
      std::string::npos);
  EXPECT_EQ(recorded("<!DOCTYPE plain SYSTEM 'file:///none.dtd'><plain>text</plain>"), "<3>text</3>");
}

TEST(Xml, DamageAndDepthAreErrors) {
  recorded("", false);
  recorded("text", false);
  recorded("<plain>", false);
  std::string deep;
  for (int level = 0; level < 100'000; ++level) deep += "<plain>";
  recorded(deep, false);
  std::string wide = "<plain";
  for (int index = 0; index < 100'000; ++index) wide += " a" + std::to_string(index) + "=''";
  recorded(wide + "/>", false);
  wide.resize(wide.find(" a900="));
  recorded("<plain>" + wide + "/></plain>");
  std::string manyWide;
  for (int index = 0; index < 100; ++index) manyWide += wide + "/>";
  recorded("<plain>" + manyWide + "</plain>", false);
  recorded("<plain><!-- ' = --><![CDATA[\" =]]></plain>");
  deep.resize(1'900 * 7);
  for (int level = 0; level < 1'900; ++level) deep += "</plain>";
  recorded(deep);
}

TEST(Xml, NamespacesHoldInsideTheElementThatDeclaresThem) {
  EXPECT_EQ(recorded("<x:a xmlns:x='urn:one'><x:b xmlns:x='urn:nobody'><x:a/></x:b><x:b x:v='1'/><y:b/></x:a>"),
            "<1><-1><-1></-1></-1><2 4='1'></2><-1></-1></1>");
  EXPECT_EQ(recorded("<a xmlns='urn:one' v='1'><plain xmlns='' xml:v='2'/><b/></a>"), "<1 5='1'><3></3><2></2></1>");
  const auto declaring = [](int count) {
    std::string document = "<plain";
    for (int index = 0; index < count; ++index) document += " xmlns:n" + std::to_string(index) + "='urn:one'";
    return document + "><n0:a/></plain>";
  };
  EXPECT_EQ(recorded(declaring(256)), "<3><1></1></3>");
  recorded(declaring(257), false);
}

TEST(Xml, BytesMayComeInPiecesOfAnyLengthAndEnd) {
  std::string text;
  for (int index = 0; index < 3'000; ++index) text += "é漢 ";
  const std::string document = "<plain v='" + text + "'>" + text + "<!--" + text + "--></plain>",
                    expected = "<3 5='" + text + "'>" + text + "</3>";
  const auto read = [&](size_t piece, size_t damagedAt, size_t mostAtOnce, bool isGood) {
    Recorder recorder;
    const auto source = [&, at = size_t{0}](char* to, int most) mutable {
      if (at >= damagedAt) return -1;
      const size_t count = document.copy(to, std::min(piece, static_cast<size_t>(most)), at);
      at += count;
      return static_cast<int>(count);
    };
    EXPECT_EQ(xml::parse({source, mostAtOnce}, names, recorder), isGood);
    return recorder.record;
  };
  for (const size_t piece : std::initializer_list<size_t>{1, 7, 1'000, 100'000})
    EXPECT_TRUE(read(piece, SIZE_MAX, document.size(), true) == expected) << piece;
  EXPECT_TRUE(expected.starts_with(read(1'000, 30'000, document.size(), false)));
  EXPECT_EQ(read(1'000, SIZE_MAX, 10'000, false), "");  // the tag is longer
}

TEST(Xml, AHandlerThatIsFullHearsNoMore) {
  Recorder recorder;
  recorder.most = 10'000;
  std::string document = "<plain>";
  for (int index = 0; index < 100'000; ++index) document += "text<plain/>";
  EXPECT_FALSE(xml::parse(bytesOf(document + "</plain>"), names, recorder));
  EXPECT_LT(recorder.record.size(), 30'000u);
}

TEST(Xml, EscapedTextReadsBack) {
  const std::u16string text = u"a<b>&\"'\t\n\r é\U0001F600\u0001\xD800z";
  std::string escaped = "<plain>";
  xml::appendEscaped(escaped, text);
  EXPECT_EQ(recorded(escaped + "</plain>"), "<3>a<b>&\"'\t\n\r é\U0001F600z</3>");
}

TEST(Zip, EntriesReadBack) {
  const auto bytes = zip::write({{"mimetype", "text", false}, {"folder/ü.xml", std::string(100'000, 'x')}, {"empty", ""}});
  ASSERT_TRUE(bytes);
  EXPECT_EQ(bytes->substr(30, 12), "mimetypetext");
  EXPECT_LT(bytes->size(), 2'000u);
  auto archive = zip::Archive::open(bytesOf(*bytes));
  ASSERT_TRUE(archive);
  EXPECT_EQ(archive->names(), (std::vector<std::string>{"mimetype", "folder/ü.xml", "empty"}));
  EXPECT_EQ(archive->read("folder/ü.xml"), std::string(100'000, 'x'));
  EXPECT_EQ(archive->read("empty"), "");
  EXPECT_FALSE(archive->read("missing"));
  EXPECT_FALSE(archive->contains("missing"));
}

TEST(Zip, EntriesOfAnySizeReadInPieces) {
  const auto inPieces = [](const std::string& container, size_t size) {
    auto archive = zip::Archive::open(bytesOf(container));
    auto reading = archive ? archive->readInPieces("a") : std::nullopt;
    std::string contents(size + 1, '\0');
    size_t at = 0;
    for (int count = 1; reading && count > 0; at += static_cast<size_t>(std::max(count, 0))) {
      count = (*reading)(contents.data() + at, static_cast<int>(std::min<size_t>(4'000, contents.size() - at)));
      if (count < 0) return std::string("damaged");
    }
    return contents.substr(0, at);
  };
  for (const size_t size :
       std::initializer_list<size_t>{0, 100'000, 20'000'000}) {  // the last is more than is inflated at once
    std::string contents(size, 'x');
    for (size_t at = 0; at < size; at += 997) contents[at] = static_cast<char>(at);
    std::string container = zip::write({{"a", contents}}).value();
    EXPECT_TRUE(inPieces(container, size) == contents) << size;
    if (size == 0) continue;
    container[container.size() / 2] = static_cast<char>(container[container.size() / 2] ^ 0x55);
    EXPECT_FALSE(inPieces(container, size) == contents) << size;
  }
  EXPECT_FALSE(zip::Archive::open(bytesOf(zip::write({{"a", "text"}}).value()))->readInPieces("b"));
  EXPECT_FALSE(zip::Archive::open(bytesOf(zip::write({{"a", "text"}}).value()))->read("a", 3));
}

TEST(Zip, DamageIsNoArchiveAndBombsEndAtTheBound) {
  EXPECT_FALSE(zip::Archive::open({}));
  EXPECT_FALSE(zip::Archive::open(bytesOf("PK\3\4 nonsense")));
  const auto bomb = zip::write({{"a", std::string(60 << 20, '\0')}, {"b", std::string(60 << 20, '\0')}, {"c", "c"}});
  ASSERT_TRUE(bomb);
  auto archive = zip::Archive::open(bytesOf(*bomb));
  ASSERT_TRUE(archive);
  EXPECT_TRUE(archive->read("a"));
  EXPECT_FALSE(archive->read("b"));
  EXPECT_TRUE(archive->readInPieces("b")) << "what is not kept may be more";
  auto damaged = *bomb;
  for (size_t at = 40; at < 4'000; at += 7) damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
  archive = zip::Archive::open(bytesOf(damaged));
  EXPECT_FALSE(archive && archive->read("a"));
}

TEST(Zip, APartInPiecesThatIsNotAsLongAsSaidIsDamaged) {
  const std::string whole = *zip::write({{"a", std::string(20 << 20, 'a')}});
  for (const int change : {-1, 0, 1}) {
    std::string container = whole;
    constexpr size_t sizeInDirectory = 24;
    const size_t place = container.rfind("PK\1\2") + sizeInDirectory;
    container[place] = static_cast<char>(container[place] + change);  // the lowest byte is 0
    if (change < 0) container[place + 2] = static_cast<char>(container[place + 2] - 1), container[place + 1] = '\xFF';
    auto archive = zip::Archive::open(bytesOf(container));
    ASSERT_TRUE(archive);
    auto read = archive->readInPieces("a");
    int last = read ? 1 : -1;
    for (std::vector<char> piece(1 << 20); last > 0;) last = (*read)(piece.data(), static_cast<int>(piece.size()));
    EXPECT_EQ(last, change == 0 ? 0 : -1) << change;
  }
}

TEST(StyleSheets, InheritAndEndCircles) {
  StyleSheet<std::string, CharacterFormatting> sheet;
  sheet.add("base", std::nullopt, {.font = "Courier", .size = 10.0, .bold = true});
  sheet.add("child", "base", {.size = 20.0, .bold = false});
  sheet.add("one", "two", {.font = "Times", .italic = true});
  sheet.add("two", "one", {.font = "Helvetica", .size = 7.0});
  sheet.add("lost", "missing", {.size = 3.0});
  const auto& child = sheet.resolve("child");
  EXPECT_EQ(child, (CharacterFormatting{.font = "Courier", .size = 20.0, .bold = false}));
  EXPECT_EQ(sheet.resolve("one"), (CharacterFormatting{.font = "Times", .size = 7.0, .italic = true}));
  EXPECT_EQ(sheet.resolve("lost").size, 3.0);
  EXPECT_EQ(sheet.resolve("unknown"), CharacterFormatting());
  const text::Style style = styleOf(child);
  EXPECT_EQ(style.font->name, "Courier");
  EXPECT_EQ(style.font->size, 20);
}

TEST(Lists, NumbersAsText) {
  EXPECT_EQ(numberText(NumberFormat::lowerRoman, 1994), u"mcmxciv");
  EXPECT_EQ(numberText(NumberFormat::upperLetter, 28), u"BB");
  EXPECT_EQ(numberText(NumberFormat::upperRoman, 4000), u"4000");
  EXPECT_EQ(numberText(NumberFormat::lowerLetter, 0), u"0");
  EXPECT_EQ(numberText(NumberFormat::decimalZero, 7), u"07");
  EXPECT_EQ(numberText(NumberFormat::ordinal, 11) + numberText(NumberFormat::ordinal, 22), u"11th22nd");
  EXPECT_LT(numberText(NumberFormat::lowerLetter, 2'000'000'000).size(), 1'000u);
}

TEST(Lists, LevelsCountAndStartAgain) {
  std::array<ListLevel, listLevels> levels;
  levels[0] = {NumberFormat::upperRoman, u"%1.", 3};
  levels[1] = {NumberFormat::lowerLetter, u"(%1.%2)", 1};
  levels[2] = {NumberFormat::bullet, u"•", 1};
  ListCounters counters;
  EXPECT_EQ(counters.next(levels, 0), u"III.");
  EXPECT_EQ(counters.next(levels, 1), u"(III.a)");
  EXPECT_EQ(counters.next(levels, 1), u"(III.b)");
  EXPECT_EQ(counters.next(levels, 2), u"•");
  EXPECT_EQ(counters.next(levels, 0), u"IV.");
  EXPECT_EQ(counters.next(levels, 1), u"(IV.a)");
  counters.restart(0, 10);
  EXPECT_EQ(counters.next(levels, 0), u"X.");
  EXPECT_EQ(counters.next(levels, 99), u"X.");
  EXPECT_EQ(ListCounters().next(levels, 1), u"(III.a)");
  levels[0] = {NumberFormat::decimal, u"%1", std::numeric_limits<int>::max()};
  ListCounters farthest;
  for (int item = 0; item < 3; ++item) EXPECT_EQ(farthest.next(levels, 0), u"2147483647");
}

TEST(Units, LengthsAndNumbers) {
  EXPECT_EQ(pointsOf("12pt"), 12);
  EXPECT_EQ(pointsOf("-1.5IN"), -108);
  EXPECT_NEAR(*pointsOf("2.54cm"), 72, 1e-9);
  EXPECT_EQ(pointsOf("4px"), 3);
  for (const char* wrong : {"", "pt", "12", "12em", "12 pt", "nanpt", "1e999pt"}) EXPECT_FALSE(pointsOf(wrong)) << wrong;
  std::string_view rest;
  EXPECT_EQ(numberOf("+2em", &rest), 2);
  EXPECT_EQ(rest, "em");
  EXPECT_EQ(textOf(0.5) + textOf(-0.0001) + textOf(100) + textOf(1.23456, 2), "0.501001.23");
  EXPECT_EQ(wholeParts(1e300, twipsPerPoint), 1'000'000);
  EXPECT_EQ(wholeParts(std::numeric_limits<double>::quiet_NaN(), 1), 0);
}

TEST(Colors, NamesAndNumbers) {
  EXPECT_EQ(colorNamed("#fff"), colorNamed("White"));
  EXPECT_EQ(colorNamed("FF8000"), colorOf(255, 128, 0));
  EXPECT_EQ(hexOf(*colorNamed("RebeccaPurple")), "663399");
  EXPECT_EQ(hexOf({text::ColorSpace::deviceCMYK, {0, 1, 1, 0}, 1}), "ff0000");
  for (const char* none : {"auto", "transparent", "#ggg", "#12345", "", "12345g"}) EXPECT_FALSE(colorNamed(none)) << none;
  EXPECT_EQ(highlightNumbered(7), highlightNamed("yellow"));
  EXPECT_FALSE(highlightNumbered(17));
}

TEST(CalendarTimes, AreReadAndWritten) {
  EXPECT_EQ(textOf(*calendarTimeOf("2004-05-06T07:08:09.123Z")), "2004-05-06T07:08:09");
  EXPECT_EQ(textOf(*calendarTimeOf("2004-05-06")), "2004-05-06T00:00:00");
  for (const char* wrong : {"", "2004", "2004-13-01", "2004-01-01T25:00", "0000-01-01"})
    EXPECT_FALSE(calendarTimeOf(wrong)) << wrong;
}

TEST(DocumentBuilder, EqualStylesAreOneRun) {
  DocumentBuilder builder;
  text::Style bold;
  bold.font = text::Font{"Times", "Times-Bold", text::boldTrait, 9, 12};
  const uint32_t first = builder.intern(text::Style()), second = builder.intern(bold);
  EXPECT_EQ(builder.intern(bold), second);
  builder.append(u"ab", first);
  builder.append(u'c', first);
  builder.appendUTF8("d\xC3\xA9\xF0\x9F\x98\x80\xFF", second);
  EXPECT_EQ(builder.text(), u"abcdé\U0001F600\xFFFD");
  ASSERT_EQ(builder.document.runs.size(), 2u);
  EXPECT_EQ(builder.document.runs[1].length, 5u);
  builder.removeLast(6);
  EXPECT_EQ(builder.text(), u"ab");
  ASSERT_EQ(builder.document.runs.size(), 1u);
  EXPECT_EQ(builder.document.runs[0].length, 2u);
}

}  // namespace
}  // namespace standin::formats
