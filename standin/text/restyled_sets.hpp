// What sets become when runs are restyled.
#pragma once

#include <array>

#include "standin/text/attribute_set.hpp"

namespace standin::text {

// The sets that a restyling has led to so far, so that each is worked out once however many runs share it.
template <class Restyled>
class RestyledSets {
 public:
  explicit RestyledSets(Restyled& restyled) : restyled_(restyled) {}

  AttributeHandle operator()(AttributeHandle source) {
    for (size_t step = 0; step < slots_.size(); ++step) {
      Slot& slot = slots_[(source + step) % slots_.size()];
      if (!slot.isKnown) return fill(slot, source);
      if (slot.source == source) return slot.result.handle();
    }
    return fill(slots_[source % slots_.size()], source);
  }

 private:
  struct Slot {
    AttributeHandle source = 0;
    AttributeSet result;
    bool isKnown = false;
  };

  AttributeHandle fill(Slot& slot, AttributeHandle source) {
    slot.result = restyled_(AttributeSet(source));
    slot.source = source;
    slot.isKnown = true;
    return slot.result.handle();
  }

  Restyled& restyled_;
  std::array<Slot, 8> slots_;
};

}  // namespace standin::text
