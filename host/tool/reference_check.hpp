// Holds prose against records: nothing is left out, nothing is said of what is not there.
#pragma once

#include <vector>

#include "host/runtime/class.hpp"
#include "host/tool/reference_prose.hpp"

namespace tool {

// Throws ProseError when prose is about no class or no member, or about one twice; when a member has none; when a member is
// not said what it does, what its numbers count or what goes wrong; when no program of its group uses it.
void checkProse(const PageProse& page);

// The classes that no page speaks of. Throws ProseError, of the page for classes without prose, when one of them has a
// member that is not among those of every class.
std::vector<const host::HostClass*> classesWithoutProse(const std::vector<PageProse>& pages);

}  // namespace tool
