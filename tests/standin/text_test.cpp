// Text against a naive model: flat and in a tree, in bytes and in 16-bit units.
#include "standin/text/text.hpp"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>

#include "tests/standin/random_edits.hpp"

namespace {

using namespace standin::text;

std::u16string unitsOf(const Text& text, uint32_t from, uint32_t count) {
  std::u16string units(count, u'\0');
  text.copy(from, count, units.data());
  return units;
}
std::u16string unitsOf(const Text& text) { return unitsOf(text, 0, text.size()); }

// Mostly Latin-1 letters, with breaks, and now and then stretches that need 16 bits.
std::u16string randomUnits(RandomEdits& random, size_t length) {
  static constexpr char16_t rare[] = {u'\n', u'\r', u'\u2029', 0xFFFC, 0xD83D, 0xDE00, u'\u6F22', u'\x85'};
  const bool isNarrow = !random.oneIn(4);
  std::u16string units;
  while (units.size() < length) {
    const bool isRare = random.oneIn(isNarrow ? 60 : 6);
    const char16_t other = rare[isNarrow ? random.upTo(1) : random.upTo(std::size(rare) - 1)];
    units.push_back(isRare ? other : static_cast<char16_t>(u'a' + random.upTo(150)));
  }
  return units;
}

// A text and what it should hold.
struct Pair {
  Text text;
  std::u16string model;
};

void expectSame(const Pair& pair, RandomEdits& random) {
  const auto& [text, model] = pair;
  text.checkInvariants();
  ASSERT_EQ(text.size(), model.size());
  ASSERT_TRUE(unitsOf(text) == model);
  ASSERT_TRUE(text == Text::utf16(model));
  if (model.empty()) return;
  const uint32_t at = random.upTo(model.size() - 1), count = random.upTo(model.size() - at);
  EXPECT_EQ(text[at], model[at]);
  const Text slice = text.slice(at, count);
  ASSERT_TRUE(unitsOf(slice) == model.substr(at, count));
  ASSERT_NO_THROW(slice.checkInvariants());
  const auto isAttachment = [](char16_t unit) { return unit == 0xFFFC; };
  EXPECT_EQ(text.attachmentCharacters(at, count),
            std::count_if(model.begin() + at, model.begin() + at + count, isAttachment));
  EXPECT_EQ(text.paragraphs(at, count), Text::utf16(model).paragraphs(at, count));
}

void edit(Pair& pair, RandomEdits& random, const Pair& other) {
  auto& [text, model] = pair;
  const uint32_t from = random.oneIn(4) ? text.size() : random.upTo(model.size());
  const uint32_t removed = random.oneIn(6) ? random.upTo(model.size() - from) : std::min(random.upTo(9), text.size() - from);
  if (random.oneIn(30)) {  // a piece of another text, or of itself
    const uint32_t start = random.upTo(other.model.size()), count = random.upTo(other.model.size() - start);
    const std::u16string piece = other.model.substr(start, count);
    text.splice(from, removed, other.text.slice(start, count));
    model.replace(from, removed, piece);
  } else if (random.oneIn(5)) {
    const std::u16string units = randomUnits(random, random.upTo(30));
    text.append(units);
    model += units;
  } else {
    const std::u16string units = randomUnits(random, random.upTo(random.oneIn(40) ? 3000 : 12));
    text.splice(from, removed, Text::utf16(units));
    model.replace(from, removed, units);
  }
}

TEST(Text, AgreesWithTheModelAfterRandomEdits) {
  for (const size_t limit : {200U, 6000U, 60000U}) {  // always flat, sometimes a tree, mostly a tree
    SCOPED_TRACE(limit);
    SCOPED_TRACE(RandomEdits::seed());
    RandomEdits random(2500);
    std::array<Pair, 3> kept;
    Pair pair;
    for (int round = 0; round < random.rounds(); ++round) {
      edit(pair, random, random.oneIn(3) ? pair : kept[random.upTo(2)]);
      if (pair.model.size() > limit) {
        const auto half = static_cast<uint32_t>(pair.model.size() / 2);
        pair.text.splice(half / 2, half, Text());
        pair.model.erase(half / 2, half);
      }
      if (random.oneIn(20)) kept[random.upTo(2)] = pair;
      if (random.oneIn(20)) {
        ASSERT_NO_FATAL_FAILURE(expectSame(pair, random)) << "round " << round;
      }
      if (random.oneIn(200)) {
        ASSERT_NO_FATAL_FAILURE(expectSame(kept[random.upTo(2)], random)) << "round " << round;
      }
    }
  }
}

// The tree alone, with leaves of four units.
TEST(Text, TreeAgreesWithTheModelInTinyNodes) {
  using Tree = SummedTree<TextLeaf<4>, 4>;
  RandomEdits random(20000);
  SCOPED_TRACE(RandomEdits::seed());
  Tree tree;
  std::u16string model;
  for (int round = 0; round < random.rounds(); ++round) {
    const uint32_t from = random.upTo(model.size()), removed = std::min<uint32_t>(random.upTo(5), tree.sum().units - from);
    const std::u16string units = randomUnits(random, random.upTo(model.size() > 300 ? 3 : 7));
    tree.replace(from, removed, UnitSpan(std::span<const char16_t>(units)));
    model.replace(from, removed, units);
    std::u16string read;
    ASSERT_NO_THROW(tree.checkInvariants([&](const auto& leaf) {
      leaf.content().visit([&](auto span) { read.append(span.begin(), span.end()); });
    })) << round;
    ASSERT_TRUE(read == model) << round;
  }
}

TEST(Text, FindsParagraphs) {
  const struct {
    std::u16string text;
    uint32_t from, count;
    UnitRange expected;
  } rows[] = {
      {u"", 0, 0, {0, 0}},
      {u"one", 3, 0, {0, 3}},
      {u"one\n", 4, 0, {4, 0}},
      {u"one\ntwo\nthree", 5, 0, {4, 4}},
      {u"one\ntwo\nthree", 4, 4, {4, 4}},
      {u"one\ntwo\nthree", 2, 3, {0, 8}},
      {u"one\r\ntwo", 4, 0, {0, 5}},  // between CR and LF
      {u"one\r\ntwo", 5, 1, {5, 3}},
      {u"one\n\rtwo", 4, 0, {4, 1}},  // LF CR are two breaks
      {u"one\u2028two\u2029three", 0, 1, {0, 8}},
      {u"\r\n", 0, 0, {0, 2}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Text::utf16(row.text).paragraphs(row.from, row.count), row.expected) << row.from << " " << row.count;
    // The same behind a long text that is edited inside, and so is a tree.
    Text large = Text::latin1(std::string(9000, 'x') + "\n");
    large.splice(10, 1, Text::latin1("y"));
    const uint32_t before = large.size();
    large.append(row.text);
    const UnitRange found = large.paragraphs(before + row.from, row.count);
    EXPECT_EQ(found, (UnitRange{row.expected.start + before, row.expected.length})) << row.from << " " << row.count;
  }
}

TEST(Text, IsHeldInBytesWhileItCanBe) {
  Text text = Text::utf16(std::u16string(100000, u'\u00FF'));
  EXPECT_LT(text.bytesHeld(), 110000U);
  text.splice(50000, 0, Text::utf16(u"\u0100"));  // widens the leaf around it alone
  EXPECT_LT(text.bytesHeld(), 140000U);
  EXPECT_EQ(text[50000], u'\u0100');
}

TEST(Text, RefusesMoreThan32BitsOfUnits) {
  Text text = Text::latin1(std::string(1 << 20, 'x'));
  text.splice(5, 0, Text::latin1("y"));
  for (int doubling = 0; doubling < 11; ++doubling) text.append(Text(text));  // shares, and takes no memory to speak of
  const uint32_t size = text.size();
  EXPECT_THROW(text.append(Text(text)), std::length_error);
  EXPECT_EQ(text.size(), size);
}

}  // namespace
