// Runs in order, merging equal neighbours as they come: how runs are gathered before they enter a tree.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "standin/text/run_leaf.hpp"

namespace standin::text {

// Holds one reference to the set of each run. The first few runs are kept in place, without allocation.
class RunList {
 public:
  RunList() = default;
  RunList(const RunList&) = delete;
  RunList& operator=(const RunList&) = delete;
  ~RunList() {
    for (uint32_t index = 0; index < count_; ++index) AttributeSet::release(handles_[index]);
  }

  void add(uint32_t length, AttributeHandle attributes) {
    if (length == 0) return;
    if (count_ > 0 && handles_[count_ - 1] == attributes) {
      lengths_[count_ - 1] += length;
      return;
    }
    if (count_ == room_) grow();
    AttributeSet::retain(attributes);
    lengths_[count_] = length;
    handles_[count_++] = attributes;
  }
  RunSpan runs() const { return {lengths_, handles_, count_}; }

 private:
  static constexpr uint32_t inPlace = 24;

  void grow() {
    std::vector<uint32_t> larger(size_t{room_} * 4);
    std::copy_n(lengths_, count_, larger.data());
    std::copy_n(handles_, count_, larger.data() + size_t{room_} * 2);
    room_ *= 2;
    spilled_ = std::move(larger);
    lengths_ = spilled_.data();
    handles_ = spilled_.data() + room_;
  }

  std::array<uint32_t, size_t{2} * inPlace> memory_;
  std::vector<uint32_t> spilled_;  // both arrays, once they no longer fit in place
  uint32_t* lengths_ = memory_.data();
  AttributeHandle* handles_ = memory_.data() + inPlace;
  uint32_t count_ = 0;
  uint32_t room_ = inPlace;
};

}  // namespace standin::text
