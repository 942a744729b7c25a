// Every allocation of a tour over all members fails once, in turn: the call answers, raises what is documented, or hands the
// failure on; nothing is lost, and an object holds its old, its new or no content.
#include <algorithm>
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
  AllocationFaults() : arguments_(std::make_unique<Arguments>()) {
    settle();
    standin_setLogSink([](void*, const char*, size_t) {}, nullptr);
  }
  ~AllocationFaults() override {
    standin_setLogSink(nullptr, nullptr);
    arguments_.reset();
    settle();
  }

  std::vector<Value> argumentsOf(const Target& target) const {
    std::vector<Value> values;
    for (const host::Type& type : target.parameters()) values.push_back(arguments_->plain(type));
    return values;
  }

  // What an attributed string holds, as HTML; "" for other objects.
  static std::string contentOf(const Value& object) {
    const std::string name = calls::classNameOf(object);
    const bool isText = name == "NSAttributedStringZKT" || name == "NSMutableAttributedStringZKT";
    return isText && calls::handleOf(object) != nullptr ? calls::htmlOf(object) : "";
  }

  struct Outcome {
    long allocations;
    std::string before, after;
  };

  // A call in which the n-th allocation fails; none for 0.
  Outcome callFailing(const Target& target, bool full, long failing) {
    const AutoreleasePool pool;
    const Value object = objectFor(target, full, *arguments_);
    std::vector<Value> values = argumentsOf(target);
    const std::string before = contentOf(object);
    settle();
    allocation_faults::made = 0;
    allocation_faults::left = failing > 0 ? failing : -1;
    try {
      invoke(target, object, values);
    } catch (const std::bad_alloc&) {
    }
    allocation_faults::left = -1;
    const long made = allocation_faults::made;
    values.clear();
    const std::string after = contentOf(object);
    settle();
    return {made, before, after};
  }

  void failEach(const Target& target, bool full) {
    callFailing(target, full, 0);  // makes what is made once
    const Outcome whole = callFailing(target, full, 0);
    const host::LiveCounts live = runtime().live();
    const long objects = standin::liveObjectsAfterDrain();
    for (long failing = 1; failing <= std::min(whole.allocations, mostFailures); ++failing, ++failures_) {
      const Outcome outcome = callFailing(target, full, failing);
      const std::string where = target.name() + (full ? "" : " (empty)") + ", allocation " + std::to_string(failing);
      EXPECT_TRUE(outcome.after.empty() || outcome.after == whole.before || outcome.after == whole.after)
          << where << ": " << outcome.after;
      EXPECT_EQ(runtime().live(), live) << where << '\n' << runtime().describeLive(5);
      EXPECT_EQ(standin::liveObjectsAfterDrain(), objects) << where << '\n' << standin::describeLiveObjects();
      if (standin::liveObjectsAfterDrain() != objects || runtime().live() != live) return;
    }
  }

  static constexpr long mostFailures = 300;  // of one call

  std::unique_ptr<Arguments> arguments_;
  long failures_ = 0;
};

TEST_F(AllocationFaults, LoseNothingAndLeaveNothingHalf) {
  for (const Target& target : allTargets()) {
    for (const bool full : {false, true}) {
      if (full || target.isInstance()) failEach(target, full);
    }
  }
  std::printf("%ld failed allocations\n", failures_);
}

}  // namespace
