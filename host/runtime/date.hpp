// Host dates: calendar dates in local time, to the second.
#pragma once

#include <array>
#include <cstdint>

#include "host/runtime/object.hpp"

namespace host {

// Year, month, day, hour, minute, second.
using DateComponents = std::array<int64_t, 6>;

// Components out of range carry over.
HostOwned<HostObject> makeDate(const DateComponents& components);
bool isDate(const HostObject* object);
// REQUIRES a date.
DateComponents componentsOf(const HostObject* date);

}  // namespace host
