// Completion of the command line for shells.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tool {

// A script for bash: the commands, their options, and the values of those that take one of a few. Everything else is
// completed as the name of a file.
std::string bashCompletion(const CLI::App& app);

}  // namespace tool
