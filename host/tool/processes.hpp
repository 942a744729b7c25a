// Pieces of work, each done in a process of its own, so that what goes wrong with one leaves the others alone.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "host/tool/documents.hpp"

namespace tool {

struct Work {
  size_t count = 0;
  size_t jobs = 1;  // how many at a time
  // Before the piece's process starts; may be empty. Throws DocumentError for a piece that cannot be done.
  std::function<void(size_t index)> prepare;
  // In the piece's process. Throws DocumentError.
  std::function<void(size_t index, const PageDone& pageDone)> run;
  // While it runs; may be empty.
  std::function<void(int page)> pageDone;
  // When it has ended: nothing, or what went wrong. The pieces end in any order.
  std::function<void(size_t index, const std::optional<std::string>& error)> done;
};

// Answers the signal that asked this process to end meanwhile, 0 when none did. Then no process is left running, and the
// pieces that were are not told of.
[[nodiscard]] int runInProcesses(const Work& work);

// Ends this process as the signal would have.
void endBySignal(int signal);

}  // namespace tool
