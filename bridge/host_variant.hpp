// One reference to a host variant: the form in which the conversions hold host values.
#pragma once

#include "plugin/host_owned.hpp"

namespace bridge {

using HostVariant = plugin::HostOwned<plugin::REALobjectStruct>;

}  // namespace bridge
