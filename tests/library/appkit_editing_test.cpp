// The editing members whose range comes as two integers, on real text: what each does to every character.
#include "host/runtime/dictionary.hpp"
#include "tests/library/member_calls.hpp"

namespace {

using calls::Arguments;
using calls::Value;

class AppKitEditing : public calls::MemberTest {};

constexpr const char* className = "NSMutableAttributedStringZKT";

Value key(const char* name) { return calls::callShared(className, std::string(name) + " as string"); }

Arguments integers(std::initializer_list<int64_t> numbers) {
  Arguments arguments;
  for (const int64_t number : numbers) arguments.push_back(Value::integer(number));
  return arguments;
}

// "ab" in bold Helvetica and "cd" in plain, a line end, and an attachment character that stands for nothing.
Value sample() {
  const Value styled = calls::html("<b>ab</b>cd", className);
  calls::call(styled, "replaceCharactersInRange(range as NSRangeZKT, text as string)",
              {calls::range(4, 1), Value::string("\ne\uFFFC")});
  return styled;
}

// A style as "b", "i" or "bi", a paragraph as its alignment and direction, any other value as text; "-" for none.
std::string shown(const Value& value) {
  const std::string name = calls::classNameOf(value);
  if (name == "NSFontZKT") {
    const std::string traits = std::string(calls::get(value, "isBold").asBoolean() ? "b" : "") +
                               (calls::get(value, "isItalic").asBoolean() ? "i" : "");
    return traits.empty() ? "p" : traits;
  }
  if (name == "NSParagraphStyleZKT") {
    return std::to_string(calls::get(value, "alignment").word()) + "/" +
           std::to_string(static_cast<int64_t>(calls::get(value, "baseWritingDirection").word()));
  }
  return value.isNil() ? "-" : std::to_string(static_cast<int64_t>(value.word()));
}

// The value of the attribute for each unit of the text.
std::string values(const Value& styled, const char* name) {
  std::string all;
  const uint64_t length = calls::get(styled, "Length").word();
  for (uint64_t at = 0; at < length; ++at) {
    all += (at > 0 ? " " : "") + shown(calls::call(styled, "attributeAtIndex(name as string, location as UInt64) as variant",
                                                   {key(name), Value::unsignedInteger(at)}));
  }
  return all;
}

TEST_F(AppKitEditing, EachMemberRestylesItsRange) {
  const struct {
    std::vector<std::pair<const char*, Arguments>> edits;
    const char* attribute;
    const char* expected;
  } rows[] = {
      {{{"superscriptRange(offset as integer, length as integer)", integers({1, 2})}},
       "NSSuperscriptAttributeName",
       "- 1 1 - - - -"},
      {{{"superscriptRange(offset as integer, length as integer)", integers({0, 3})},
        {"subscriptRange(offset as integer, length as integer)", integers({2, 2})}},
       "NSSuperscriptAttributeName",
       "1 1 - -1 - - -"},
      {{{"superscriptRange(offset as integer, length as integer)", integers({0, 7})},
        {"unscriptRange(offset as integer, length as integer)", integers({2, 5})}},
       "NSSuperscriptAttributeName",
       "1 1 - - - - -"},
      // The mask first, then the range.
      {{{"applyFontTraits(FontTraitMask as Integer, offset as integer, length as integer)", integers({1, 1, 2})}},
       "NSFontAttributeName",
       "b bi i p p p p"},
      {{{"applyFontTraits(FontTraitMask as Integer, offset as integer, length as integer)", integers({4, 1, 3})}},
       "NSFontAttributeName",
       "b p p p p p p"},
      {{{"setAlignment(alignment as Integer, offset as integer, length as integer)", integers({2, 1, 1})}},
       "NSParagraphStyleAttributeName",
       "2/-1 2/-1 2/-1 2/-1 2/-1 - -"},
      {{{"setAlignment(alignment as Integer, offset as integer, length as integer)", integers({1, 4, 2})},
        {"setBaseWritingDirection(writingDirection as Integer, offset as integer, length as integer)", integers({1, 6, 1})}},
       "NSParagraphStyleAttributeName",
       "1/-1 1/-1 1/-1 1/-1 1/-1 1/1 1/1"},
      {{{"fixAttachmentAttributeInRange(offset as integer, length as integer)", integers({5, 2})}},
       "NSFontAttributeName",
       "b b p p p p"},
      {{{"fixAttributesInRange(offset as integer, length as integer)", integers({0, 7})}},
       "NSFontAttributeName",
       "b b p p p p"},
      {{{"fixFontAttributeInRange(offset as integer, length as integer)", integers({0, 7})}},
       "NSFontAttributeName",
       "b b p p p p p"},
  };
  for (const auto& row : rows) {
    const Value styled = sample();
    for (const auto& [declaration, arguments] : row.edits) {
      SCOPED_TRACE(declaration);
      EXPECT_TRUE(calls::call(styled, declaration, Arguments(arguments)).isNil());
    }
    EXPECT_EQ(values(styled, row.attribute), row.expected) << row.edits.back().first;
  }
}

// A program's own paragraph style over a part of a paragraph spreads over all of it.
TEST_F(AppKitEditing, ParagraphStylesOfPrograms) {
  const Value styled = sample(), style = calls::make("NSMutableParagraphStyleZKT");
  calls::call(style, "Constructor");
  calls::set(style, "alignment", Value::integer(3));
  calls::set(style, "headIndent", Value::number(18));
  calls::call(styled, "addAttribute(name as string, value as variant, range as NSRangeZKT)",
              {key("NSParagraphStyleAttributeName"), style, calls::range(0, 2)});
  calls::call(styled, "fixParagraphStyleAttributeInRange(offset as integer, length as integer)", integers({3, 1}));
  const Value found = calls::call(styled, "attributeAtIndex(name as string, location as UInt64) as variant",
                                  {key("NSParagraphStyleAttributeName"), Value::unsignedInteger(4)});
  EXPECT_EQ(found.asObject(), style.asObject());  // the very object, found in the registry
  EXPECT_EQ(calls::get(found, "headIndent").asDouble(), 18);
  EXPECT_TRUE(calls::call(styled, "attributeAtIndex(name as string, location as UInt64) as variant",
                          {key("NSParagraphStyleAttributeName"), Value::unsignedInteger(5)})
                  .isNil());
}

TEST_F(AppKitEditing, AttributesByGroup) {
  const Value styled = sample();
  calls::call(styled, "setAlignment(alignment as Integer, offset as integer, length as integer)", integers({2, 0, 1}));
  calls::call(styled, "superscriptRange(offset as integer, length as integer)", integers({0, 1}));
  const Value ruler =
      calls::call(styled, "rulerAttributesInRange(offset as integer, length as integer) as Dictionary", integers({0, 3}));
  EXPECT_EQ(host::dictionaryCount(ruler.asObject()), 1);
  EXPECT_EQ(shown(host::dictionaryValue(ruler.asObject(), key("NSParagraphStyleAttributeName"))), "2/-1");
  const Value font =
      calls::call(styled, "fontAttributesInRange(offset as integer, length as integer) as Dictionary", integers({0, 3}));
  EXPECT_EQ(shown(host::dictionaryValue(font.asObject(), key("NSFontAttributeName"))), "b");
  EXPECT_EQ(shown(host::dictionaryValue(font.asObject(), key("NSSuperscriptAttributeName"))), "1");
  EXPECT_FALSE(host::dictionaryHasKey(font.asObject(), key("NSParagraphStyleAttributeName")));
  EXPECT_FALSE(
      calls::call(styled, "containsAttachmentsInRange(offset as integer, length as integer) as Boolean", integers({0, 7}))
          .asBoolean());
}

// Every member refuses a range beyond the text, and negative numbers, by the platform's exception.
TEST_F(AppKitEditing, RangesOutsideTheTextAreRefused) {
  const Value styled = sample();
  int tried = 0;
  for (const host::Method& method : host::Runtime::shared().findClass(className)->methods()) {
    if (method.text.find("offset as integer") == std::string::npos) continue;
    for (const int64_t offset : {int64_t{8}, int64_t{-1}}) {
      Arguments arguments(method.declaration.parameters.size(), Value::integer(1));
      arguments[arguments.size() - 2] = Value::integer(offset);
      const std::string raised = calls::raisedBy([&] { method.invoke(styled.asObject(), arguments); });
      EXPECT_TRUE(raised.starts_with("NSExceptionZKT: ")) << method.text << ": " << raised;
      EXPECT_NE(raised.find("out of bounds; string length 7"), std::string::npos) << raised;
    }
    ++tried;
  }
  EXPECT_EQ(tried, 13);
  EXPECT_EQ(values(styled, "NSFontAttributeName"), "b b p p p p p");
}

}  // namespace
