// The terminal's control sequences.
#include "host/tool/terminal.hpp"

#include <unistd.h>

#include <cstdlib>

namespace tool {
namespace {

bool hasColours(Stream stream) {
  const char *off = std::getenv("NO_COLOR"), *terminal = std::getenv("TERM");
  if (off != nullptr && *off != '\0') return false;
  return terminal != nullptr && std::string_view(terminal) != "dumb" && isatty(static_cast<int>(stream)) != 0;
}

constexpr const char* sequences[] = {"\033[1m", "\033[2m", "\033[1;31m"};

}  // namespace

std::string styled(Stream stream, Look look, std::string_view text) {
  if (!hasColours(stream)) return std::string(text);
  return sequences[static_cast<size_t>(look)] + std::string(text) + "\033[0m";
}

}  // namespace tool
