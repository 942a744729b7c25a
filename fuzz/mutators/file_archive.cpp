// For file archives: the checksum is made right again after a change.
#include <cstring>

#include "fuzz/mutators/mutators.hpp"
#include "standin/formats/file_archive/layout.hpp"

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t room, unsigned seed) {
  namespace file_archive = standin::formats::file_archive;
  constexpr size_t headerSize = file_archive::headerSize;
  fuzz::Choices choices(seed);
  if (choices.oneIn(20) || room < headerSize) return LLVMFuzzerMutate(bytes, size, room);
  const size_t body = size > headerSize ? size - headerSize : 0;
  const size_t changed = LLVMFuzzerMutate(bytes + headerSize, body, room - headerSize);
  const uint64_t sum = file_archive::checksum(fuzz::textOf({bytes + headerSize, changed}));
  std::memcpy(bytes, file_archive::signature.data(), file_archive::signature.size());
  std::memcpy(bytes + file_archive::signature.size(), &sum, sizeof sum);
  return headerSize + changed;
}
