// Styled text in memory: finding, editing, restyling, copying and walking, at sizes from one leaf to a million runs.
#include <benchmark/benchmark.h>

#include <array>
#include <random>
#include <string>
#include <vector>

#include "platform/appkit.h"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/text/styled_text.hpp"

namespace {

using namespace standin::text;

constexpr uint32_t unitsPerRun = 10;
constexpr size_t styles = 16;

NSString* level() {
  static NSString* const key = standin::foundation::constantString("level");
  return key;
}

// Sixteen sets that live as long as the process.
const AttributeSet& style(size_t index) {
  static const auto* const sets = [] {
    auto* made = new std::array<AttributeSet, styles>;
    int number = 0;
    for (AttributeSet& set : *made) {
      set = AttributeSet().with(level(), standin::foundation::newNumber(++number).get());
    }
    return made;
  }();
  return (*sets)[index % styles];
}

uint32_t runCount(const benchmark::State& state) { return static_cast<uint32_t>(state.range(0)); }

RunList& fill(RunList& list, uint32_t count) {
  for (uint32_t run = 0; run < count; ++run) list.add(unitsPerRun, style(run).handle());
  return list;
}

// Runs loaded in bulk and then edited at random, so that their leaves are as full as edits leave them.
Runs editedRuns(uint32_t count) {
  RunList list;
  Runs runs(fill(list, count));
  std::mt19937 random(1);
  for (uint32_t edit = 0; edit < count / 2; ++edit) {
    const uint32_t at = static_cast<uint32_t>(random()) % (runs.length() - unitsPerRun);
    if (edit % 2 == 0) {
      runs.splice(at, 0, unitsPerRun, style(random()));
    } else {
      runs.remove(at, unitsPerRun);
    }
  }
  return runs;
}

StyledText styledText(uint32_t count) {
  RunList list;
  StyledText styled(Text::latin1(std::string(size_t{count} * unitsPerRun, 'x')), fill(list, count));
  styled.splice(styled.length() / 2, 0, Text::latin1("y"), style(0));  // so that the text is in a tree
  return styled;
}

// Positions drawn beforehand, so that drawing them is not timed.
class Positions {
 public:
  explicit Positions(uint32_t limit) {
    std::mt19937 random(7);
    for (uint32_t& position : positions_) position = static_cast<uint32_t>(random()) % limit;
  }
  uint32_t next() { return positions_[index_++ % positions_.size()]; }

 private:
  std::vector<uint32_t> positions_ = std::vector<uint32_t>(1 << 16);
  size_t index_ = 0;
};

void findRun(benchmark::State& state) {
  const Runs runs = editedRuns(runCount(state));
  Positions positions(runs.length());
  for (auto _ : state) benchmark::DoNotOptimize(runs.find(positions.next()));
  uint32_t count = 1;
  for (Runs::Cursor cursor(runs, 0); !cursor.isLast(); cursor.next()) ++count;
  state.counters["bytes_a_run"] = static_cast<double>(runs.bytesHeld()) / count;
}

// A unit more and a unit less, in the run where it happens.
void insertAndDeleteUnit(benchmark::State& state) {
  Runs runs = editedRuns(runCount(state));
  Positions positions(runs.length() - 1);
  for (auto _ : state) {
    const uint32_t at = positions.next();
    runs.splice(at, 0, 1, AttributeSet(runs.find(at).attributes));
    runs.remove(positions.next(), 1);
  }
  state.SetItemsProcessed(2 * static_cast<int64_t>(state.iterations()));
}

// The same in runs and characters.
void insertAndDeleteStyledUnit(benchmark::State& state) {
  StyledText styled = styledText(runCount(state));
  const Text unit = Text::latin1("z");
  Positions positions(styled.length() - 1);
  for (auto _ : state) {
    const uint32_t at = positions.next();
    styled.splice(at, 0, unit);
    styled.splice(positions.next(), 1, Text(), AttributeSet());
  }
  state.SetItemsProcessed(2 * static_cast<int64_t>(state.iterations()));
}

// Characters alone, a mebiunit of them.
void insertAndDeleteCharacter(benchmark::State& state) {
  Text text = Text::latin1(std::string(1 << 20, 'x'));
  const Text unit = Text::latin1("z");
  Positions positions(text.size() - 1);
  for (auto _ : state) {
    text.splice(positions.next(), 0, unit);
    text.splice(positions.next(), 1, Text());
  }
  state.SetItemsProcessed(2 * static_cast<int64_t>(state.iterations()));
  state.counters["bytes_a_unit"] = static_cast<double>(text.bytesHeld()) / text.size();
}

void addAttribute(benchmark::State& state) {
  StyledText styled = styledText(runCount(state));
  Positions positions(styled.length() - 100), lengths(100);
  std::array<Owned<NSNumber>, styles> values;
  for (size_t index = 0; index < styles; ++index) {
    values[index] = standin::foundation::newNumber(static_cast<int>(index) + 1);
  }
  size_t index = 0;
  for (auto _ : state) {
    styled.addAttribute(positions.next(), 1 + lengths.next() % 100, level(), values[++index % styles].get());
  }
}

// Restyling alone: the set is at hand.
void setAttributes(benchmark::State& state) {
  Runs runs = editedRuns(runCount(state));
  Positions positions(runs.length() - 100), lengths(100);
  size_t index = 0;
  for (auto _ : state) {
    const uint32_t count = 1 + lengths.next() % 8;
    runs.splice(positions.next(), count, count, style(++index));
  }
}

void appendRun(benchmark::State& state) {
  const StyledText start = styledText(runCount(state));
  const Text ten = Text::latin1("0123456789");
  StyledText styled = start;
  size_t index = 0;
  for (auto _ : state) {
    styled.splice(styled.length(), 0, ten, style(++index));
    if (styled.length() > 100'000'000) styled = start;
  }
}

void copyText(benchmark::State& state) {
  const StyledText styled = styledText(runCount(state));
  for (auto _ : state) {
    const StyledText copy = styled;
    benchmark::DoNotOptimize(&copy);
  }
}

void sliceText(benchmark::State& state) {
  const StyledText styled = styledText(runCount(state));
  for (auto _ : state) {
    const StyledText slice = styled.slice(styled.length() / 4, styled.length() / 2);
    benchmark::DoNotOptimize(&slice);
  }
}

void walkRuns(benchmark::State& state) {
  const Runs runs = editedRuns(runCount(state));
  int64_t walked = 0;
  for (auto _ : state) {
    uint64_t sum = 0;
    for (Runs::Cursor cursor(runs, 0);; cursor.next()) {
      sum += cursor.attributes();
      ++walked;
      if (cursor.isLast()) break;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(walked);
}

void loadRuns(benchmark::State& state) {
  RunList list;
  fill(list, runCount(state));
  for (auto _ : state) benchmark::DoNotOptimize(Runs(list));
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

BENCHMARK(insertAndDeleteCharacter);
#define AT_ALL_SIZES(function) BENCHMARK(function)->Arg(64)->Arg(262144)->Arg(1048576)
AT_ALL_SIZES(findRun);
AT_ALL_SIZES(insertAndDeleteUnit);
AT_ALL_SIZES(insertAndDeleteStyledUnit);
AT_ALL_SIZES(setAttributes);
AT_ALL_SIZES(addAttribute);
AT_ALL_SIZES(appendRun);
AT_ALL_SIZES(copyText);
AT_ALL_SIZES(sliceText);
AT_ALL_SIZES(walkRuns);
AT_ALL_SIZES(loadRuns);

}  // namespace
