// An attributed string laid out on pages, as PDF.
#pragma once

#include "plugin/host_types.hpp"

namespace attributed {

// The bytes of the PDF that the platform prints, or nil. `printOptions` is nil or an NSPrintInfoZKT, whose settings replace
// the defaults; where the PDF goes is not for them to say.
plugin::REALmemoryBlock GeneratePDF(plugin::REALobject self, plugin::REALobject printOptions);

}  // namespace attributed
