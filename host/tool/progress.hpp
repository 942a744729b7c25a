// A line on a terminal that shows how far a long command is.
#pragma once

#include <cstddef>

namespace tool {

// Nothing is shown where standard error is no terminal.
class Progress {
 public:
  explicit Progress(size_t files);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { clear(); }

  void fileDone();
  // Of the file that is being written; few pages are not worth a line.
  void pageDone(int page);
  // For a message in the line's place.
  void clear();

 private:
  void showFiles(const char* rest);

  size_t files_, done_ = 0;
  bool isTerminal_, isShown_ = false;
};

}  // namespace tool
