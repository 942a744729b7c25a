// The text attachment's shared method, which the attributed string offers as well.
#pragma once

#include "plugin/host_types.hpp"

namespace classes {

// A string of one attachment character. Nil for nil and for an empty attachment.
plugin::REALobject attributedStringWithAttachment(plugin::REALobject attachment);

}  // namespace classes
