// Editing mutable attributed strings: one row a member, and what the platform refuses.
#include "host/runtime/dictionary.hpp"
#include "tests/library/member_calls.hpp"

namespace {

using calls::Arguments;
using calls::range;
using calls::Value;

class Editing : public calls::MemberTest {};

constexpr const char* className = "NSMutableAttributedStringZKT";

Value linkKey() { return calls::callShared(className, "NSLinkAttributeName as string"); }
Value number(int64_t value) { return Value::integer(value); }
Value link() { return Value::string("x"); }
Value linked() {
  Value attributes = Value::object(host::makeDictionary());
  host::setDictionaryValue(attributes.asObject(), linkKey(), link());
  return attributes;
}

struct Edit {
  const char* declaration;
  std::function<Arguments()> arguments;
  const char* html;  // of the text "ab" bold, "cd" plain, after the edit
};

// Every run has the same font but for its traits, so that the tags show what the edit did.
Value sample() { return calls::html("<b>ab</b>cd", className); }
Value bold() { return calls::html("<b>X</b>"); }

const std::vector<Edit> edits = {
    {"insertAttributedString(attrString as NSAttributedStringZKT, location as UInt64)",
     [] {
       return Arguments{bold(), Value::unsignedInteger(3)};
     },
     "<b>ab</b>c<b>X</b>d "},
    {"replaceCharactersInRange(range as NSRangeZKT, attrString as NSAttributedStringZKT)",
     [] {
       return Arguments{range(0, 4), bold()};
     },
     "<b>X</b> "},
    {"replaceCharactersInRange(range as NSRangeZKT, text as string)",
     [] {
       return Arguments{range(1, 2), Value::string("&")};
     },
     "<b>a&amp;</b>d "},
    {"addAttributes(attrs as Dictionary, range as NSRangeZKT)",
     [] {
       return Arguments{linked(), range(2, 2)};
     },
     "<b>ab<a href=\"x\"></b>cd</a> "},
    {"addAttribute(name as string, value as variant, range as NSRangeZKT)",
     [] {
       return Arguments{linkKey(), link(), range(2, 2)};
     },
     "<b>ab<a href=\"x\"></b>cd</a> "},
    {"addAttribute(name as string, value as variant, range as NSRangeZKT)",
     [] {
       return Arguments{Value::string(""), link(), range(0, 2)};
     },
     "<b>ab</b>cd "},
    {"addAttribute(name as string, value as variant, range as NSRangeZKT)",
     [] {
       return Arguments{linkKey(), Value(), range(0, 2)};
     },
     "<b>ab</b>cd "},
    {"setAttributes(attrs as Dictionary, range as NSRangeZKT)",
     [] {
       return Arguments{linked(), range(0, 5)};
     },
     "<a href=\"x\">abcd </a></font>"},
    {"removeAttribute(name as string, range as NSRangeZKT)",
     [] {
       return Arguments{calls::callShared(className, "NSFontAttributeName as string"), range(0, 5)};
     },
     "abcd </font>"},
    {"deleteCharactersInRange(range as NSRangeZKT)", [] { return Arguments{range(1, 2)}; }, "<b>a</b>d "},
    {"deleteCharactersInRange(range as NSRangeZKT)", [] { return Arguments{Value()}; }, "<b>ab</b>cd "},
    {"beginEditing", [] { return Arguments{}; }, "<b>ab</b>cd "},
    {"endEditing", [] { return Arguments{}; }, "<b>ab</b>cd "},
    {"setAttributedString(attrString as NSAttributedStringZKT)", [] { return Arguments{bold()}; }, "<b>X</b>"},
    {"appendAttributedString(attrString as NSAttributedStringZKT)", [] { return Arguments{bold()}; },
     "<b>ab</b>cd <b>X</b>"},
};

TEST_F(Editing, EachMemberEdits) {
  for (const Edit& edit : edits) {
    SCOPED_TRACE(edit.declaration);
    const Value object = sample();
    EXPECT_TRUE(calls::call(object, edit.declaration, edit.arguments()).isNil());
    EXPECT_EQ(calls::htmlOf(object), edit.html);
  }
}

TEST_F(Editing, AnEmptyObjectStaysEmpty) {
  for (const Edit& edit : edits) {
    SCOPED_TRACE(edit.declaration);
    const Value object = calls::make(className);
    EXPECT_TRUE(calls::call(object, edit.declaration, edit.arguments()).isNil());
    EXPECT_EQ(calls::handleOf(object), nullptr);
  }
}

// The members whose range comes as two integers, on an empty object.
TEST_F(Editing, SpansOfNothing) {
  const Value object = calls::make(className);
  for (const host::Method& method : host::Runtime::shared().findClass(className)->methods()) {
    if (method.text.find("offset as integer") == std::string::npos) continue;
    SCOPED_TRACE(method.text);
    Arguments arguments(method.declaration.parameters.size(), number(1));
    const Value result = method.invoke(object.asObject(), arguments);
    EXPECT_TRUE(result.isNil() || !result.asBoolean());
  }
}

TEST_F(Editing, ThePlatformsRefusalsReachTheHost) {
  const Value styled = sample(), immutable = calls::text("immutable");
  const struct {
    Value object;
    const char* declaration;
    Arguments arguments;
  } rows[] = {
      {styled, "deleteCharactersInRange(range as NSRangeZKT)", {range(3, 10)}},
      {styled,
       "insertAttributedString(attrString as NSAttributedStringZKT, location as UInt64)",
       {bold(), Value::unsignedInteger(99)}},
      {styled, "replaceCharactersInRange(range as NSRangeZKT, text as string)", {range(9, 1), Value::string("x")}},
      {styled, "replaceCharactersInRange(range as NSRangeZKT, text as string)", {range(0, 1), Value::string("")}},
      {styled, "appendAttributedString(attrString as NSAttributedStringZKT)", {Value()}},
  };
  for (const auto& row : rows) {
    const std::string raised = calls::raisedBy([&] { calls::call(row.object, row.declaration, Arguments(row.arguments)); });
    EXPECT_TRUE(raised.starts_with("NSExceptionZKT: ")) << row.declaration << ": " << raised;
  }
  EXPECT_EQ(calls::htmlOf(styled), "<b>ab</b>cd ");
}

}  // namespace
