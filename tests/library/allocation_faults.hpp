// Allocations that fail on purpose, in the whole process.
#pragma once

namespace allocation_faults {

// Counts down to the allocation that fails; negative: none does.
extern long left;
// Allocations so far.
extern long made;

}  // namespace allocation_faults
