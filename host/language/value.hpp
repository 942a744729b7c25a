// The host's values and types, as the language uses them.
#pragma once

#include "host/runtime/declaration.hpp"
#include "host/runtime/value.hpp"

namespace language {

using host::HostObject;
using host::HostOwned;
using host::Kind;
using host::Type;
using host::Value;

}  // namespace language
