// The main of every test executable: after each test all platform objects must have been given back.
#include <gtest/gtest.h>

#include "standin/runtime/accounting.hpp"

namespace {

class ObjectAccounting : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { before_ = standin::liveObjects(); }
  void OnTestEnd(const testing::TestInfo& test) override {
    if (!test.result()->Passed()) return;
    EXPECT_EQ(standin::liveObjectsAfterDrain(), before_) << standin::describeLiveObjects();
  }

  long before_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new ObjectAccounting);
  return RUN_ALL_TESTS();
}
