// Runs in order, merging equal neighbours as they come: how runs are gathered before they enter a tree.
#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>
#include <vector>

#include "standin/text/run_leaf.hpp"

namespace standin::text {

// Holds one reference to the set of each run. The first few runs are kept in place, without allocation.
class RunList {
 public:
  RunList() {
    lengths_.reserve(inPlace);
    handles_.reserve(inPlace);
  }
  RunList(const RunList&) = delete;
  RunList& operator=(const RunList&) = delete;
  ~RunList() {
    for (const AttributeHandle handle : handles_) AttributeSet::release(handle);
  }

  void add(uint32_t length, AttributeHandle attributes) {
    if (length == 0) return;
    if (!handles_.empty() && handles_.back() == attributes) {
      lengths_.back() += length;
      return;
    }
    lengths_.push_back(length);
    handles_.push_back(attributes);
    AttributeSet::retain(attributes);
  }
  RunSpan runs() const { return {lengths_.data(), handles_.data(), static_cast<uint32_t>(lengths_.size())}; }

 private:
  static constexpr size_t inPlace = 24;

  std::array<std::byte, 2 * inPlace * sizeof(uint32_t)> memory_;
  std::pmr::monotonic_buffer_resource arena_{memory_.data(), memory_.size()};
  std::pmr::vector<uint32_t> lengths_{&arena_};
  std::pmr::vector<AttributeHandle> handles_{&arena_};
};

}  // namespace standin::text
