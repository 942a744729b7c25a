// Messages on standard error, and what the exit status says.
#pragma once

#include <string>

namespace tool {

enum ExitStatus { Succeeded = 0, Failed = 1, WrongUsage = 2, ReferencesLeft = 3 };

// "styledtext: what went wrong", a line.
std::string messageText(const std::string& message);
// "styledtext: subject: what went wrong", on standard error.
void report(const std::string& subject, const std::string& message);

// What is still to be written to standard output, written. Answers Succeeded, or reports and answers Failed.
[[nodiscard]] ExitStatus finishOutput();

}  // namespace tool
