// A platform exception in a member that the host calls: one line in the log, and what a sibling library makes of it.
#include "standin/foundation/log.hpp"
#include "tests/library/bridge_fixture.hpp"
#include "tests/library/member_calls.hpp"

namespace {

using calls::Value;

class LogLines {
 public:
  LogLines() {
    standin_setLogSink(
        [](void* lines, const char* message, size_t length) { static_cast<std::string*>(lines)->append(message, length); },
        &lines_);
  }
  ~LogLines() { standin_setLogSink(nullptr, nullptr); }
  LogLines(const LogLines&) = delete;
  LogLines& operator=(const LogLines&) = delete;
  // Since the last call.
  std::string take() { return std::exchange(lines_, std::string()); }

 private:
  std::string lines_;
};

// Members with every sort of result, asked for places that a text of four characters does not have.
struct Refusal {
  const char* what;
  Value (*call)(const Value& text);
};
const Refusal refusals[] = {
    {"an object",
     [](const Value& text) {
       return calls::call(text, "attributeAtIndex(name as string, location as UInt64) as variant",
                          {Value::string("NSFont"), Value::integer(5)});
     }},
    {"a dictionary",
     [](const Value& text) {
       return calls::call(text, "attributesAtIndex(location as UInt64) as dictionary", {Value::integer(5)});
     }},
    {"a truth value",
     [](const Value& text) {
       return calls::call(text, "containsAttachmentsInRange(offset as integer, length as integer) as Boolean",
                          {Value::integer(4), Value::integer(7)});
     }},
    {"nothing",
     [](const Value& text) {
       return calls::call(text, "fixAttributesInRange(offset as integer, length as integer)",
                          {Value::integer(4), Value::integer(7)});
     }},
};

// The reason that stands in "A NSRangeException: reason, Info: (null)\n"; "" when the line is any other.
std::string reasonIn(const std::string& line) {
  const std::string head = "A NSRangeException: ", tail = ", Info: (null)\n";
  if (!line.starts_with(head) || !line.ends_with(tail)) return "";
  const std::string reason = line.substr(head.size(), line.size() - head.size() - tail.size());
  return reason.find('\n') == std::string::npos ? reason : "";
}

class WithoutSibling : public bridge_test::BridgeTest {};

TEST_F(WithoutSibling, ARefusalIsLoggedAndNothingIsRaised) {
  if (NSObject::respondsToSelector(classOf<NSException>(), sel_registerName("NewNSExceptionZKT:")) != NO) {
    GTEST_SKIP() << "wants a process of its own";
  }
  const Value text = calls::text("four", "NSMutableAttributedStringZKT");
  LogLines log;
  for (const Refusal& refusal : refusals) {
    Value result = Value::boolean(true);
    EXPECT_EQ(calls::raisedBy([&] { result = refusal.call(text); }), "") << refusal.what;
    EXPECT_EQ(result.word(), 0U) << refusal.what;
    EXPECT_NE(reasonIn(log.take()), "") << refusal.what;
  }
  EXPECT_EQ(calls::textOf(text), "four");
}

class WithSibling : public calls::MemberTest {};

TEST_F(WithSibling, ARefusalIsLoggedAndRaisedWithTheSameReason) {
  const Value text = calls::text("four", "NSMutableAttributedStringZKT");
  LogLines log;
  for (const Refusal& refusal : refusals) {
    const std::string raised = calls::raisedBy([&] { refusal.call(text); });
    const std::string reason = reasonIn(log.take());
    EXPECT_NE(reason, "") << refusal.what;
    EXPECT_EQ(raised, "NSExceptionZKT: " + reason) << refusal.what;
  }
}

}  // namespace
