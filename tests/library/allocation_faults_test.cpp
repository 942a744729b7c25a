// Every allocation of a tour over all members fails once, in turn: the call answers or raises what is documented; nothing is
// lost, and an object holds its old, its new or no content.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <new>

#include "standin/foundation/log.hpp"
#include "standin/runtime/accounting.hpp"
#include "tests/library/allocation_faults.hpp"
#include "tests/library/bridge_fixture.hpp"
#include "tests/library/member_matrix.hpp"

namespace {

using namespace member_matrix;

class AllocationFaults : public bridge_test::BridgeTest {
 protected:
  static void SetUpTestSuite() { startSiblings(); }
  AllocationFaults() : arguments_(std::make_unique<Arguments>()) {
    allocation_faults::findOurCode();
    settle();
    standin_setLogSink([](void*, const char*, size_t) {}, nullptr);
  }
  ~AllocationFaults() override {
    standin_setLogSink(nullptr, nullptr);
    arguments_.reset();
    settle();
  }

  // What the platform object holds, as far as members tell; "" for none, and what a member raises where it is broken.
  static std::string contentOf(const Value& object) {
    std::string content;
    const std::string raised = calls::raisedBy([&] { content = readContent(object); });
    return content + raised;
  }
  static std::string readContent(const Value& object) {
    if (object.isNil() || calls::handleOf(object) == nullptr) return "";
    const std::string name = calls::classNameOf(object);
    if (name == "NSFileWrapperZKT") return shapeOf(calls::get(object, "serializedRepresentation")).text;
    if (name == "NSTextAttachmentZKT") return "attachment of " + readContent(calls::get(object, "fileWrapper"));
    if (name != "NSShadowZKT") return calls::htmlOf(object);
    return shapeOf(calls::get(object, "shadowOffset")).text + shapeOf(calls::get(object, "shadowBlurRadius")).text;
  }

  struct Attempt {
    long allocations = 0;
    std::string before = {}, after = {};
    Outcome outcome = {};
  };

  // A call in which the n-th allocation fails; none for 0.
  Attempt callFailing(const Target& target, int contents, long failing) {
    const AutoreleasePool pool;
    const Value object = arguments_->objectFor(target, contents);
    std::vector<Value> values = arguments_->plainFor(target);
    Attempt attempt{.before = contentOf(object)};
    settle();
    Result result;
    allocation_faults::made = 0;
    allocation_faults::left = failing > 0 ? failing : -1;
    result = invoke(target, object, values);
    allocation_faults::left = -1;
    attempt.allocations = allocation_faults::made;
    attempt.outcome = outcomeOf(target, result, values);
    attempt.after = contentOf(object);
    settle();
    return attempt;
  }

  void failEach(const Target& target, int contents) {
    callFailing(target, contents, 0);  // makes what is made once
    const Attempt whole = callFailing(target, contents, 0);
    const host::LiveCounts live = runtime().live();
    const long objects = standin::liveObjectsAfterDrain();
    const long step = std::max(1L, (whole.allocations + mostFailures - 1) / mostFailures);
    steppedOver_ += whole.allocations - whole.allocations / step;
    for (long failing = 1; failing <= whole.allocations; failing += step, ++failures_) {
      const Attempt attempt = callFailing(target, contents, failing);
      const std::string where =
          target.name() + ", object " + std::to_string(contents) + ", allocation " + std::to_string(failing);
      EXPECT_TRUE(attempt.after.empty() || attempt.after == whole.before || attempt.after == whole.after)
          << where << ": " << attempt.after;
      expectNoMore(where, attempt.outcome, whole.outcome);
      EXPECT_EQ(runtime().live(), live) << where << '\n' << runtime().describeLive(5);
      EXPECT_EQ(standin::liveObjectsAfterDrain(), objects) << where << '\n' << standin::describeLiveObjects();
      if (standin::liveObjectsAfterDrain() != objects || runtime().live() != live) return;
    }
  }

  static constexpr long mostFailures = 3000;  // of one call

  std::unique_ptr<Arguments> arguments_;
  long failures_ = 0, steppedOver_ = 0;
};

TEST_F(AllocationFaults, LoseNothingAndLeaveNothingHalf) {
  std::string temporary = (std::filesystem::temp_directory_path() / "faults-XXXXXX").string();
  ASSERT_NE(mkdtemp(temporary.data()), nullptr);
  setenv("TMPDIR", temporary.c_str(), 1);
  for (const Target& target : allTargets()) {
    for (int contents = target.firstContents(); contents <= target.lastContents(); ++contents) failEach(target, contents);
  }
  unsetenv("TMPDIR");
  EXPECT_EQ(std::filesystem::remove_all(temporary), 1U) << "temporary files are left";
  std::printf("%ld failed allocations, %ld stepped over\n", failures_, steppedOver_);
}

// Whose characters and runs are in trees of several levels.
TEST_F(AllocationFaults, LeaveLongTextsAsTheyWere) {
  std::string page;
  for (int run = 0; run < 800; ++run) page += (run % 2 == 0 ? "<b>bold" : "</b>plain") + std::to_string(run);
  const Value other = calls::html(page.substr(0, page.size() / 2));
  const std::pair<const char*, std::vector<Value>> edits[] = {
      {"insertAttributedString(attrString as NSAttributedStringZKT, location as UInt64)",
       {other, Value::unsignedInteger(4000)}},
      {"appendAttributedString(attrString as NSAttributedStringZKT)", {other}},
      {"replaceCharactersInRange(range as NSRangeZKT, text as string)", {calls::range(900, 5000), Value::string("new")}},
      {"deleteCharactersInRange(range as NSRangeZKT)", {calls::range(3, 6000)}},
      {"superscriptRange(offset as integer, length as integer)", {Value::integer(10), Value::integer(5000)}},
  };
  for (const bool isShared : {false, true}) {
    for (const auto& [member, arguments] : edits) {
      std::string before, whole;
      for (long failing = 0, made = 1; failing <= made; ++failing) {
        const AutoreleasePool pool;
        const Value text = calls::html(page, "NSMutableAttributedStringZKT");
        const Value copy = isShared ? calls::call(text, "copy as NSAttributedStringZKT", {}) : Value();
        calls::Arguments given(arguments);
        std::string raised;
        allocation_faults::made = 0;
        allocation_faults::left = failing > 0 ? failing : -1;
        try {
          raised = calls::raisedBy([&] { calls::call(text, member, given); });
        } catch (const std::bad_alloc&) {
          raised = "while the member was looked up";
        }
        allocation_faults::left = -1;
        if (failing == 0) {
          made = allocation_faults::made;
          before = calls::htmlOf(calls::html(page));
          whole = calls::htmlOf(text);
        }
        EXPECT_EQ(calls::htmlOf(text), raised.empty() ? whole : before) << member << ", " << failing << " " << raised;
        EXPECT_EQ(isShared ? calls::htmlOf(copy) : before, before) << member << ", " << failing;
      }
    }
  }
}

}  // namespace
