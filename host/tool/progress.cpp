// The bar of files and the count of pages.
#include "host/tool/progress.hpp"

#include <unistd.h>

#include <iostream>
#include <string>

namespace tool {
namespace {

constexpr size_t fewestFiles = 5, width = 40;
constexpr int fewestPages = 20, pagesBetweenLines = 10;

}  // namespace

Progress::Progress(size_t files) : files_(files), isTerminal_(isatty(STDERR_FILENO) != 0) {}

void Progress::showFiles(const char* rest) {
  if (files_ < fewestFiles) return;
  const size_t filled = done_ * width / files_;
  std::cerr << "\r[" << std::string(filled, '#') << std::string(width - filled, ' ') << "] " << done_ << "/" << files_
            << rest;
  isShown_ = true;
}

void Progress::fileDone() {
  ++done_;
  if (!isTerminal_) return;
  showFiles("\033[K");
  std::cerr << std::flush;
}

void Progress::pageDone(int page) {
  if (!isTerminal_ || page < fewestPages || page % pagesBetweenLines != 0) return;
  if (files_ < fewestFiles) std::cerr << '\r';
  showFiles("  ");
  std::cerr << page << " pages\033[K" << std::flush;
  isShown_ = true;
}

void Progress::clear() {
  if (isShown_) std::cerr << "\r\033[K" << std::flush;
  isShown_ = false;
}

}  // namespace tool
