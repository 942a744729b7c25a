// Attribute sets: equal ones are one, they keep what they hold alive, and they go when nobody holds them.
#include "standin/text/attribute_set.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "standin/appkit/attributes.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/text/style_hash.hpp"

namespace {

using namespace standin::text;
using standin::foundation::constantString;
using standin::foundation::newMutableString;
using standin::foundation::newNumber;
using standin::foundation::newString;

NSString* const alpha = constantString("alpha");
NSString* const beta = constantString("beta");

AttributeSet set(std::vector<Attribute> attributes) { return AttributeSet::of(attributes); }

TEST(AttributeSet, IsOneForEqualAttributesHoweverTheyCameTogether) {
  const Owned<NSNumber> one = newNumber(1), two = newNumber(2);
  const AttributeSet both = set({{alpha, one}, {beta, two}});
  const Owned<NSString> copyOfAlpha = newString(std::string_view("alpha"));
  const Owned<NSNumber> otherOne = newNumber(1);
  const AttributeSet same[] = {
      set({{beta, two}, {alpha, one}}),
      set({{alpha, two}, {beta, two}, {alpha, one}}),  // the last of equal keys holds
      AttributeSet().with(beta, two).with(alpha, one),
      AttributeSet().with(beta, one).with(copyOfAlpha.get(), otherOne.get()).with(beta, two),
      set({{alpha, one}}).with(set({{beta, two}})),
      set({{alpha, two}, {beta, two}}).with(set({{alpha, one}})),
      both.with(constantString("gamma"), one).without(constantString("gamma")),
      both.without(constantString("gamma")),
  };
  for (const AttributeSet& other : same) EXPECT_EQ(other.handle(), both.handle());
  EXPECT_EQ(AttributeSet::living(), 1U);
  EXPECT_EQ(both.without(alpha).without(beta), AttributeSet());
  EXPECT_EQ(both.find(copyOfAlpha.get()), one.get());
  EXPECT_EQ(both.find(constantString("gamma")), nullptr);
}

// What a program could tell apart is not made the same.
TEST(AttributeSet, KeepsApartWhatProgramsCanTellApart) {
  const AttributeSet integer = AttributeSet().with(alpha, newNumber(1).get());
  EXPECT_NE(integer, AttributeSet().with(alpha, newNumber(1.0).get()));
  EXPECT_NE(integer, AttributeSet().with(alpha, newNumber(true).get()));
  EXPECT_NE(integer, AttributeSet().with(beta, newNumber(1).get()));

  const Owned<NSString> fixed = newString(std::string_view("text"));
  const Owned<NSMutableString> changing = newMutableString(Text::latin1("text"));
  const AttributeSet withFixed = AttributeSet().with(alpha, fixed.get());
  EXPECT_NE(withFixed, AttributeSet().with(alpha, changing.get()));
  EXPECT_EQ(withFixed, AttributeSet().with(alpha, newString(std::string_view("text")).get()));
}

struct Changeable : standin::Object {};
int questions = 0;  // whether one is equal to another
const standin::ClassDefinition changeable =
    standin::defineClass<Changeable>("AttributeSetTestChangeable", "NSObject")
        .method<+[](NSObject* self, NSObject* other) -> BOOL { return ++questions, self == other; }>("isEqual:")
        .method<+[](Changeable&) -> NSUInteger { return 1; }>("hash");

// Pictures by the thousand look alike, and to compare two of them takes reading their files.
TEST(AttributeSet, DoesNotCompareWhatCanChange) {
  std::vector<Owned<NSObject>> values;
  std::vector<AttributeSet> sets;
  for (int index = 0; index < 20; ++index) {
    values.push_back(standin::create<Changeable, NSObject>(changeable));
    sets.push_back(set({{alpha, values.back().get()}}));
    EXPECT_EQ(sets.back(), set({{alpha, values.back().get()}}));
  }
  EXPECT_EQ(AttributeSet::living(), 20U);
  EXPECT_EQ(questions, 0);
}

TEST(AttributeSet, TabStopsOfDifferentKindsHashApart) {
  const auto hashOf = [](TabStop stop) { return standin::text::hashOf(Paragraph{.tabs = std::vector<TabStop>{stop}}); };
  EXPECT_NE(hashOf({0, TabKind::right}), hashOf({1, TabKind::left}));
}

// What was remembered of one set must not answer for another that came to its place, nor for an object at a freed address.
TEST(AttributeSet, ForgetsSetsThatAreGone) {
  for (int round = 0; round < 200; ++round) {
    const AttributeSet base = AttributeSet().with(beta, newNumber(round % 7).get());
    const Owned<NSNumber> value = newNumber(round);
    const AttributeSet first = base.with(alpha, value.get()), again = base.with(alpha, value.get());
    EXPECT_EQ(first, again);
    EXPECT_EQ(standin::foundation::integerOf(static_cast<NSNumber*>(first.find(alpha))), round);
    EXPECT_EQ(first.without(alpha), base);
    EXPECT_EQ(first.without(alpha), base);
  }
  EXPECT_EQ(AttributeSet::living(), 0U);
}

TEST(AttributeSet, KeepsKeysValuesAndItsDictionaryAlive) {
  NSDictionary* dictionary;
  {
    AttributeSet set;
    {
      const Owned<NSMutableString> key = newMutableString(Text::latin1("key"));
      set = AttributeSet().with(key.get(), newNumber(300).get());
      standin::text::Text& text = standin::stateOf<standin::foundation::String>(key.get()).text;
      text.append(std::string_view("changed afterwards"));
    }
    dictionary = standin::appkit::dictionaryOf(set.handle());
    EXPECT_EQ(dictionary, standin::appkit::dictionaryOf(AttributeSet(set).handle()));
    NSObject* const value = standin::foundation::find(dictionary, constantString("key"));
    EXPECT_EQ(standin::foundation::integerOf(value), 300);
    NSObject::retain(dictionary);
  }
  EXPECT_EQ(NSObject::retainCount(dictionary), 1U);
  EXPECT_EQ(standin::appkit::attributeSetOf(dictionary).attributes().size(), 1U);
  NSObject::release(dictionary);
}

// A dictionary whose set is known is still read when the set has gone, or when the dictionary can change.
TEST(AttributeSet, IsThatOfWhatADictionaryHoldsNow) {
  using standin::appkit::attributeSetOf;
  const Owned<NSNumber> one = newNumber(1), two = newNumber(2);
  const Owned<NSDictionary> fixed = standin::foundation::newDictionary({{alpha, one.get()}});
  for (int round = 0; round < 3; ++round) {
    const AttributeSet known = attributeSetOf(fixed);
    EXPECT_EQ(known, attributeSetOf(fixed));
    EXPECT_EQ(known.find(alpha), one.get());
  }
  const AttributeSet inItsPlace = set({{alpha, two}});
  EXPECT_EQ(attributeSetOf(fixed).find(alpha), one.get());

  const Owned<NSMutableDictionary> changing = standin::foundation::newMutableDictionary(fixed);
  EXPECT_EQ(attributeSetOf(changing).find(alpha), one.get());
  standin::foundation::set(changing, alpha, two);
  EXPECT_EQ(attributeSetOf(changing), inItsPlace);
}

}  // namespace
