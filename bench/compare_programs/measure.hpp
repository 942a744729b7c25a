// What the comparison's programs share: time, places drawn at random, files, and the one line that each prints.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace compare {

// Processor seconds of this process, which other processes on the machine disturb least.
inline double processorSeconds() {
  timespec time;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Instruction counts are collected inside this function, found by its name.
__attribute__((noinline)) inline void measured(const std::function<void()>& work) { work(); }

// Prints the seconds that one of `operations` took, the best of several rounds.
inline void report(double operations, int rounds, const std::function<void()>& work) {
  double best = 1e9;
  for (int round = 0; round < rounds; ++round) {
    const double start = processorSeconds();
    measured(work);
    best = std::min(best, processorSeconds() - start);
  }
  std::printf("%.12g\n", best / operations);
}

// The same places in every program.
inline std::vector<uint32_t> places(uint32_t limit, size_t count) {
  std::vector<uint32_t> drawn(count);
  uint64_t state = 0x2545F4914F6CDD1D;
  for (uint32_t& place : drawn) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    place = static_cast<uint32_t>((state >> 32) * limit >> 32);
  }
  return drawn;
}

inline std::string contents(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace compare
