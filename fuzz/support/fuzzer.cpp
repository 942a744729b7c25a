// The way to say that a property does not hold.
#include "fuzz/support/fuzzer.hpp"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

void fail(std::string_view what) {
  std::fprintf(stderr, "fuzz: %.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

}  // namespace fuzz
