// Text to and from bytes: every encoding both ways, malformed input, lone surrogates, marks, exact capacities.
#include <gtest/gtest.h>

#include <vector>

#include "standin/foundation/encodings.hpp"
#include "tests/standin/string_support.hpp"

namespace {

using string_support::text;
using string_support::units;

constexpr CFStringEncoding utf8 = kCFStringEncodingUTF8, utf16 = kCFStringEncodingUnicode, utf32 = kCFStringEncodingUTF32;

Owned<NSString> decoded(std::string_view bytes, CFStringEncoding encoding, bool external = false) {
  return adopt(CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const uint8_t*>(bytes.data()),
                                       static_cast<CFIndex>(bytes.size()), encoding, external));
}

struct Taken {
  CFIndex units = 0;
  std::string bytes;
};

Taken taken(NSString* string, CFStringEncoding encoding, size_t capacity, char loss = 0, bool external = false) {
  std::string bytes(capacity + 1, '#');
  CFIndex used = -1;
  const CFIndex count =
      CFStringGetBytes(string, {0, CFStringGetLength(string)}, encoding, static_cast<uint8_t>(loss), external,
                       reinterpret_cast<uint8_t*>(bytes.data()), static_cast<CFIndex>(capacity), &used);
  EXPECT_EQ(bytes.back(), '#') << "wrote past the capacity";
  return {count, bytes.substr(0, static_cast<size_t>(used))};
}

template <size_t size>
std::string bytes(const char (&literal)[size]) {
  return {literal, size - 1};
}

struct Sample {
  CFStringEncoding encoding;
  std::u16string text;
  std::string bytes;
};

const Sample samples[] = {
    {0x0000, u"Aé€\uF8FF", "A\x8E\xDB\xF0"},
    {0x0006, u"Ωα", "\xBF\xE1"},
    {0x0007, u"Привет", "\x8F\xF0\xE8\xE2\xE5\xF2"},
    {0x001D, u"ČŠ", "\x89\xE1"},
    {0x0023, u"ğİ", "\xDB\xDC"},
    {0x0098, u"Ґє", "\xA2\xB9"},
    {0x0201, u"é\u0080ÿ", "\xE9\x80\xFF"},
    {0x0202, u"Łź", "\xA3\xBC"},
    {0x0203, u"Ħ", "\xA1"},
    {0x0204, u"ĸ", "\xA2"},
    {0x0205, u"Ж", "\xB6"},
    {0x0206, u"ب", "\xC8"},
    {0x0207, u"λ", "\xEB"},
    {0x0208, u"ש", "\xF9"},
    {0x0209, u"ş", "\xFE"},
    {0x020A, u"Ŋ", "\xAF"},
    {0x020B, u"ก", "\xA1"},
    {0x020D, u"ų", "\xF8"},
    {0x020E, u"Ŵ", "\xD0"},
    {0x020F, u"€", "\xA4"},
    {0x0400, u"é\u001A\u001C\u007F", "\x82\x1A\x1C\x7F"},
    {0x0405, u"Α", "\x80"},
    {0x0406, u"Ć", "\x80"},
    {0x0410, u"ø", "\x9B"},
    {0x0411, u"Ά", "\x86"},
    {0x0412, u"Ł", "\x9D"},
    {0x0413, u"ђ", "\x80"},
    {0x0414, u"ş", "\x9F"},
    {0x0415, u"ã", "\x84"},
    {0x0416, u"Ð", "\x8B"},
    {0x0417, u"א", "\x80"},
    {0x0418, u"Â", "\x84"},
    {0x0419, u"±", "\x93"},
    {0x041A, u"¤", "\xAF"},
    {0x041B, u"Ж", "\x86"},
    {0x041C, u"α", "\xD6"},
    {0x041D, u"ก€", "\xA1\x80"},
    {0x0420, u"漢\\", "\x8A\xBF\\"},
    {0x0421, u"漢", "\x9D\x68"},
    {0x0422, u"한", "\xC7\xD1"},
    {0x0423, u"漢", "\xBA\x7E"},
    {0x0500, u"“€”", "\x93\x80\x94"},
    {0x0501, u"Ś", "\x8C"},
    {0x0502, u"Ж", "\xC6"},
    {0x0503, u"Ά", "\xA2"},
    {0x0504, u"ğ", "\xF0"},
    {0x0505, u"א", "\xE0"},
    {0x0506, u"پ", "\x81"},
    {0x0507, u"ų", "\xF8"},
    {0x0508, u"ơ", "\xF5"},
    {0x0600, u"plain\u007F", "plain\x7F"},
    {0x0631, u"漢", "\x9D\x68"},
    {0x0632, u"漢\U0001F600", "\x9D\x68\x94\x39\xFC\x36"},
    {0x0640, u"한", "\xC7\xD1"},
    {0x0820, u"漢", "\x1B$B4A\x1B(B"},
    {0x0840, u"한", "\x1B$)C\x0EGQ\x0F"},
    {0x0920, u"漢", "\xB4\xC1"},
    {0x0930, u"汉", "\xBA\xBA"},
    {0x0931, u"漢", "\xE9\xC7"},
    {0x0940, u"한", "\xC7\xD1"},
    {0x0A01, u"漢ｶ", "\x8A\xBF\xB6"},
    {0x0A02, u"ЖЮ", "\xF6\xE0"},
    {0x0A03, u"漢", "\xBA\x7E"},
    {0x0A05, u"汉", "~{::"},
    {0x0A06, u"漢", "\xBA\x7E"},
    {0x0A08, u"Ґ", "\xBD"},
    {0x0A10, u"é&", "&AOk-&-"},
    {0x0C02, u"A1", "\xC1\xF1"},
    {0x04000100, u"é+", "+AOkAKw-"},
    {utf8, std::u16string(u"aé漢\U0001F600\U0010FFFF\0z", 9), bytes("aé漢\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF\0z")},
    {utf16, u"A漢\U0010FFFF\xD800", bytes("A\0\x22\x6F\xFF\xDB\xFF\xDF\x00\xD8")},
    {0x10000100, u"A漢\xDC00", bytes("\0A\x6F\x22\xDC\x00")},
    {0x14000100, u"A漢", bytes("A\0\x22\x6F")},
    {utf32, u"A\U0001F600", bytes("A\0\0\0\x00\xF6\x01\0")},
    {0x18000100, u"\U0010FFFF", bytes("\0\x10\xFF\xFF")},
    {0x1C000100, u"\U0010FFFF", bytes("\xFF\xFF\x10\0")},
};

TEST(Encodings, EverySampleGoesBothWays) {
  for (const Sample& sample : samples) {
    SCOPED_TRACE(testing::Message() << std::hex << "encoding 0x" << sample.encoding);
    const AutoreleasePool pool;
    const Owned<NSString> string = decoded(sample.bytes, sample.encoding);
    EXPECT_TRUE(string && units(string) == sample.text) << "read differently";
    const Taken whole = taken(text(sample.text), sample.encoding, 64);
    EXPECT_EQ(whole.bytes, sample.bytes);
    EXPECT_EQ(whole.units, static_cast<CFIndex>(sample.text.size()));
  }
}

TEST(Encodings, AsciiStaysAsciiInEveryEncodingBuiltOnIt) {
  std::string plain;
  for (char byte = 1; byte < 0x7F; ++byte) plain += byte;
  for (const Sample& sample : samples) {
    const bool isBuiltOnAscii = sample.encoding < 0x0800 || (sample.encoding >= 0x0920 && sample.encoding < 0x0A05);
    if (!isBuiltOnAscii || sample.encoding == utf16) continue;
    SCOPED_TRACE(testing::Message() << std::hex << "encoding 0x" << sample.encoding);
    const AutoreleasePool pool;
    const std::u16string wide(plain.begin(), plain.end());
    const Owned<NSString> string = decoded(plain + sample.bytes, sample.encoding);
    EXPECT_EQ(units(string), wide + sample.text);
    EXPECT_EQ(taken(string, sample.encoding, 512).bytes, plain + sample.bytes);
  }
}

TEST(Encodings, WhatIsMalformedOrUnknownGivesNil) {
  const struct {
    CFStringEncoding encoding;
    std::string bytes;
  } rows[] = {
      {utf8, "\x80"},
      {utf8, "a\xC0\x80"},
      {utf8, "\xC1\xBF"},
      {utf8, "\xE0\x9F\xBF"},
      {utf8, "\xED\xA0\x80"},
      {utf8, "\xED\xBF\xBF"},
      {utf8, "\xF0\x8F\xBF\xBF"},
      {utf8, "\xF4\x90\x80\x80"},
      {utf8, "\xF5\x80\x80\x80"},
      {utf8, "\xFF"},
      {utf8, "é\xC3"},
      {utf8, "é\xE6\xBC"},
      {utf8, "\xF0\x9F\x98"},
      {utf8, "\xC3\xC3\xC3\xC3 padded to be more than sixteen bytes"},
      {utf8, "\xC3\xA9\x80\x80"},
      {kCFStringEncodingASCII, "abc\x80"},
      {utf16, "odd"},
      {0x10000100, "o"},
      {utf32, bytes("A\0\0\0A\0")},
      {utf32, bytes("\x00\xD8\0\0")},
      {utf32, bytes("\0\0\x11\0")},
      {0x0420, "\x81"},
      {0x0920, "\xB4"},
      {0x0206, "\xA1"},
      {0x0203, "\xA5"},
      {0x0820, "\xE9"},
      {0x04000100, "+AOk\xFF"},
      {0x0002, "a"},
      {0x0BFF, "a"},
      {0x12345678, "a"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << std::hex << "0x" << row.encoding << " " << testing::PrintToString(row.bytes));
    EXPECT_EQ(decoded(row.bytes, row.encoding, true).get(), nullptr);
  }
}

TEST(Encodings, MarksAreObeyedInExternalRepresentationsAlone) {
  const struct {
    CFStringEncoding encoding;
    bool external;
    std::string bytes;
    std::u16string text;
  } rows[] = {
      {utf8, true,
       "\xEF\xBB\xBF"
       "a",
       u"a"},
      {utf8, false,
       "\xEF\xBB\xBF"
       "a",
       u"\uFEFFa"},
      {utf16, true,
       bytes("\xFF\xFE"
             "a\0"),
       u"a"},
      {utf16, true, bytes("\xFE\xFF\0a"), u"a"},
      {utf16, true, bytes("a\0"), u"a"},
      {utf16, false,
       bytes("\xFF\xFE"
             "a\0"),
       u"\uFEFFa"},
      {0x14000100, true,
       bytes("\xFF\xFE"
             "a\0"),
       u"\uFEFFa"},
      {utf32, true, bytes("\0\0\xFE\xFF\0\0\0a"), u"a"},
      {utf32, true,
       bytes("\xFF\xFE\0\0"
             "a\0\0\0"),
       u"a"},
      {utf8, true, "", u""},
      {utf16, true, bytes("\xFE\xFF"), u""},
  };
  for (const auto& row : rows) {
    const AutoreleasePool pool;
    const Owned<NSString> string = decoded(row.bytes, row.encoding, row.external);
    ASSERT_TRUE(string) << testing::PrintToString(row.bytes);
    EXPECT_EQ(units(string), row.text) << testing::PrintToString(row.bytes);
  }
  const AutoreleasePool pool;
  EXPECT_EQ(taken(text(u"a"), utf16, 9, 0, true).bytes, bytes("\xFF\xFE"
                                                              "a\0"));
  EXPECT_EQ(taken(text(u"a"), utf32, 9, 0, true).bytes, bytes("\xFF\xFE\0\0"
                                                              "a\0\0\0"));
  EXPECT_EQ(taken(text(u"a"), 0x10000100, 9, 0, true).bytes, bytes("\0a"));
  EXPECT_EQ(taken(text(u"a"), utf8, 9, 0, true).bytes, "a");
  EXPECT_EQ(taken(text(u"a"), utf16, 1, 0, true).units, 0);
}

TEST(Encodings, WhatTheEncodingLacksEndsOrIsReplaced) {
  const struct {
    CFStringEncoding encoding;
    std::u16string text;
    CFIndex convertible;
    std::string replaced;
  } rows[] = {
      {utf8, u"ab\xD800", 2, "ab?"},
      {utf8, u"\xDC00z", 0, "?z"},
      {utf8, u"\xD83D\xD83D\xDE00z", 0, "?\xF0\x9F\x98\x80z"},
      {utf8, u"\xDE00\xD83D", 0, "??"},
      {utf32, u"a\xDC00", 1, bytes("a\0\0\0?")},
      {kCFStringEncodingASCII, u"abcdefghijklmné\U0001F600z", 14, "abcdefghijklmn??z"},
      {kCFStringEncodingISOLatin1, u"é€\U0001F600z", 1, "\xE9??z"},
      {kCFStringEncodingMacRoman, u"é\u200B\U0001F600z", 1, "\x8E??z"},
      {kCFStringEncodingWindowsLatin1, u"€漢z", 1, "\x80?z"},
      {0x0420, u"漢한", 1, "\x8A\xBF?"},
      {0x0A03, u"\xD800", 0, "?"},
      {0x0BFF, u"abc", 0, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << std::hex << "encoding 0x" << row.encoding);
    const AutoreleasePool pool;
    EXPECT_EQ(taken(text(row.text), row.encoding, 64).units, row.convertible);
    EXPECT_EQ(taken(text(row.text), row.encoding, 64, '?').bytes, row.replaced);
    char buffer[64];
    EXPECT_FALSE(CFStringGetCString(text(row.text), buffer, sizeof buffer, row.encoding));
  }
}

// For each capacity: what fits in whole characters, no byte more, and the same count without a buffer.
TEST(Encodings, CapacitiesAreExactAndCutBetweenCharacters) {
  const std::u16string source = u"aé漢\U0001F600b";
  const Sample whole[] = {
      {utf8, source,
       "aé漢\xF0\x9F\x98\x80"
       "b"},
      {utf16, source,
       bytes("a\0\xE9\0\x22\x6F\x3D\xD8\x00\xDE"
             "b\0")},
      {0x0632, source,
       "a\xA8\xA6\x9D\x68\x94\x39\xFC\x36"
       "b"},
      {kCFStringEncodingISOLatin1, u"aéz", "a\xE9z"},
  };
  for (const Sample& row : whole) {
    const AutoreleasePool pool;
    NSString* const string = text(row.text);
    CFIndex needed = 0;
    EXPECT_EQ(CFStringGetBytes(string, {0, CFStringGetLength(string)}, row.encoding, 0, false, nullptr, 0, &needed),
              CFStringGetLength(string));
    EXPECT_EQ(static_cast<size_t>(needed), row.bytes.size());
    for (size_t capacity = 0; capacity <= row.bytes.size(); ++capacity) {
      const Taken part = taken(string, row.encoding, capacity);
      EXPECT_EQ(part.bytes, row.bytes.substr(0, part.bytes.size()));
      const Owned<NSString> back = decoded(part.bytes, row.encoding);
      ASSERT_TRUE(back) << "cut inside a character at " << capacity;
      EXPECT_EQ(CFStringGetLength(back), part.units);
      EXPECT_LE(capacity - part.bytes.size(), 3U);
      std::string buffer(capacity + 1, '#');
      EXPECT_EQ(CFStringGetCString(string, buffer.data(), static_cast<CFIndex>(capacity), row.encoding),
                capacity > row.bytes.size());
      EXPECT_EQ(buffer.back(), '#');
      buffer.assign(row.bytes.size() + 1, '#');
      EXPECT_TRUE(CFStringGetCString(string, buffer.data(), static_cast<CFIndex>(buffer.size()), row.encoding));
      EXPECT_EQ(buffer, row.bytes + '\0');
    }
  }
}

// The hot loops take steps of 8, 16 and 64: characters at every place around the edges of a step.
TEST(Encodings, Utf8IsRightWhereverANonAsciiCharacterStands) {
  for (const std::u16string_view character : {u"é", u"漢", u"\U0001F600", u"é漢é"}) {
    for (size_t before = 0; before <= 70; ++before) {
      for (size_t after = 0; after <= 34; ++after) {
        const AutoreleasePool pool;
        const std::u16string source = std::u16string(before, u'a') + std::u16string(character) + std::u16string(after, u'z');
        const std::string encoded = taken(text(source), utf8, 4 * source.size()).bytes;
        const Owned<NSString> back = decoded(encoded, utf8);
        ASSERT_TRUE(back && units(back) == source) << before << " " << after;
        ASSERT_FALSE(decoded(encoded + "\xC3", utf8));
        ASSERT_FALSE(decoded("\xA9" + encoded, utf8));
      }
    }
  }
}

TEST(Encodings, Utf8AndUtf16AgreeOnEveryCodePoint) {
  std::string bytes;
  std::u16string expected;
  for (uint32_t point = 0; point <= 0x10FFFF; ++point) {
    if (point >= 0xD800 && point <= 0xDFFF) continue;
    const int tails = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    bytes += static_cast<char>((tails == 0 ? 0 : 0xF0 << (3 - tails) & 0xFF) | point >> (6 * tails));
    for (int tail = tails - 1; tail >= 0; --tail) bytes += static_cast<char>(0x80 | (point >> (6 * tail) & 0x3F));
    if (point >= 0x10000) expected += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
    expected += static_cast<char16_t>(point < 0x10000 ? point : 0xDC00 + (point & 0x3FF));
  }
  const AutoreleasePool pool;
  const Owned<NSString> string = decoded(bytes, utf8);
  ASSERT_TRUE(string);
  EXPECT_TRUE(units(string) == expected);
  EXPECT_TRUE(taken(string, utf8, bytes.size()).bytes == bytes);
}

TEST(Encodings, ALongTextEndsNowhereBetweenTheHalvesOfAPair) {
  const AutoreleasePool pool;
  std::u16string source = u"x";
  while (source.size() < 20000) source += u"\U0001F600";
  const Owned<NSString> string =
      adopt(CFStringCreateWithCharacters(kCFAllocatorDefault, source.data(), static_cast<CFIndex>(source.size())));
  CFIndex needed = 0;
  CFStringGetBytes(string, {0, CFStringGetLength(string)}, utf8, 0, false, nullptr, 0, &needed);
  EXPECT_EQ(needed, static_cast<CFIndex>(1 + (source.size() - 1) * 2));
  EXPECT_EQ(units(decoded(taken(string, utf8, static_cast<size_t>(needed)).bytes, utf8)), source);
}

TEST(Normalization, TakesEachForm) {
  const struct {
    CFIndex form;
    std::u16string expected;
  } rows[] = {{0, u"e\u0301ﬁ\u1112\u1161"}, {1, u"e\u0301fi\u1112\u1161"}, {2, u"éﬁ하"}, {3, u"éfi하"}};
  for (const auto& row : rows) {
    const AutoreleasePool pool;
    const Owned<NSMutableString> string = adopt(CFStringCreateMutableCopy(kCFAllocatorDefault, 0, text(u"éﬁ하")));
    CFStringNormalize(string, row.form);
    EXPECT_EQ(units(string), row.expected);
  }
  const AutoreleasePool pool;
  const Owned<NSMutableString> string = adopt(CFStringCreateMutableCopy(kCFAllocatorDefault, 0, text(u"a")));
  EXPECT_EQ(string_support::raised([&] { CFStringNormalize(string, 4); }),
            "NSInvalidArgumentException: CFStringNormalize: unknown form 4");
}

}  // namespace
