// Reading attributed strings: attributes and the ranges over which they hold, parts, copies, comparison, export ranges.
#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "plugin/wrappers.hpp"
#include "tests/library/member_calls.hpp"

namespace {

using calls::Arguments;
using calls::Value;

class Queries : public calls::MemberTest {};

constexpr const char* valueAt = "attributeAtIndex(name as string, location as UInt64) as variant";
constexpr const char* valueWithin = "attributeAtIndex(name as string, location as UInt64, inRange as NSRangeZKT) as variant";
constexpr const char* valueAndRange =
    "attributeAtIndex2(name as string, location as UInt64, byref effectiveRange as NSRangeZKT) as variant";
constexpr const char* valueAndLongest =
    "attributeAtIndex2(name as string, location as UInt64, byref longestEffectiveRange as NSRangeZKT, inRange as "
    "NSRangeZKT) as variant";
constexpr const char* setAt = "attributesAtIndex(location as UInt64) as dictionary";
constexpr const char* setWithin = "attributesAtIndex(location as UInt64, inRange as NSRangeZKT) as dictionary";
constexpr const char* setAndRange = "attributesAtIndex2(location as UInt64, byref range as NSRangeZKT) as dictionary";
constexpr const char* setAndLongest =
    "attributesAtIndex2(location as UInt64, byref range as NSRangeZKT, inRange as NSRangeZKT) as dictionary";

Value key(const char* name) { return calls::callShared("NSAttributedStringZKT", std::string(name) + " as string"); }
Value location(uint64_t index) { return Value::unsignedInteger(index); }

// Units 0 to 2 are bold, 3 and 4 linked, the rest plain.
Value sample() { return calls::html("<b>abc</b><a href=\"http://x.y\">de</a>fg"); }

struct Query {
  const char* declaration;
  bool named;
  int rangeArgument;   // -1: none is returned
  int withinArgument;  // -1: none is given
};
const Query queries[] = {{valueAt, true, -1, -1},       {valueWithin, true, -1, 2},  {valueAndRange, true, 2, -1},
                         {valueAndLongest, true, 2, 3}, {setAt, false, -1, -1},      {setWithin, false, -1, 1},
                         {setAndRange, false, 1, -1},   {setAndLongest, false, 1, 2}};

// The arguments of a query for the link at a location. A returned range replaces a range that is there before.
Arguments argumentsOf(const Query& query, uint64_t index, const Value& within) {
  Arguments arguments;
  if (query.named) arguments.push_back(key("NSLinkAttributeName"));
  arguments.push_back(location(index));
  if (query.rangeArgument >= 0) arguments.push_back(calls::range(77, 77));
  if (query.withinArgument >= 0) arguments.push_back(within);
  return arguments;
}

std::string linkIn(const Query& query, const Value& answer) {
  if (answer.isNil()) return "";
  if (query.named) return calls::utf8(answer);
  const Value link = key("NSLinkAttributeName");
  return host::dictionaryHasKey(answer.asObject(), link) ? calls::utf8(host::dictionaryValue(answer.asObject(), link)) : "";
}

TEST_F(Queries, AnswerWithTheRangeOverWhichItHolds) {
  const Value object = sample();
  const struct {
    uint64_t at;
    const char* link;
    const char* effective;
    uint64_t within;  // the search is from 0 to here
    const char* longest;
  } rows[] = {{0, "", "0+3", 2, "0+2"}, {3, "http://x.y", "3+2", 4, "3+1"}, {4, "http://x.y", "3+2", 8, "3+2"}};
  for (const auto& row : rows) {
    for (const Query& query : queries) {
      SCOPED_TRACE(query.declaration + (" at " + std::to_string(row.at)));
      Arguments arguments = argumentsOf(query, row.at, calls::range(0, row.within));
      EXPECT_EQ(linkIn(query, calls::call(object, query.declaration, arguments)), row.link);
      if (query.rangeArgument < 0) continue;
      EXPECT_EQ(calls::describeRange(arguments[static_cast<size_t>(query.rangeArgument)]),
                query.withinArgument < 0 ? row.effective : row.longest);
    }
  }
}

TEST_F(Queries, OutsideTheTextRaisesAndClearsTheRange) {
  const Value object = sample();
  for (const Query& query : queries) {
    SCOPED_TRACE(query.declaration);
    Arguments arguments = argumentsOf(query, 1000, calls::range(0, 8));
    const std::string raised = calls::raisedBy([&] { calls::call(object, query.declaration, arguments); });
    EXPECT_TRUE(raised.starts_with("NSExceptionZKT: ")) << raised;
    EXPECT_TRUE(query.rangeArgument < 0 || arguments[static_cast<size_t>(query.rangeArgument)].isNil());
  }
}

TEST_F(Queries, AnEmptyObjectAnswersNilAndAnEmptyRange) {
  const Value object = calls::make("NSAttributedStringZKT");
  for (const Query& query : queries) {
    SCOPED_TRACE(query.declaration);
    Arguments arguments = argumentsOf(query, 0, Value());
    EXPECT_TRUE(calls::call(object, query.declaration, arguments).isNil());
    if (query.rangeArgument >= 0) {
      EXPECT_EQ(calls::describeRange(arguments[static_cast<size_t>(query.rangeArgument)]), "0+0");
    }
  }
}

// A host that makes no ranges still gets the values.
TEST_F(Queries, WithoutRangesTheValueStays) {
  const Value object = sample();
  Arguments arguments{key("NSLinkAttributeName"), location(3), calls::range(7, 7)};
  auto& faults = host::Runtime::shared().faults();
  faults.failFromCall("PluginNewInstance", faults.calls("PluginNewInstance") + 1);
  EXPECT_EQ(calls::utf8(calls::call(object, valueAndRange, arguments)), "http://x.y");
  EXPECT_TRUE(arguments[2].isNil());
}

TEST_F(Queries, EachAttributeValueIsLogged) {
  const auto logOf = [](const char* declaration, Arguments arguments) {
    const Value object = sample();
    testing::internal::CaptureStderr();
    calls::call(object, declaration, arguments);
    return testing::internal::GetCapturedStderr();
  };
  const std::string found = logOf(valueAt, {key("NSLinkAttributeName"), location(3)});
  EXPECT_NE(found.find("value: http://x.y\n"), std::string::npos) << found;
  EXPECT_NE(found.find("value className: "), std::string::npos) << found;
  const std::string missing = logOf(valueAndRange, {key("NSKernAttributeName"), location(0), Value()});
  EXPECT_NE(missing.find("value: (null)\n"), std::string::npos) << missing;
  EXPECT_NE(missing.find("value className: (null)\n"), std::string::npos) << missing;
  EXPECT_EQ(logOf(setAt, {location(0)}), "");
}

TEST_F(Queries, PartsAndCopies) {
  const Value object = sample();
  const auto part = [&](const Value& range) {
    return calls::call(object, "attributedSubstringFromRange(range as NSRangeZKT) as NSAttributedStringZKT", {range});
  };
  EXPECT_EQ(calls::textOf(part(calls::range(2, 3))), "cde");
  EXPECT_EQ(calls::get(part(Value()), "Length").asInteger(), 0);
  const struct {
    const char* member;
    const char* className;
    bool registered;
  } copies[] = {{"copy as NSAttributedStringZKT", "NSAttributedStringZKT", false},
                {"mutableCopy as NSMutableAttributedStringZKT", "NSMutableAttributedStringZKT", true}};
  for (const auto& row : copies) {
    const Value first = calls::call(object, row.member), second = calls::call(object, row.member);
    EXPECT_NE(first.asObject(), second.asObject());
    EXPECT_EQ(calls::classNameOf(first), row.className);
    EXPECT_EQ(calls::htmlOf(first), calls::htmlOf(object));
    const auto found = reinterpret_cast<host::HostObject*>(plugin::registeredInstance(calls::handleOf(first)));
    EXPECT_EQ(found == first.asObject(), row.registered);
  }
}

TEST_F(Queries, Comparison) {
  const Value object = sample(), empty = calls::make("NSAttributedStringZKT");
  const std::tuple<Value, Value, bool> rows[] = {
      {object, object, true},  {object, sample(), true}, {object, calls::text("abcdefg "), false},
      {object, empty, false},  {empty, object, false},   {empty, empty, false},
      {object, Value(), false}};
  for (const auto& [left, right, equal] : rows) {
    EXPECT_EQ(calls::call(left, "isEqualToAttributedString(other as NSAttributedStringZKT) as Boolean", {right}).asBoolean(),
              equal);
  }
}

std::string contentsOf(const Value& block) {
  if (block.isNil()) return "nil";
  const auto memory = host::memoryOf(block.asObject());
  return {reinterpret_cast<const char*>(memory.data()), memory.size()};
}

TEST_F(Queries, ExportedRanges) {
  const Value object = calls::text("abcdefghij");
  const struct {
    int64_t offset, length;
    const char* exported;  // nil: refused
  } rows[] = {{0, 0, nullptr}, {-1, 5, nullptr},     {11, 1, nullptr},         {3, -1, nullptr},
              {10, 1, ""},     {4, 100, "efghij"},   {4, INT64_MAX, "efghij"}, {INT64_MAX, 1, nullptr},
              {2, 3, "cde"},   {0, 10, "abcdefghij"}};
  for (const auto& row : rows) {
    const std::string rtf = contentsOf(calls::call(
        object, "RTFFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock",
        {Value::integer(row.offset), Value::integer(row.length), Value()}));
    SCOPED_TRACE(std::to_string(row.offset) + "+" + std::to_string(row.length) + ": " + rtf);
    EXPECT_EQ(rtf == "nil", row.exported == nullptr);
    if (row.exported == nullptr) continue;
    EXPECT_TRUE(rtf.starts_with("{\\rtf1"));
    EXPECT_NE(rtf.find(row.exported), std::string::npos);
    EXPECT_EQ(rtf.find('j') != std::string::npos, std::string_view(row.exported).ends_with("j"));
  }
  // The others that take such a range refuse the same ones.
  for (const char* member :
       {"RTFDFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock",
        "docFormatFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock",
        "RTFDFileWrapperFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as "
        "NSFileWrapperZKT",
        "dataFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil, byref error as "
        "NSErrorZKT) as memoryblock"}) {
    for (const auto& row : rows) {
      const Value attributes = Value::object(host::makeDictionary());
      host::setDictionaryValue(attributes.asObject(), Value::string("DocumentType"), Value::string("NSRTF"));
      Arguments arguments{Value::integer(row.offset), Value::integer(row.length), attributes};
      if (std::string_view(member).starts_with("dataFromRange")) arguments.push_back(Value());
      EXPECT_EQ(calls::call(object, member, arguments).isNil(), row.exported == nullptr)
          << member << ": " << row.offset << "+" << row.length;
    }
  }
}

TEST_F(Queries, WholeTextsAreExported) {
  const std::pair<const char*, Arguments> rows[] = {
      {"rtf as memoryblock", {}}, {"RTFFromRange(documentAttributes as dictionary = nil) as memoryblock", {Value()}}};
  for (const auto& [member, arguments] : rows) {
    EXPECT_NE(contentsOf(calls::call(calls::text("all of it"), member, Arguments(arguments))).find("all of it"),
              std::string::npos)
        << member;
    EXPECT_TRUE(contentsOf(calls::call(calls::text(""), member, Arguments(arguments))).starts_with("{\\rtf1")) << member;
    EXPECT_EQ(contentsOf(calls::call(calls::make("NSAttributedStringZKT"), member, Arguments(arguments))), "nil") << member;
  }
}

// An object without a text is not asked for more: the document attributes are left alone.
TEST_F(Queries, EmptyObjectsExportNothing) {
  const Value attributes = Value::object(host::makeDictionary());
  host::setDictionaryValue(attributes.asObject(), Value::string("DocumentType"), Value::string("NSRTF"));
  const host::Faults& faults = host::Runtime::shared().faults();
  for (const char* member : {"RTFFromRange(documentAttributes as dictionary = nil) as memoryblock",
                             "RTFDFromRange(documentAttributes as dictionary = nil) as memoryblock",
                             "docFormatFromRange(documentAttributes as dictionary = nil) as memoryblock"}) {
    const auto before = faults.calls("REALLoadObjectMethod");
    EXPECT_TRUE(calls::call(calls::make("NSAttributedStringZKT"), member, {attributes}).isNil()) << member;
    EXPECT_EQ(faults.calls("REALLoadObjectMethod"), before) << member;
    calls::call(calls::text("x"), member, {attributes});
    EXPECT_GT(faults.calls("REALLoadObjectMethod"), before) << member;
  }
}

TEST_F(Queries, RefusedExportClearsTheError) {
  Arguments arguments{Value::integer(3), Value::integer(0), Value(), calls::make("NSErrorZKT")};
  EXPECT_TRUE(
      calls::call(calls::text("abcdefghij"),
                  "dataFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil, byref "
                  "error as NSErrorZKT) as memoryblock",
                  arguments)
          .isNil());
  EXPECT_TRUE(arguments[3].isNil());
}

}  // namespace
