// Allocations that fail on purpose: by C++ anywhere, by C functions where code of ours calls them.
#pragma once

namespace allocation_faults {

// Counts down to the allocation that fails; negative: none does.
extern long left;
// Allocations so far that could have failed.
extern long made;

// Learns where code of ours lies: this executable, the platform, the sibling classes. To be called when all are loaded.
void findOurCode();

}  // namespace allocation_faults
