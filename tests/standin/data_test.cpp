// Data, whole files, character sets and exceptions.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "standin/foundation/data.hpp"
#include "standin/foundation/string.hpp"
#include "tests/standin/string_support.hpp"

namespace {

using standin::foundation::newData;
using standin::foundation::newMutableData;
using string_support::raised;
using string_support::text;

const Message<NSData*(NSRange)> subdata{"subdataWithRange:"};
const Message<void(const void*, NSUInteger)> appendBytes{"appendBytes:length:"};
const Message<void(NSUInteger)> setLength{"setLength:"};
const Message<void(NSRange, const void*, NSUInteger)> replaceBytes{"replaceBytesInRange:withBytes:length:"};
const Message<NSData*(NSString*)> withContentsOfFile{"dataWithContentsOfFile:"};
const Message<BOOL(NSString*, BOOL)> writeToFile{"writeToFile:atomically:"};

std::string bytes(NSData* data) { return {static_cast<const char*>(NSData::bytes(data)), NSData::length(data)}; }

TEST(Data, CopiesWhatItIsGiven) {
  const AutoreleasePool pool;
  char source[] = "bytes";
  NSData* const data = NSData::dataWithBytes(classOf<NSData>(), source, 5);
  source[0] = 'X';
  EXPECT_EQ(bytes(data), "bytes");
  EXPECT_EQ(NSData::bytes(NSData::dataWithBytes(classOf<NSData>(), source, 0)), nullptr);
  EXPECT_NE(raised([] { NSData::dataWithBytes(classOf<NSData>(), nullptr, 1); }), "");
  EXPECT_EQ(bytes(subdata(data, {1, 3})), "yte");
  EXPECT_EQ(raised([&] {
              subdata(data, {3, 3});
            }),
            "NSRangeException: -[NSConcreteData subdataWithRange:]: Range {3, 3} out of bounds; data length 5");
  EXPECT_STREQ(NSString::UTF8String(NSObject::description(data)), "<62797465 73>");
}

TEST(Data, EditsLeaveCopiesAlone) {
  const AutoreleasePool pool;
  const Owned<NSData> data = newMutableData("0123456789");
  const Owned<NSObject> copy = adopt(NSObject::copy(data));
  EXPECT_TRUE(NSObject::isEqual(data, copy));
  EXPECT_EQ(NSObject::hash(data), NSObject::hash(copy));
  appendBytes(data, "ab", 2);
  replaceBytes(data, {0, 5}, "-", 1);
  setLength(data, 9);
  EXPECT_EQ(bytes(data), std::string("-56789ab\0", 9));
  EXPECT_EQ(bytes(static_cast<NSData*>(copy.get())), "0123456789");
  EXPECT_FALSE(NSObject::isEqual(data, copy));
  EXPECT_FALSE(NSObject::isEqual(data, text(u"0123456789")));
  EXPECT_NE(raised([&] { replaceBytes(data, {9, 1}, "x", 1); }), "");
}

class WholeFiles : public testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(mkdtemp(folder_.data()), nullptr); }
  void TearDown() override {
    unlink(path("file").c_str());
    EXPECT_EQ(rmdir(folder_.c_str()), 0) << "something was left behind";
  }
  std::string path(const char* name) const { return folder_ + "/" + name; }
  NSString* pathText(const char* name) const {
    return NSString::stringWithUTF8String(classOf<NSString>(), path(name).c_str());
  }

  std::string folder_ = "/tmp/standin-data-XXXXXX";
};

TEST_F(WholeFiles, AreReadAndWrittenWhole) {
  const AutoreleasePool pool;
  for (const BOOL atomically : {NO, YES}) {
    for (const size_t size : {0U, 1U, 65536U, 300000U}) {
      const Owned<NSData> data = newData(std::string(size, 'x'));
      EXPECT_TRUE(writeToFile(data, pathText("file"), atomically));
      EXPECT_TRUE(NSObject::isEqual(withContentsOfFile(classOf<NSData>(), pathText("file")), data)) << size;
    }
  }
}

TEST_F(WholeFiles, KeepTheirPermissionsAndFailuresSaySo) {
  const AutoreleasePool pool;
  const Owned<NSData> data = newData(std::string("x"));
  std::ofstream(path("file")) << "old";
  ASSERT_EQ(chmod(path("file").c_str(), 0604), 0);
  EXPECT_TRUE(writeToFile(data, pathText("file"), YES));
  struct stat status;
  ASSERT_EQ(stat(path("file").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0604U);
  EXPECT_EQ(withContentsOfFile(classOf<NSData>(), pathText("missing")), nullptr);
  EXPECT_EQ(withContentsOfFile(classOf<NSData>(), pathText("")), nullptr) << "a folder is no file";
  EXPECT_FALSE(writeToFile(data, pathText("no/folder"), YES));
  EXPECT_FALSE(writeToFile(data, pathText("no/folder"), NO));
}

TEST_F(WholeFiles, ThatDoNotKnowTheirSizeAreReadWhole) {
  const std::optional<std::string> status = standin::foundation::readFile("/proc/self/status");
  ASSERT_TRUE(status);
  EXPECT_NE(status->find("VmPeak"), std::string::npos);
}

TEST(CharacterSets, HoldTheCategoriesTheySay) {
  const struct {
    const char* selector;
    std::u16string members, others;
  } rows[] = {
      {"whitespaceAndNewlineCharacterSet", u"\t\n\v\f\r \u0085\u00A0\u1680\u2003\u2028\u2029\u202F\u205F\u3000",
       u"a\u0008\u000E\u001C\u001F\u200B\u2060\uFEFF\u180E"},
      {"whitespaceCharacterSet", u"\t \u00A0\u3000", u"\n\r\u2028\u0085\v"},
      {"newlineCharacterSet", u"\n\v\f\r\u0085\u2028\u2029", u" \t\u00A0"},
      {"decimalDigitCharacterSet", u"09\u0660", u"aⅣ²"},
      {"letterCharacterSet", u"aÉ漢\u0301", u"1 _"},
      {"alphanumericCharacterSet", u"a1²漢", u"-_ "},
      {"punctuationCharacterSet", u".,_!»", u"a+$"},
      {"uppercaseLetterCharacterSet", u"AÉǅ", u"aé1"},
  };
  for (const auto& row : rows) {
    const AutoreleasePool pool;
    const Message<NSCharacterSet*()> named{row.selector};
    NSCharacterSet* const set = named(classOf<NSCharacterSet>());
    EXPECT_EQ(set, named(classOf<NSCharacterSet>()));
    const Message<NSCharacterSet*()> inverted{"invertedSet"};
    for (const char16_t unit : row.members) {
      EXPECT_TRUE(NSCharacterSet::characterIsMember(set, unit)) << row.selector << " " << std::hex << int{unit};
      EXPECT_FALSE(NSCharacterSet::characterIsMember(inverted(set), unit));
    }
    for (const char16_t unit : row.others) {
      EXPECT_FALSE(NSCharacterSet::characterIsMember(set, unit)) << row.selector << " " << std::hex << int{unit};
      EXPECT_TRUE(NSCharacterSet::characterIsMember(inverted(set), unit));
    }
  }
}

TEST(CharacterSets, AreMadeFromStringsAndTrimThem) {
  const AutoreleasePool pool;
  const Message<NSCharacterSet*(NSString*)> fromString{"characterSetWithCharactersInString:"};
  const Message<NSString*(NSCharacterSet*)> trimming{"stringByTrimmingCharactersInSet:"};
  const Message<BOOL(uint32_t)> hasLong{"longCharacterIsMember:"};
  NSCharacterSet* const set = fromString(classOf<NSCharacterSet>(), text(u"<>\U0001F600"));
  EXPECT_TRUE(hasLong(set, 0x1F600));
  EXPECT_FALSE(hasLong(set, 0x110000));
  EXPECT_FALSE(NSCharacterSet::characterIsMember(set, 0xD83D));
  EXPECT_EQ(string_support::units(trimming(text(u"<<a<b>"), set)), u"a<b");
  EXPECT_EQ(string_support::units(trimming(text(u"<>"), set)), u"");
  EXPECT_NE(raised([&] { fromString(classOf<NSCharacterSet>(), nullptr); }), "");
}

TEST(Exceptions, CarryNameReasonAndInformationAndAreCopied) {
  const AutoreleasePool pool;
  const Owned<NSObject> reason = adopt(NSObject::mutableCopy(text(u"why")));
  NSException* const made = NSException::exceptionWithName(classOf<NSException>(), NSGenericException,
                                                           static_cast<NSString*>(reason.get()), nullptr);
  const Message<void(NSString*)> append{"appendString:"};
  append(reason, text(u" changed later"));
  EXPECT_EQ(raised([&] { NSException::raise(made); }), "NSGenericException: why");
  EXPECT_EQ(NSException::userInfo(made), nullptr);
  EXPECT_STREQ(NSString::UTF8String(NSObject::description(made)), "why");
  NSException* const bare = NSException::exceptionWithName(classOf<NSException>(), NSGenericException, nullptr, nullptr);
  EXPECT_STREQ(NSString::UTF8String(NSObject::description(bare)), "NSGenericException");
  EXPECT_EQ(NSException::reason(bare), nullptr);
}

}  // namespace
