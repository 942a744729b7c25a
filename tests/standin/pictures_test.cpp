// Pictures from anywhere: headers that are made to take memory.
#include "standin/formats/pictures/picture.hpp"

#include <gtest/gtest.h>

namespace {

namespace pictures = standin::formats::pictures;
using namespace std::string_literals;

std::span<const uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

std::string number(uint32_t value) { return {reinterpret_cast<const char*>(&value), sizeof value}; }

std::string bmp(uint32_t headerLength, uint32_t width, uint32_t height, uint32_t pixelsPlace = 54) {
  return "BM"s + number(58) + number(0) + number(pixelsPlace) + number(headerLength) + number(width) + number(height) +
         "\1\0\x18\0"s + std::string(24, '\0') + "\1\2\3\0"s;
}

TEST(Pictures, HeadersThatClaimMoreThanThereIsAreNone) {
  ASSERT_TRUE(pictures::sizeOf(bytesOf(bmp(40, 1, 1))));
  for (const uint32_t length : {59U, 0x04017F00U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    EXPECT_FALSE(pictures::sizeOf(bytesOf(bmp(length, 1, 1)))) << length;
    EXPECT_FALSE(pictures::decode(bytesOf(bmp(length, 1, 1)))) << length;
    EXPECT_FALSE(pictures::decode(bytesOf(bmp(40, 1, 1, length)))) << length;
  }
}

// Nothing but headers, with what a decoder passes over: sizes are asked for often, and pixels may take seconds.
TEST(Pictures, SizesAreReadFromHeadersAlone) {
  const std::string sizes = "\0\0\1\2\0\0\0\3"s, frame = "\xFF\xC2\0\x11\x8\0\3\1\2\3"s;
  const std::string pictures[] = {"\x89PNG\r\n\x1A\n\0\0\0\xDIHDR"s + sizes,
                                  "GIF89a\2\1\3\0"s,
                                  "\xFF\xD8\xFF\xE0\0\6\xFF\xC0\0\0\xFF\xFF\xDB\0\2 \xFF\x1"s + frame,
                                  bmp(40, 258, static_cast<uint32_t>(-3)),
                                  "BM"s + std::string(12, '\0') + number(12) + "\2\1\3\0"s,
                                  "II*\0"s + number(8) + "\2\0\0\1\3\0\1\0\0\0\2\1\0\0\1\1\4\0\1\0\0\0\3\0\0\0"s,
                                  "MM\0*\0\0\0\x8\0\2\1\0\0\3\0\0\0\1\1\2\0\0\1\1\0\4\0\0\0\1\0\0\0\3"s};
  for (const std::string& picture : pictures) {
    const auto size = pictures::sizeOf(bytesOf(picture));
    ASSERT_TRUE(size) << testing::PrintToString(picture);
    EXPECT_EQ(std::pair(size->width, size->height), std::pair(258, 3)) << testing::PrintToString(picture);
    EXPECT_FALSE(pictures::sizeOf(bytesOf(picture).first(8))) << testing::PrintToString(picture);
  }
}

TEST(Pictures, LargeOnesAreNotDecoded) {
  const std::string large = bmp(40, 20'000, 20'000);
  const auto size = pictures::sizeOf(bytesOf(large));
  ASSERT_TRUE(size);
  EXPECT_EQ(size->width, 20'000);
  EXPECT_FALSE(pictures::decode(bytesOf(large)));
  EXPECT_FALSE(pictures::convert(bytesOf(large), pictures::Format::png));
}

}  // namespace
