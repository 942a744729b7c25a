// NSLog: conversions, arguments by position, what reaches the sink and standard error.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdarg>
#include <functional>
#include <regex>

#include "standin/foundation/log.hpp"
#include "tests/standin/string_support.hpp"

namespace {

using string_support::text;
using string_support::units;

std::string logged(const std::function<void()>& action) {
  std::string messages;
  standin_setLogSink(
      [](void* context, const char* message, size_t length) { static_cast<std::string*>(context)->append(message, length); },
      &messages);
  action();
  standin_setLogSink(nullptr, nullptr);
  return messages;
}

template <class... Arguments>
std::string line(std::u16string_view format, Arguments... arguments) {
  const AutoreleasePool pool;
  return logged([&] { NSLog(text(format), arguments...); });
}

TEST(Log, ConvertsAsPrintfDoes) {
  const char16_t wide[] = u"wid\u00E9";
  EXPECT_EQ(line(u"plain 100%% é\n"), "plain 100% é\n");
  EXPECT_EQ(line(u"%d %i %u %5d|%-5d|%05d|%+d", -1, 2, 4000000000U, 42, 42, 42, 42),
            "-1 2 4000000000    42|42   |00042|+42");
  EXPECT_EQ(line(u"%ld %lu %lld %llu %zu %qd", -5L, 6UL, -7LL, UINT64_MAX, size_t{9}, 10LL),
            "-5 6 -7 18446744073709551615 9 10");
  EXPECT_EQ(line(u"%hhd %hu %hhu", 200, 70000, 300), "-56 4464 44");
  EXPECT_EQ(line(u"%x %X %o %#x %08lx", 255, 255, 8, 255, 0xABCDEFL), "ff FF 10 0xff 00abcdef");
  EXPECT_EQ(line(u"%f %.2f %g %e %8.3f|%-8.1f|%.0f", 1.5, 2.345, 1e20, 12345.678, 3.14159, 2.25, 2.5),
            "1.500000 2.35 1e+20 1.234568e+04    3.142|2.2     |2");
  EXPECT_EQ(line(u"%Lg", 0.1L), "0.1");
  EXPECT_EQ(line(u"%c%c %C%C", 'o', 0xE9, 0x6F22, 0x21), "oé 漢!");
  EXPECT_EQ(line(u"%s %.3s %6s|%-6s| %S %s", "utf8 é", "cut off", "r", "l", wide, "mac \x8E"),
            "utf8 é cut      r|l     | widé mac é");
  EXPECT_EQ(line(u"%s %S %p %p", nullptr, nullptr, nullptr, reinterpret_cast<void*>(0xBEEF)), "(null) (null) 0x0 0xbeef");
  EXPECT_EQ(line(u"%*d|%-*d|%.*f|%*d", 4, 7, 4, 7, 1, 2.55, -4, 7), "   7|7   |2.5|7   ");
}

TEST(Log, DescribesObjects) {
  const AutoreleasePool pool;
  EXPECT_EQ(line(u"A %@: %@, Info: %@\n", NSRangeException, text(u"réason"), static_cast<NSObject*>(nullptr)),
            "A NSRangeException: réason, Info: (null)\n");
  EXPECT_EQ(line(u"%10@|%-4@|%.2@", text(u"r"), text(u"l"), text(u"cut")), "         r|l   |cu");
  EXPECT_EQ(line(u"%@", static_cast<NSObject*>(classOf<NSString>())), "NSString");
  EXPECT_EQ(line(u"half \xD800 %@", text(u"\xDC00")), "half \xEF\xBF\xBD \xEF\xBF\xBD");
}

TEST(Log, TakesArgumentsByPosition) {
  const AutoreleasePool pool;
  EXPECT_EQ(line(u"%2$@ %1$d %3$g %1$x", 255, text(u"two"), 1.5), "two 255 1.5 ff");
  EXPECT_EQ(line(u"%2$*1$d|", 5, 42), "   42|");
}

TEST(Log, LeavesWhatIsNoConversionAsItStands) {
  EXPECT_EQ(line(u"100%\u00A0safe, %y %"), "100%\u00A0safe, %y %");
  EXPECT_EQ(line(u"%y %d", 3), "%y 3");
  EXPECT_EQ(line(u"50%漢 %d", 3), "50%漢 3");
}

TEST(Log, GoesToStandardErrorWithDateAndProcessOneLineEach) {
  const AutoreleasePool pool;
  testing::internal::CaptureStderr();
  NSLog(text(u"first"));
  NSLog(text(u"second\n"));
  const std::string output = testing::internal::GetCapturedStderr();
  const std::string process = std::to_string(getpid());
  const std::string date =
      "[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3} [^ ]+\\[" + process + ":[0-9]+\\] ";
  EXPECT_TRUE(std::regex_match(output, std::regex(date + "first\n" + date + "second\n"))) << output;
}

Owned<NSString> formatted(NSString* format, ...) {
  const Message<NSString*(NSString*, va_list)> initWithFormat{"initWithFormat:arguments:"};
  va_list arguments;
  va_start(arguments, format);
  Owned<NSString> string = adopt(initWithFormat(alloc<NSString>(), format, arguments));
  va_end(arguments);
  return string;
}

TEST(Format, AStringKeepsEveryUnit) {
  const AutoreleasePool pool;
  EXPECT_EQ(units(formatted(text(u"<\xD800%@>"), text(u"漢\xDC00"))), u"<\xD800漢\xDC00>");
}

}  // namespace
