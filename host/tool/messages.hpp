// Messages on standard error, and what the exit status says.
#pragma once

#include <string>

namespace tool {

enum ExitStatus { Succeeded = 0, Failed = 1, WrongUsage = 2, ReferencesLeft = 3 };

// "styledtext: subject: what went wrong"
void report(const std::string& subject, const std::string& message);

}  // namespace tool
