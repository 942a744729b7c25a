// The platform's names of attributes and the like, as host strings.
#include "attributed/constants.hpp"

#include "bridge/strings.hpp"

namespace attributed {

plugin::REALstring textOf(NSString* const* key) { return key == nullptr ? nullptr : bridge::CFString2RBString(*key); }

}  // namespace attributed
