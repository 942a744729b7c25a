// Random choices of a mutator, all from the seed that it is given.
#pragma once

#include <random>

namespace fuzz {

class Choices {
 public:
  explicit Choices(unsigned seed) : engine_(seed) {}

  // Below `limit`; 0 when that is 0.
  size_t below(size_t limit) { return limit == 0 ? 0 : engine_() % limit; }
  bool oneIn(size_t count) { return below(count) == 0; }
  unsigned seed() { return static_cast<unsigned>(engine_()); }
  template <class List>
  auto& of(List& list) {
    return list[below(std::size(list))];
  }

 private:
  std::minstd_rand engine_;
};

}  // namespace fuzz
