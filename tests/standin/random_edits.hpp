// Random numbers for tests: seed and number of rounds come from the environment, so that a failure can be run again and a
// long run can be asked for: TEST_SEED, TEST_ROUNDS.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>

class RandomEdits {
 public:
  explicit RandomEdits(int rounds) : rounds_(number("TEST_ROUNDS", rounds)), engine_(seed()) {}

  static unsigned seed() { return static_cast<unsigned>(number("TEST_SEED", 20240607)); }
  int rounds() const { return rounds_; }
  // From 0 to `limit`, both included.
  uint32_t upTo(size_t limit) { return std::uniform_int_distribution<uint32_t>(0, static_cast<uint32_t>(limit))(engine_); }
  bool oneIn(uint32_t count) { return upTo(count - 1) == 0; }

 private:
  static int number(const char* name, int fallback) {
    const char* text = std::getenv(name);
    return text != nullptr ? std::atoi(text) : fallback;
  }

  int rounds_;
  std::mt19937 engine_;
};
