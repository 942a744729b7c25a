// The entry point that the host calls once, before anything else.
#pragma once

#include "platform/corefoundation.h"
#include "plugin/service.hpp"

namespace plugin {

// The Foundation bundle, kept for the life of the process; nil outside built applications.
inline constinit CFBundleRef FoundationFramework = nullptr;

// The plug-in interface version for a host of that version.
int64_t interfaceVersionFor(double version);

}  // namespace plugin

extern "C" void REALPluginMain(plugin::Resolver* resolver);
