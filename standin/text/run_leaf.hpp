// The leaf of a tree of runs: two arrays, lengths and attribute handles, with room for as many runs as it was made for.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <new>

#include "standin/text/attribute_set.hpp"
#include "standin/text/memory_reserve.hpp"
#include "standin/text/summed_tree.hpp"

namespace standin::text {

struct RunSum {
  uint32_t units;

  RunSum& operator+=(const RunSum& other) { return units += other.units, *this; }
  RunSum& operator-=(const RunSum& other) { return units -= other.units, *this; }
  bool operator==(const RunSum&) const = default;
};

// A borrowed stretch of runs.
struct RunSpan {
  const uint32_t* lengths = nullptr;
  const AttributeHandle* handles = nullptr;
  uint32_t count = 0;
};

// The arrays follow the head in memory. The leaf holds one reference to the set of each run.
template <uint32_t leafCapacity>
class RunLeaf : public TreeNode {
 public:
  using Sum = RunSum;
  using Content = RunSpan;
  static constexpr uint32_t capacity = leafCapacity;

  static uint32_t countOf(const RunSpan& runs) { return runs.count; }
  static RunSpan slice(const RunSpan& runs, uint32_t from, uint32_t count) {
    return {runs.lengths + from, runs.handles + from, count};
  }
  static RunSum sumOf(const RunSpan& runs) {
    RunSum sum{0};
    for (uint32_t index = 0; index < runs.count; ++index) sum.units += runs.lengths[index];
    return sum;
  }

  // In steps, so that a leaf that grows does not take the room of a full one at once.
  static uint32_t roomFor(uint32_t runs) {
    return std::min(runs < 16 ? std::bit_ceil(runs) : (runs + 15) / 16 * 16, capacity);
  }
  static RunLeaf* make(uint32_t room) { return new (allocateOrThrow(sizeof(RunLeaf) + room * bytesPerRun)) RunLeaf(room); }
  static void destroy(RunLeaf* leaf) {
    for (uint32_t index = 0; index < leaf->count_; ++index) AttributeSet::release(leaf->handles()[index]);
    std::free(leaf);
  }

  // Moves the leaf, which one reference alone holds, to more room.
  static constexpr bool canGrow = true;
  static RunLeaf* grown(RunLeaf* leaf, uint32_t room) {
    RunLeaf* larger = make(room);
    std::copy_n(leaf->lengths(), leaf->count_, larger->writableLengths());
    std::copy_n(leaf->handles(), leaf->count_, larger->writableHandles());
    larger->count_ = leaf->count_;
    std::free(leaf);
    return larger;
  }

  uint32_t count() const { return count_; }
  const uint32_t* lengths() const { return reinterpret_cast<const uint32_t*>(this + 1); }
  const AttributeHandle* handles() const { return lengths() + room_; }
  RunSpan content() const { return {lengths(), handles(), count_}; }
  bool hasRoom(uint32_t runs) const { return runs <= room_; }
  size_t bytesHeld() const { return sizeof(RunLeaf) + room_ * bytesPerRun; }

  // The run that holds the unit, and the units before that run. A unit beyond the end is in the last run.
  struct Found {
    uint32_t index, before;
  };
  Found find(uint32_t unit) const {
    Found found = pastBlocks(0, unit);
    while (found.index + 1 < count_ && unit - found.before >= lengths()[found.index])
      found.before += lengths()[found.index++];
    return found;
  }

  // `from` and `from + removed` must lie between runs.
  Extent extent(uint32_t from, uint32_t removed) const {
    const uint32_t first = runsIn(0, from);
    return {first, runsIn(first, removed)};
  }

  void append(const RunSpan& runs) {
    for (uint32_t index = 0; index < runs.count; ++index) {
      AttributeSet::retain(runs.handles[index]);
      writableLengths()[count_ + index] = runs.lengths[index];
      writableHandles()[count_ + index] = runs.handles[index];
    }
    count_ += runs.count;
  }

  // Makes the run longer or, modulo 2^32, shorter.
  void adjust(uint32_t index, const RunSum& change) { writableLengths()[index] += change.units; }

  // Sets are released last: that may free objects, which may hold styled text of their own.
  void replace(Extent extent, const RunSpan& runs, RunSum& sum) {
    std::array<AttributeHandle, capacity> dropped;
    std::copy_n(handles() + extent.first, extent.count, dropped.data());
    sum -= sumOf(slice(content(), extent.first, extent.count));
    sum += sumOf(runs);
    for (uint32_t index = 0; index < runs.count; ++index) AttributeSet::retain(runs.handles[index]);
    put(writableLengths(), extent, runs.lengths, runs.count);
    put(writableHandles(), extent, runs.handles, runs.count);
    count_ = count_ - extent.count + runs.count;
    for (uint32_t index = 0; index < extent.count; ++index) AttributeSet::release(dropped[index]);
  }

 private:
  static constexpr uint32_t block = 8;
  static constexpr size_t bytesPerRun = sizeof(uint32_t) + sizeof(AttributeHandle);

  explicit RunLeaf(uint32_t room) : room_(room) {}
  static uint32_t unitsOfBlock(const uint32_t* lengths) {
    uint32_t units = 0;
    for (uint32_t index = 0; index < block; ++index) units += lengths[index];
    return units;
  }
  // Past the whole blocks from the run on that end at or before the unit, counted from there, but never past the last run:
  // adding up a block takes little more than looking at one run.
  Found pastBlocks(uint32_t first, uint32_t unit) const {
    Found found{first, 0};
    for (; found.index + block < count_; found.index += block) {
      const uint32_t units = unitsOfBlock(lengths() + found.index);
      if (unit - found.before < units) break;
      found.before += units;
    }
    return found;
  }
  // How many runs from there on have just so many units.
  uint32_t runsIn(uint32_t first, uint32_t units) const {
    Found found = pastBlocks(first, units);
    while (found.before < units) found.before += lengths()[found.index++];
    return found.index - first;
  }
  uint32_t* writableLengths() { return reinterpret_cast<uint32_t*>(this + 1); }
  AttributeHandle* writableHandles() { return writableLengths() + room_; }

  void put(uint32_t* array, Extent extent, const uint32_t* values, uint32_t count) const {
    const uint32_t end = extent.first + extent.count;
    if (extent.count != count) std::memmove(array + extent.first + count, array + end, (count_ - end) * sizeof *array);
    std::copy_n(values, count, array + extent.first);
  }

  uint32_t count_ = 0;
  uint32_t room_;
};

}  // namespace standin::text
