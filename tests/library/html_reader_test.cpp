// The HTML dialect as it is read, oddities included.
#include "tests/library/html_fixture.hpp"

namespace {

using namespace html_test;

class HtmlReader : public HtmlTest {};

struct Case {
  std::u16string_view source;
  std::string expected;
};

void expectReadings(std::initializer_list<Case> cases) {
  for (const auto& [source, expected] : cases) {
    hold(html::linkString, Owned<NSString>());
    EXPECT_EQ(show(read(source)), expected) << utf8(source);
  }
}

TEST_F(HtmlReader, TextAndWhiteSpace) {
  expectReadings({
      {u"Hello", "{12}Hello "},
      {u"", ""},
      {u" \t\r\n ", ""},
      {u"  a \r\n\t b\vc\fd ", "{12}a b c d "},
      {u"a\u00A0\u1680b\u2003c\u3000d\u2028e\u2029f\u0085g\u202Fh", "{12}a b c d e f g h "},
      {u"a\u200Bb\uFEFFc", "{12}a\u200Bb\uFEFFc "},
      {u"a > b >>", "{12}a > b >> "},
      {u"caf\u00E9 \U0001F600", "{12}café 😀 "},
  });
}

std::u16string repeated(std::u16string_view piece, std::size_t units) {
  std::u16string text;
  while (text.size() < units) text += piece;
  return text;
}

// Around the length of the blocks that are looked at in one go.
TEST_F(HtmlReader, WhiteSpaceWhereverItStands) {
  for (const std::u16string_view space : {u" ", u"  ", u"\n", u" \t ", u"\u2003", u"\u00A0 "}) {
    for (std::size_t place = 1; place <= 40; ++place) {
      for (const std::u16string_view rest : {u"\u00E9", u"y", u"y z"}) {
        const std::u16string head(place, u'x'), tail = repeated(rest, 41 - place);
        const std::u16string source = head + std::u16string(space) + tail + std::u16string(space);
        ASSERT_EQ(show(read(source)), "{12}" + utf8(head + u" " + tail + u" ")) << utf8(source);
      }
    }
  }
}

TEST_F(HtmlReader, Styles) {
  expectReadings({
      {u"Hello <b>World</b> again", "{12}Hello {12b}World{12}again "},
      {u"<i><u>a</u>b</i>c", "{12iu}a{12i}b{12}c "},
      {u"<b><i>a</b>b</i>c", "{12bi}a{12i}b{12}c "},
      {u"</b></i></u></a></font>a", "{12}a "},
      {u"<b><b>a</b>b", "{12b}a{12}b "},
      {u"<B>a</B><strong>b</strong><em>c</em><b class=x>d", "{12}abcd "},
      {u"a<br>b<p>c", "{12}a{-}\n{12}b{-}\n\n{12}c "},
      {u"<br>", "{-}\n"},
      {u"a<br/>b<br />c</p>d<BR>e", "{12}abcde "},
      {u"<b>unclosed", "{12b}unclosed "},
  });
}

TEST_F(HtmlReader, TagsThatAreNotWhole) {
  expectReadings({
      {u"<<b>>x", "{12b}x "},
      {u"< b>x", "{12b}x "},
      {u"<b >x", "{12}x "},
      {u"<>x<   >y", "{12}xy "},
      {u"x <b", "{12}x "},
      {u"x <", "{12}x "},
      {u"<b <i>x", "{12}x "},
      {u"<\nb\n>x", "{12}x "},
      {u"<<", ""},
      {u">", "{12}> "},
  });
}

TEST_F(HtmlReader, Links) {
  expectReadings({
      {u"<a href=\"u\">x</a>y", "{12 link=u}x{12}y "},
      {u"<a title=\"t\" href=\"u\">x</a>", "{12 link=t}x"},
      {u"<a href='u v'>x</a>", "{12 link='u v'}x"},
      {u"<a href=u=v>x</a>", "{12 link=u=v}x"},
      {u"<a href=\"\">x</a>", "{12 link=}x"},
      {u"<a name>x</a>", "{12}x"},
      {u"<a>x</a>", "{12}x"},
      {u"<A href=u>x</A>", "{12}x"},
      {u"<a href=u>x<b>y</b><a name>z", "{12 link=u}x{12b link=u}y{12}z "},
      {u"<a href=u>x<br>y", "{12 link=u}x{-}\n{12 link=u}y "},
      {u"<a href=\"a<b\">x</a>", "{12 link=a<b}x"},
      {u"<a href=u", ""},
  });
}

TEST_F(HtmlReader, FontSizes) {
  expectReadings({
      {u"<font size=5>x</font>y", "{14}x{12}y "},
      {u"<font size=2>a<font size=5>b</font>c", "{11}a{14}b{12}c "},
      {u"<font size=-2>x", "{7}x "},
      {u"<font size = 7>x", "{16}x "},
      {u"<font size=  1>x", "{10}x "},
      {u"<font size=3.5>x", "{12.5}x "},
      {u"<font size=1e1>x", "{19}x "},
      {u"<font size=.5px>x", "{9.5}x "},
      {u"<font size=+1>x", "{22}x "},
      {u"<font size=+ 1><font size=+1>x", "{32}x "},
      {u"<font size=+-5>x", "{16}x "},
      {u"<font size=\"5\">x", "{12}x "},
      {u"<font size=\uFF15>x", "{12}x "},
      {u"<font size=>x", "{12}x "},
      {u"<font  size=5>x", "{14}x "},
      {u"<font color=red size=5>x", "{12}x "},
      {u"<font size=5 color=red>x", "{14}x "},
      {u"<FONT SIZE=5>x", "{12}x "},
  });
}

TEST_F(HtmlReader, OddUnitsInTextAndTags) {
  const auto linkOf = [](std::u16string_view source) {
    hold(html::linkString, Owned<NSString>());
    const auto styled = read(source);
    auto* const link = NSAttributedString::attributeAtIndex(styled, NSLinkAttributeName, 0, nullptr);
    return link == nullptr ? std::u16string(u"none") : unitsOf(static_cast<NSString*>(link));
  };
  EXPECT_EQ(linkOf({u"<a href=\"u\0v\">x", 15}), std::u16string(u"u\0v", 3));
  EXPECT_EQ(linkOf({u"<a href=u\0v>x", 13}), std::u16string(u"u\0v", 3));
  EXPECT_EQ(linkOf(u"<a href=\"\xD800\">x"), u"\xD800");
  EXPECT_EQ(linkOf(u"<a href=\xDC00\xD800>x"), u"\xDC00\xD800");
  const auto fontSizeOf = [](std::u16string_view source) {
    auto* const font = NSAttributedString::attributeAtIndex(read(source), NSFontAttributeName, 0, nullptr);
    return NSFont::pointSize(static_cast<NSFont*>(font));
  };
  hold(html::linkString, Owned<NSString>());
  EXPECT_EQ(fontSizeOf({u"<font size=5\0009>x", 16}), 14.0) << "a number ends at the zero character";
  EXPECT_EQ(fontSizeOf({u"<font size=\0005>x", 15}), 12.0);
  EXPECT_EQ(fontSizeOf(u"<font size=5\xD800>x"), 14.0);
  EXPECT_EQ(fontSizeOf(u"<font size=\xD800>x"), 12.0);
  for (const std::u16string_view tag :
       {std::u16string_view(u"<b\0>", 4), std::u16string_view(u"<\0b>", 4), std::u16string_view(u"<b\xD800>"),
        std::u16string_view(u"<\xDC00"
                            u"b>")}) {
    EXPECT_EQ(show(read(std::u16string(tag) + u"x")), "{12}x ") << "no bold tag";
  }
  EXPECT_EQ(unitsOf(NSAttributedString::string(read({u"a\0<b>\xD800</b>\xDC00", 11}))),
            std::u16string(u"a\0\xD800\xDC00 ", 5));
}

TEST_F(HtmlReader, EntitiesStayWhileTheirTableIsEmpty) {
  expectReadings({
      {u"a &amp; b", "{12}a &amp; b "},
      {u"a & b", "{12}a &b "},
      {u"a &", "{12}a &"},
      {u"&&& &", "{12}&&&&"},
      {u"a &<b> &</b>", "{12}a &{12b}&"},
  });
}

TEST_F(HtmlReader, EntitiesOfTheTableKeepTheirSemicolon) {
  fillTables();
  fillTables();
  expectReadings({
      {u"a &amp; b", "{12}a &; b "},
      {u"&LT;b&gT; &quot;", "{12}<;b>; \"; "},
      {u"&copy; &eacute", "{12}&copy; &eacute "},
      {u"&amp&lt x", "{12}&<x "},
      {u"&lt&amp", "{12}<&"},
      {u"&&amp;", "{12}&&amp; "},
      {u"&lt", "{12}<"},
  });
}

TEST_F(HtmlReader, EveryRunIsHelvetica) {
  const auto styled = read(u"<b>x</b><font size=5>y");
  for (const NSUInteger index : {0UL, 1UL}) {
    auto* const font = NSAttributedString::attributeAtIndex(styled, NSFontAttributeName, index, nullptr);
    EXPECT_EQ(utf8(unitsOf(NSFont::familyName(font))), "Helvetica");
  }
}

TEST_F(HtmlReader, AnOpenLinkGoesOnInTheNextDocument) {
  EXPECT_EQ(show(read(u"<a href=u><b><i><u><font size=5>x")), "{14biu link=u}x ");
  EXPECT_EQ(show(read(u"y</a>z")), "{12 link=u}y{12}z ");
}

TEST_F(HtmlReader, AQuoteLeftOpenRaisesAndLeavesTheLinkAsItWas) {
  read(u"<a href=u>");
  NSString* const before = html::linkString;
  NSException* const exception = catchException([] { read(u"x<a href=\"v>y</a>"); });
  ASSERT_NE(exception, nullptr);
  EXPECT_EQ(utf8(unitsOf(NSException::name(exception))), "NSRangeException");
  EXPECT_EQ(html::linkString, before);
}

TEST_F(HtmlReader, AMutableReceiverStaysMutable) {
  const auto styled = adopt(html::initWithHTML_ZKT(alloc<NSMutableAttributedString>(), newString(u"a<b>b")));
  NSMutableAttributedString::deleteCharactersInRange(styled, {0, 1});
  EXPECT_EQ(show(styled), "{12b}b ");
}

// Ends at all, that is: what takes a quadratic time here would take hours.
TEST_F(HtmlReader, HostileSourcesEndInLinearTime) {
  constexpr std::size_t size = 10'000'000;
  const struct {
    std::u16string_view piece;
    std::size_t length;
  } cases[] = {
      {u"<", 0},
      {u"&", size},
      {u">", size + 1},
      {u"<a", 0},
      {u"<a =x ", 0},
      {u"<font size=", 0},
      {u"<>", 0},
      {u"& ", size / 2},
      {u" ", 0},
      {{u"\0", 1}, size + 1},
      {u"\xD800", size + 1},
  };
  for (const bool filled : {false, true}) {
    if (filled) fillTables();
    for (const auto& [piece, length] : cases) {
      EXPECT_EQ(NSAttributedString::length(read(repeated(piece, size))), length) << filled << utf8(piece);
      hold(html::linkString, Owned<NSString>());
    }
  }
  EXPECT_NE(catchException([] { read(u"<a \"" + repeated(u"x ", size)); }), nullptr);
}

TEST_F(HtmlReader, ManyTagsEndInLinearTime) {
  const auto styled = read(repeated(u"<b>x</b>y<font size=5>z</font>", 2'000'000));
  EXPECT_EQ(NSAttributedString::length(styled), 200'001U);
  EXPECT_EQ(show(styled).substr(0, 16), "{12b}x{12}y{14}z");
}

TEST_F(HtmlReader, StateIsSetBySingleMessages) {
  const auto plain = adopt(NSAttributedString::initWithString(alloc<NSMutableAttributedString>(), newString(u"x")));
  html::setBold(plain, YES);
  html::setItalic(plain, YES);
  html::setUnderline(plain, YES);
  html::setCurrentAttributes(plain, static_cast<NSMutableAttributedString*>(plain.get()));
  EXPECT_EQ(show(plain), "{12biu}x");
  html::setBold(plain, NO);
  html::setCurrentAttributes(plain, static_cast<NSMutableAttributedString*>(plain.get()));
  EXPECT_EQ(show(plain), "{12iu}x");
  html::resetAttributes(plain);
  html::setCurrentAttributes(plain, static_cast<NSMutableAttributedString*>(plain.get()));
  EXPECT_EQ(show(plain), "{12}x");
}

TEST_F(HtmlReader, FontDirectivesStackOnceThereIsAStack) {
  const auto text = read(u"x");
  html::pushFontDirective(text, text);
  html::popFontDirective(text);
  EXPECT_EQ(html::fontDirectiveStack, nullptr);
  html::htmlString_ZKT(text);
  html::pushFontDirective(text, text);
  EXPECT_EQ(NSArray::count(html::fontDirectiveStack), 1U);
  html::popFontDirective(text);
  html::popFontDirective(text);
  EXPECT_EQ(NSArray::count(html::fontDirectiveStack), 0U);
}

}  // namespace
