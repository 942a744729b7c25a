// For documents that are markup throughout.
#include "fuzz/mutators/mutators.hpp"

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t room, unsigned seed) {
  fuzz::Choices choices(seed);
  if (choices.oneIn(3)) return LLVMFuzzerMutate(bytes, size, room);
  return fuzz::put(fuzz::mutatedMarkup(fuzz::textOf({bytes, size}), room, choices), bytes, size, room);
}
