// Runs of attributes against a naive model that has a handle for every unit.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/text/runs.hpp"
#include "tests/standin/random_edits.hpp"

namespace {

using namespace standin::text;
using SmallRuns = BasicRuns<4, 4>;  // a dozen runs already split nodes
using Model = std::vector<AttributeHandle>;

// A few sets to style with; the first is the empty one.
class Palette {
 public:
  explicit Palette(int count) {
    NSString* const key = standin::foundation::constantString("level");
    for (int level = 1; level < count; ++level) {
      sets_.push_back(AttributeSet().with(key, standin::foundation::newNumber(level).get()));
    }
  }
  const AttributeSet& operator[](size_t index) const { return sets_[index]; }
  size_t size() const { return sets_.size(); }

 private:
  std::vector<AttributeSet> sets_{AttributeSet()};
};

template <class AnyRuns>
void expectSame(const AnyRuns& runs, const Model& model) {
  runs.checkInvariants();
  ASSERT_EQ(runs.length(), model.size());
  if (model.empty()) return;
  std::vector<RunPlace> backwards;
  for (auto cursor = typename AnyRuns::Cursor(runs, 0);; cursor.next()) {
    for (uint32_t unit = cursor.start(); unit < cursor.end(); ++unit) ASSERT_EQ(cursor.attributes(), model[unit]) << unit;
    backwards.insert(backwards.begin(), cursor.place());
    if (cursor.isLast()) break;
  }
  auto cursor = typename AnyRuns::Cursor(runs, static_cast<uint32_t>(model.size()));
  for (const RunPlace& expected : backwards) {
    ASSERT_EQ(cursor.start(), expected.start);
    ASSERT_EQ(cursor.attributes(), expected.attributes);
    if (!cursor.isFirst()) cursor.previous();
  }
}

void replace(Model& model, uint32_t from, uint32_t removed, const Model& inserted) {
  model.erase(model.begin() + from, model.begin() + from + removed);
  model.insert(model.begin() + from, inserted.begin(), inserted.end());
}

Model modelOf(const Palette& palette, unsigned digits, uint32_t length) {
  Model model;
  for (; model.size() < length; digits /= static_cast<unsigned>(palette.size())) {
    model.push_back(palette[digits % palette.size()].handle());
  }
  return model;
}

template <class AnyRuns>
AnyRuns runsOf(const Model& model) {
  RunList list;
  for (const AttributeHandle handle : model) list.add(1, handle);
  return AnyRuns(list);
}

// Every text of up to seven units in two sets, every range, every insertion of up to two units.
TEST(Runs, AgreeWithTheModelOnAllSmallEdits) {
  const Palette palette(2);
  for (uint32_t length = 0; length <= 7; ++length) {
    for (unsigned digits = 0; digits < 1U << length; ++digits) {
      const Model before = modelOf(palette, digits, length);
      const SmallRuns runs = runsOf<SmallRuns>(before);
      for (uint32_t from = 0; from <= length; ++from) {
        for (uint32_t removed = 0; from + removed <= length; ++removed) {
          for (unsigned inserted = 0; inserted < 7; ++inserted) {
            const uint32_t count = inserted == 0 ? 0 : inserted < 3 ? 1 : 2;
            const Model added = modelOf(palette, inserted + (inserted < 3 ? 1 : 1), count);
            Model model = before;
            replace(model, from, removed, added);
            SmallRuns edited = runs;
            edited.splice(from, removed, runsOf<SmallRuns>(added));
            expectSame(edited, model);
          }
          expectSame(runs.slice(from, removed), Model(before.begin() + from, before.begin() + from + removed));
        }
      }
    }
  }
}

// Every text of up to six units in three sets, every range of it, restyled to each of them; copies stay what they were.
TEST(Runs, AgreeWithTheModelWhenAnyRangeIsRestyled) {
  const Palette palette(3);
  for (unsigned digits = 0; digits < 3 * 3 * 3 * 3 * 3 * 3; ++digits) {
    const Model before = modelOf(palette, digits, 6);
    for (const bool isShared : {false, true}) {
      for (uint32_t from = 0; from < 6; ++from) {
        for (uint32_t count = 1; from + count <= 6; ++count) {
          const AttributeSet& style = palette[digits % 3];
          SmallRuns runs = runsOf<SmallRuns>(before);
          const SmallRuns copy = isShared ? runs : SmallRuns();
          runs.restyle(from, count, [&](const AttributeSet&) { return style; });
          Model model = before;
          std::fill_n(model.begin() + from, count, style.handle());
          expectSame(runs, model);
          if (isShared) expectSame(copy, before);
        }
      }
    }
  }
}

TEST(Runs, OfOneKindTakeNoMemory) {
  const Palette palette(2);
  Runs runs(10, palette[1]);
  runs.splice(3, 2, 5, palette[1]);
  EXPECT_EQ(runs.bytesHeld(), 0U);
  runs.splice(0, runs.length(), runs);
  expectSame(runs, Model(13, palette[1].handle()));
  runs.splice(6, 0, 1, palette[0]);
  runs.splice(0, runs.length(), runs);
  Model model(14, palette[1].handle());
  model[6] = palette[0].handle();
  expectSame(runs, model);
}

// One random edit of each kind, done to both.
template <class AnyRuns>
void editBoth(AnyRuns& runs, Model& model, const Palette& palette, RandomEdits& random) {
  const uint32_t from = random.upTo(model.size());
  const uint32_t count = random.oneIn(12) ? random.upTo(model.size() - from)
                                          : std::min(random.upTo(6), static_cast<uint32_t>(model.size()) - from);
  const AttributeSet& style = palette[random.upTo(palette.size() - 1)];
  switch (random.upTo(5)) {
    case 0:
      runs.remove(from, count);
      replace(model, from, count, {});
      break;
    case 1: {
      const uint32_t inserted = random.upTo(8);
      runs.splice(from, count, inserted, style);
      replace(model, from, count, Model(inserted, style.handle()));
      break;
    }
    case 2: {  // of itself: pieces that the tree shares
      const uint32_t start = random.upTo(model.size()), length = random.upTo(std::min<size_t>(model.size() - start, 60));
      runs.splice(from, count, runs.slice(start, length));
      replace(model, from, count, Model(model.begin() + start, model.begin() + start + length));
      break;
    }
    case 3: {  // every other set becomes `style`
      const auto restyled = [&](const AttributeSet& own) { return own.handle() % 2 == 0 ? style : own; };
      runs.restyle(from, count, restyled);
      for (uint32_t unit = from; unit < from + count; ++unit) model[unit] = restyled(AttributeSet(model[unit])).handle();
      break;
    }
    case 4: {
      const uint32_t inserted = random.upTo(3);
      const AttributeHandle inherited = model.empty() ? 0 : model[count > 0 || from == 0 ? from : from - 1];
      replace(model, from, count, Model(inserted, inherited));
      runs.spliceInheriting(from, count, inserted);
      break;
    }
    default:
      for (uint32_t unit = 0; unit < 5; ++unit) {
        const AttributeSet& single = palette[random.upTo(palette.size() - 1)];
        runs.splice(from, 0, 1, single);
        replace(model, from, 0, {single.handle()});
      }
  }
}

// Copies that are kept share nodes with what is edited on, and must not change with it.
template <class AnyRuns>
void editAtRandom(size_t limit, int rounds) {
  const Palette palette(6);
  RandomEdits random(rounds);
  SCOPED_TRACE(RandomEdits::seed());
  std::array<std::pair<AnyRuns, Model>, 3> kept;
  Model model;
  while (model.size() < limit / 2) model.push_back(palette[random.upTo(palette.size() - 1)].handle());
  AnyRuns runs = runsOf<AnyRuns>(model);
  for (int round = 0; round < random.rounds(); ++round) {
    editBoth(runs, model, palette, random);
    if (model.size() > limit) {
      runs.remove(0, static_cast<uint32_t>(model.size() / 2));
      replace(model, 0, static_cast<uint32_t>(model.size() / 2), {});
    }
    if (random.oneIn(20)) kept[random.upTo(kept.size() - 1)] = {runs, model};
    if (random.oneIn(50)) std::tie(runs, model) = kept[random.upTo(kept.size() - 1)];
    if (random.oneIn(8)) {
      ASSERT_NO_FATAL_FAILURE(expectSame(runs, model)) << "round " << round;
    }
    if (random.oneIn(100)) {
      for (const auto& [copy, expected] : kept) ASSERT_NO_FATAL_FAILURE(expectSame(copy, expected)) << "round " << round;
    }
  }
}

TEST(Runs, AgreeWithTheModelAfterRandomEdits) { editAtRandom<SmallRuns>(400, 20000); }
TEST(Runs, AgreeWithTheModelAfterRandomEditsOfManyRuns) { editAtRandom<Runs>(20000, 4000); }

TEST(Runs, StayBalancedWhenBuiltUpAndTakenDownFromEitherEnd) {
  const Palette palette(3);
  for (const bool atEnd : {false, true}) {
    SmallRuns runs;
    for (uint32_t count = 0; count < 3000; ++count) runs.splice(atEnd ? count : 0, 0, 1, palette[count % 3]);
    runs.checkInvariants();
    for (uint32_t left = 3000; left > 0; --left) {
      runs.remove(atEnd ? left - 1 : 0, 1);
      if (left % 97 == 0) runs.checkInvariants();
    }
    EXPECT_EQ(runs.length(), 0U);
    EXPECT_EQ(runs.bytesHeld(), 0U);
  }
}

TEST(Runs, WorkOutEachSetOnceWhenTheyRestyleManyRuns) {
  const Palette palette(4);
  RunList list;
  for (uint32_t run = 0; run < 10000; ++run) list.add(1, palette[run % 4].handle());
  Runs runs(list);
  int asked = 0;
  runs.restyle(0, 10000, [&](const AttributeSet& own) { return ++asked, own; });
  EXPECT_EQ(asked, 4);
}

// A copy costs no nodes, and what is edited in it only the path to the edit.
TEST(Runs, ShareNodesWithTheirCopies) {
  const Palette palette(2);
  RunList list;
  for (uint32_t run = 0; run < 100000; ++run) list.add(3, palette[run % 2].handle());
  const Runs runs(list);
  EXPECT_LT(runs.bytesHeld(), 100000U * 10);
  Runs copy = runs;
  copy.splice(150000, 0, 1, palette[0]);
  EXPECT_EQ(runs.length() + 1, copy.length());
  runs.checkInvariants();
  copy.checkInvariants();
}

}  // namespace
