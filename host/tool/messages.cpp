// Writes messages.
#include "host/tool/messages.hpp"

#include <iostream>

namespace tool {

void report(const std::string& subject, const std::string& message) {
  std::cout.flush();
  std::cerr << "styledtext: " << subject << ": " << message << '\n';
}

}  // namespace tool
