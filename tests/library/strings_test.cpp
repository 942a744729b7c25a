// Text across the boundary: every encoding, every route that a host's version or its gaps lead to.
#include "bridge/strings.hpp"

#include <climits>
#include <new>
#include <stdexcept>

#include "host/runtime/string.hpp"
#include "plugin/exceptions.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace {

using namespace plugin;
using bridge::CFString2RBString;
using bridge::REALBuildUnicodeString;
using bridge::REALBuildUnicodeStringUTF16;
using HeldString = HostOwned<REALstringStruct>;

class Strings : public bridge_test::BridgeTest {};

// The library's own and the host's idea of the same string.
host::HostString* forHost(REALstring text) { return reinterpret_cast<host::HostString*>(text); }
HeldString hostString(std::string_view bytes, uint32_t encoding) {
  return adoptHost(reinterpret_cast<REALstring>(host::HostString::make(bytes, encoding).detach()));
}

std::string bytesOf(REALstring text) { return std::string(host::bytesOf(forHost(text))); }
template <class Unit>
std::string bytesOf(std::basic_string_view<Unit> units) {
  return std::string(reinterpret_cast<const char*>(units.data()), units.size() * sizeof(Unit));
}

// "tag: bytes", or "nil".
std::string show(REALstring text) {
  if (text == nullptr) return "nil";
  char tag[16];
  std::snprintf(tag, sizeof tag, "%x: ", forHost(text)->encoding);
  return tag + bytesOf(text);
}

std::string utf8Of(NSString* string) {
  return string == nullptr ? "nil" : host::utf8Of([&] {
    std::u16string units(NSString::length(string), u'\0');
    NSString::getCharacters(string, units.data());
    return units;
  }());
}

std::string toPlatform(REALstring text) { return utf8Of(bridge::ownedString(text)); }
std::string toHost(std::u16string_view units) {
  const auto string =
      adopt(CFStringCreateWithCharacters(kCFAllocatorDefault, units.data(), static_cast<CFIndex>(units.size())));
  return show(adoptHost(CFString2RBString(string)));
}
std::string built(std::string_view bytes, CFStringEncoding encoding) {
  return show(adoptHost(REALBuildUnicodeString(bytes.data(), static_cast<long long>(bytes.size()), encoding)));
}

// Hosts of three ages, and one that gives no platform strings, so that the bytes are read in place.
struct Host {
  const char* name;
  double version;
  bool givesPlatformStrings;
};
constexpr Host hosts[] = {
    {"2011", 2011.0, true}, {"2012", 2012.5, true}, {"2019", 2019.01, true}, {"bytes", 2019.01, false}};

TEST_F(Strings, OfEveryEncodingReachThePlatform) {
  const struct {
    std::string bytes;
    uint32_t encoding;
    std::string text;
  } cases[] = {
      {"plain", 0x600, "plain"},
      {"caf\xC3\xA9 \xF0\x9F\x98\x80", 0x08000100, "café 😀"},
      {"caf\xE9", 0x201, "café"},
      {"\x80 caf\xE9", 0x500, "€ café"},
      {"caf\x8E", 0, "café"},
      {"caf\x8E", 0xFFFF, "café"},
      {bytesOf(std::u16string_view(u"é😀")), 0x100, "é😀"},
      {bytesOf(std::u32string_view(U"é😀")), 0x0C000100, "é😀"},
  };
  for (const Host& host : hosts) {
    if (!host.givesPlatformStrings) switchOff("REALGetStringCFString");
    hostVersion = host.version;
    for (const auto& [bytes, encoding, text] : cases) {
      EXPECT_EQ(toPlatform(hostString(bytes, encoding)), text) << host.name << ", encoding " << std::hex << encoding;
    }
  }
}

TEST_F(Strings, WithoutAKnownEncodingAreMacRomanWhateverTheHostWouldMakeOfThem) {
  allOn();
  EXPECT_EQ(toPlatform(hostString("\x8E", 0xFFFF)), "é");
  EXPECT_EQ(runtime().faults().calls("REALGetStringCFString"), 0);
  switchOff("REALGetStringEncoding");
  switchOff("REALGetStringCFString");
  EXPECT_EQ(toPlatform(hostString("\x8E", 0x201)), "é") << "no encoding to be had is MacRoman too";
}

TEST_F(Strings, ReadInPlaceKeepTheirOddities) {
  switchOff("REALGetStringCFString");
  EXPECT_EQ(toPlatform(hostString(std::string("a\0b\0c", 5), 0x100)), "ab") << "the odd byte is lost";
  EXPECT_EQ(toPlatform(hostString("\xEF\xBB\xBFx", 0x08000100)), "x") << "a byte-order mark is no character";
  EXPECT_EQ(toPlatform(hostString("\xC3(", 0x08000100)), "nil") << "no UTF-8";
  EXPECT_EQ(toPlatform(nullptr), "nil");
}

TEST_F(Strings, ReachTheHostAsUTF8) {
  EXPECT_EQ(toHost(u""), "nil");
  EXPECT_EQ(show(adoptHost(CFString2RBString(nullptr))), "nil");
  EXPECT_EQ(toHost(u"caf\u00E9 \U0001F600"), "8000100: café 😀");
  EXPECT_EQ(toHost(std::u16string_view(u"ab\0cd", 5)), "8000100: ab") << "ends at the zero character";
  EXPECT_EQ(toHost(u"\xD800"), "nil") << "a lone surrogate has no UTF-8";
  for (const std::size_t length : {1UL, 98UL, 99UL, 100UL, 101UL, 1000UL}) {
    for (const char16_t unit : {u'x', u'\u4E2D'}) {
      const std::u16string units(length, unit);
      EXPECT_EQ(toHost(units), "8000100: " + host::utf8Of(units)) << length;
    }
  }
}

TEST_F(Strings, AreBuiltUnderTheTagThatTheirBytesDeserve) {
  const struct {
    std::string bytes;
    uint32_t encoding;
    std::string expected;
  } cases[] = {
      {"plain", 0, "600: plain"},
      {"plain", 0x500, "600: plain"},
      {"plain", 0xFFFF, "600: plain"},
      {"\x7F", 0, "600: \x7F"},
      {"caf\x8E", 0, "0: caf\x8E"},
      {"caf\xE9", 0x500, "500: caf\xE9"},
      {"caf\x8E", 0xFFFF, "ffff: caf\x8E"},
      {"caf\xE9", 0x201, "201: caf\xE9"},
      {"plain", 0x201, "201: plain"},
      {"caf\xE9", 0x600, "600: caf\xE9"},
      {"\xC3\xA9", 0x08000100, "8000100: é"},
      {"x", 0x12345, "12345: x"},
  };
  for (const auto& [bytes, encoding, expected] : cases) EXPECT_EQ(built(bytes, encoding), expected);
  EXPECT_EQ(built("", 0x600), "nil");
  EXPECT_EQ(show(REALBuildUnicodeString(nullptr, 5, 0x600)), "nil");
  EXPECT_EQ(show(REALBuildUnicodeString("x", -1, 0x600)), "nil");
  EXPECT_EQ(show(REALBuildUnicodeString("x", 0x80000000LL, 0x600)), "nil");
}

TEST_F(Strings, OfWideUnitsAreConvertedOnEveryHost) {
  for (const double version : {2011.0, 2012.0, 2013.0, 2019.01}) {
    hostVersion = version;
    EXPECT_EQ(built(bytesOf(std::u16string_view(u"é😀")), 0x100), "8000100: é😀") << version;
    EXPECT_EQ(built(bytesOf(std::u32string_view(U"é😀")), 0x0C000100), "8000100: é😀") << version;
  }
  for (const double version : {2011.0, 2012.5}) {
    hostVersion = version;
    const char32_t odd[] = {U'a', 0xD800, 0xDFFF, 0x10FFFF, 0x110000, 0xFFFFFFFF, 0xFFFF, U'b'};
    EXPECT_EQ(built(bytesOf(std::u32string_view(odd, std::size(odd))), 0x0C000100),
              "8000100: a\xF4\x8F\xBF\xBF��\xEF\xBF\xBF"
              "b");
    EXPECT_EQ(built(std::string("x\0\0\0yy", 6), 0x0C000100), "8000100: x") << "incomplete units are ignored";
    for (const std::size_t count : {199UL, 200UL, 201UL, 5000UL}) {
      EXPECT_EQ(built(bytesOf(std::u32string_view(std::u32string(count, U'\U0001F600'))), 0x0C000100),
                "8000100: " + host::utf8Of([&] {
                  std::u16string units;
                  for (std::size_t index = 0; index < count; ++index) units += u"\U0001F600";
                  return units;
                }()));
    }
  }
}

TEST_F(Strings, NeedTheServicesOfTheirRoute) {
  const struct {
    const char* service;
    double version;
    CFStringEncoding encoding;
    const char* expected;
  } cases[] = {
      {"REALBuildString", 2019.01, 0x08000100, "nil"},
      {"REALBuildStringWithEncoding", 2019.01, 0x08000100, "8000100: abcd"},
      {"REALSetStringEncoding", 2019.01, 0x500, nullptr},
      {"REALBuildStringWithEncoding", 2019.01, 0x100, "nil"},
      {"REALBuildStringWithEncoding", 2011.0, 0x100, "8000100: \u6261\u6463"},
      {"REALBuildString", 2011.0, 0x100, "nil"},
      {"REALConvertString", 2011.0, 0x100, "nil"},
      {"REALConvertString", 2019.01, 0x100, "nil"},
      {"REALConvertString", 2019.01, 0x0C000100, "nil"},
  };
  for (const auto& [service, version, encoding, expected] : cases) {
    switchOff(service);
    hostVersion = version;
    if (expected == nullptr) {
      EXPECT_NE(built("abcd", encoding), "nil") << service;
    } else {
      EXPECT_EQ(built("abcd", encoding), expected) << service << " " << version;
    }
    allOn();
  }
}

// Which services each age of host is asked for, and how often.
TEST_F(Strings, TakeTheRouteOfTheHostsVersion) {
  const char* const services[] = {
      "REALGetStringCFString",       "StringGetCString", "REALBuildString", "REALSetStringEncoding",
      "REALBuildStringWithEncoding", "REALConvertString"};
  const std::string utf16 = bytesOf(std::u16string_view(u"ab"));
  const std::string utf32 = bytesOf(std::u32string_view(U"ab"));
  // Of a UTF-8 string whose bytes are no UTF-8 the host gives no platform string, so every route is tried.
  const struct {
    double version;
    const char* read;
    const char* readInVain;
    const char* builtUTF8;
    const char* builtUTF16;
    const char* builtUTF32;
  } cases[] = {
      {2011.9, "1 0 0 0 0 0", "1 1 0 0 0 0", "0 0 1 1 0 0", "0 0 1 1 0 1", "0 0 1 1 0 1"},
      {2012.0, "1 0 0 0 0 0", "2 1 0 0 0 0", "0 0 1 1 0 0", "0 0 0 0 1 1", "0 0 0 0 1 1"},
      {2012.999, "1 0 0 0 0 0", "2 1 0 0 0 0", "0 0 1 1 0 0", "0 0 0 0 1 1", "0 0 0 0 1 1"},
      {2013.0, "1 0 0 0 0 0", "2 1 0 0 0 0", "0 0 1 1 0 0", "0 0 0 0 1 1", "0 0 0 0 1 1"},
  };
  const auto callsOf = [&](auto&& action) {
    allOn();
    action();
    std::string counts;
    for (const char* service : services) {
      counts += (counts.empty() ? "" : " ") + std::to_string(runtime().faults().calls(service));
    }
    return counts;
  };
  for (const auto& [version, read, readInVain, builtUTF8, builtUTF16, builtUTF32] : cases) {
    hostVersion = version;
    EXPECT_EQ(callsOf([] { toPlatform(hostString("ab", 0x08000100)); }), read) << version;
    EXPECT_EQ(callsOf([] { toPlatform(hostString("\xC3(", 0x08000100)); }), readInVain) << version;
    EXPECT_EQ(callsOf([] { built("ab", 0x08000100); }), builtUTF8) << version;
    EXPECT_EQ(callsOf([&] { built(utf16, 0x100); }), builtUTF16) << version;
    EXPECT_EQ(callsOf([&] { built(utf32, 0x0C000100); }), builtUTF32) << version;
  }
}

uint32_t builtUnder;
REALstring noteEncoding(const void*, int32_t, uint32_t encoding) {
  builtUnder = encoding;
  return nullptr;
}

TEST_F(Strings, OfUTF32AreLeftToTheHostFrom2013On) {
  intercept("REALBuildStringWithEncoding", reinterpret_cast<void*>(&noteEncoding));
  const std::pair<double, uint32_t> cases[] = {{2012.0, 0x100}, {2012.999, 0x100}, {2013.0, 0x0C000100}};
  for (const auto& [version, encoding] : cases) {
    hostVersion = version;
    EXPECT_EQ(built(bytesOf(std::u32string_view(U"ab")), 0x0C000100), "nil") << version;
    EXPECT_EQ(builtUnder, encoding) << version;
  }
}

std::u16string unitsOf(REALstring text) {
  const auto string = bridge::ownedString(text);
  std::u16string units(NSString::length(string), u'\0');
  if (string) NSString::getCharacters(string, units.data());
  return units;
}

TEST_F(Strings, ReadInPlaceKeepTheirUnits) {
  switchOff("REALGetStringCFString");
  const struct {
    const char* what;
    std::string bytes;
    uint32_t encoding;
    std::u16string units;
  } cases[] = {
      {"a mark at the start of units is a character", bytesOf(std::u16string_view(u"\uFEFFa")), 0x100, u"\uFEFFa"},
      {"a lone high surrogate", bytesOf(std::u16string_view(u"\xD800x")), 0x100, u"\xD800x"},
      {"a lone low surrogate", bytesOf(std::u16string_view(u"\xDC00")), 0x100, u"\xDC00"},
      {"a zero unit", bytesOf(std::u16string_view(u"a\0b", 3)), 0x100, std::u16string(u"a\0b", 3)},
      {"one byte of a unit", "a", 0x100, u""},
      {"UTF-32 of the machine's order", bytesOf(std::u32string_view(U"\U0000FEFFa")), 0x0C000100, u"a"},
      {"UTF-32 of the other order", std::string("\0\0\xFE\xFF\0\0\0a", 8), 0x0C000100, u"a"},
      {"UTF-16 of the other order by its mark", std::string("\0a", 2), 0x10000100, u"a"},
      {"the last character in UTF-8", "\xF4\x8F\xBF\xBF", 0x08000100, u"\U0010FFFF"},
      {"the last character in UTF-16", bytesOf(std::u16string_view(u"\U0010FFFF")), 0x100, u"\U0010FFFF"},
      {"the last character in UTF-32", bytesOf(std::u32string_view(U"\U0010FFFF")), 0x0C000100, u"\U0010FFFF"},
      {"one byte of UTF-32", "a", 0x0C000100, u""},
      {"three bytes of UTF-32", std::string("a\0\0", 3), 0x0C000100, u""},
      {"beyond the last character", std::string("\0\0\x11\0", 4), 0x0C000100, u""},
  };
  for (const auto& [what, bytes, encoding, units] : cases) {
    EXPECT_EQ(unitsOf(hostString(bytes, encoding)), units) << what;
  }
}

TEST_F(Strings, OfTheLastCharacterGoBothWaysOnEveryHost) {
  for (const Host& host : hosts) {
    if (!host.givesPlatformStrings) switchOff("REALGetStringCFString");
    hostVersion = host.version;
    const std::pair<std::string, uint32_t> forms[] = {{"\xF4\x8F\xBF\xBF", 0x08000100},
                                                      {bytesOf(std::u16string_view(u"\U0010FFFF")), 0x100},
                                                      {bytesOf(std::u32string_view(U"\U0010FFFF")), 0x0C000100}};
    for (const auto& [bytes, encoding] : forms) {
      EXPECT_EQ(built(bytes, encoding), "8000100: \xF4\x8F\xBF\xBF") << host.name << ", encoding " << std::hex << encoding;
      EXPECT_EQ(unitsOf(hostString(bytes, encoding)), u"\U0010FFFF") << host.name << ", encoding " << std::hex << encoding;
    }
  }
}

TEST_F(Strings, OfLessThanAUnitAreBuiltOfNothing) {
  for (const double version : {2011.9, 2012.0, 2012.999}) {
    hostVersion = version;
    for (const char* bytes : {"a", "ab", "abc"}) EXPECT_EQ(built(bytes, 0x0C000100), "nil") << version << bytes;
  }
}

TEST_F(Strings, WhoseBytesAreNotToBeHadAreNil) {
  for (const char* service : {"StringGetCString", "LenB( s as string ) as integer", "REALLoadGlobalMethod"}) {
    switchOff("REALGetStringCFString");
    switchOff(service);
    for (const uint32_t encoding : {0xFFFFU, 0U, 0x100U, 0x600U, 0x08000100U, 0x0C000100U}) {
      const auto string = bridge::ownedString(hostString("abcd", encoding));
      if (std::string_view(service) == "StringGetCString") {
        EXPECT_EQ(string, nullptr) << service << ", encoding " << std::hex << encoding;
      } else {
        EXPECT_EQ(NSString::length(string), 0U) << service << ", encoding " << std::hex << encoding;
      }
    }
    allOn();
  }
}

// A string builder that fails its first so many times, each time in the same way; then the host's own again.
int failuresLeft;
void (*fail)();
REALstring failing(const void* bytes, int32_t length) {
  if (failuresLeft > 0) {
    --failuresLeft;
    fail();
  }
  return reinterpret_cast<REALstring (*)(const void*, int32_t)>(host::Runtime::resolve("REALBuildString"))(bytes, length);
}

// The first exception that the host program gets to see: a host throws one at the latest when the library returns to it.
template <class Body>
std::string seen(Body&& body) {
  try {
    body();
  } catch (const host::HostException& exception) {
    return exception.className() + ": " + exception.message();
  }
  return bridge_test::raisedException();
}

TEST_F(Strings, ThatCannotBeBuiltRaiseWhatTheBuilderThrew) {
  intercept("REALBuildString", reinterpret_cast<void*>(&failing));
  const struct {
    void (*fail)();
    const char* hostClass;
    const char* message;
  } cases[] = {
      {[] { throw std::bad_alloc(); }, "OutOfMemoryException", "Failed to allocate memory."},
      {[] { throw std::out_of_range("far out"); }, "OutOfBoundsException", "far out"},
      {[] { throw std::overflow_error("too much"); }, "OutOfBoundsException", "too much"},
      {[] { throw 5; }, "RuntimeException", "Sorry, but there was an unnamed C++ Exception."},
      {[] { host::throwException("NilObjectException", "lost"); }, "RuntimeException",
       "Sorry, but there was an unnamed C++ Exception."},
  };
  for (const auto& [thrown, hostClass, message] : cases) {
    fail = thrown;
    failuresLeft = 1;
    EXPECT_EQ(seen([] { EXPECT_EQ(built("abcd", 0x08000100), "nil"); }), std::string(hostClass) + ": " + message);
    failuresLeft = INT_MAX;
    EXPECT_EQ(seen([] { EXPECT_EQ(built("abcd", 0x08000100), "nil"); }), std::string(hostClass) + ": ")
        << "the message cannot be built either";
    failuresLeft = 0;
    EXPECT_EQ(built("abcd", 0x08000100), "8000100: abcd");
  }
}

TEST_F(Strings, OfMessagesThatCannotBeBuiltSayWhyWhereTheyCan) {
  intercept("REALBuildString", reinterpret_cast<void*>(&failing));
  fail = [] { throw std::bad_alloc(); };
  const std::pair<int, const char*> cases[] = {{0, "NilObjectException: lost"},
                                               {1, "OutOfMemoryException: Failed to allocate memory."},
                                               {INT_MAX, "OutOfMemoryException: "},
                                               {0, "NilObjectException: lost"}};
  for (const auto& [failures, expected] : cases) {
    failuresLeft = failures;
    EXPECT_EQ(seen([] { plugin::RaiseException("NilObjectException", "lost"); }), expected) << failures;
  }
}

}  // namespace
