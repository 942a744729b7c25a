// Writes messages.
#include "host/tool/messages.hpp"

#include <iostream>

#include "host/tool/terminal.hpp"

namespace tool {

std::string messageText(const std::string& message) {
  return styled(Stream::Error, Look::Error, "styledtext:") + " " + message + "\n";
}

void report(const std::string& subject, const std::string& message) {
  std::cout.flush();
  std::cerr << messageText(subject + ": " + message);
}

ExitStatus finishOutput() {
  if (std::cout.flush()) return Succeeded;
  report("standard output", "not everything could be written");
  return Failed;
}

}  // namespace tool
