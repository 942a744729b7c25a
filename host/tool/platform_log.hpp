// What the platform logs.
#pragma once

namespace tool {

// Keeps it off standard error. A platform without the switch for that keeps its own log.
void silencePlatformLog();

}  // namespace tool
