// How much memory the process holds, through whichever allocator call it was taken.
#pragma once

#include <cstddef>

namespace fuzz {

// Meters the time from its making on; one at a time.
class AllocationMeter {
 public:
  AllocationMeter();
  // The most bytes at any moment so far, beyond those that were held at the start.
  size_t peak() const;
};

}  // namespace fuzz
