// For documents in compound files: a stream is changed, and the container written anew.
#include <array>
#include <cstring>
#include <optional>
#include <vector>

#include "fuzz/mutators/mutators.hpp"
#include "standin/formats/compound_file/reader.hpp"
#include "standin/formats/compound_file/writer.hpp"

namespace {

namespace compound_file = standin::formats::compound_file;

constexpr const char* streamNames[] = {
    "WordDocument", "1Table", "0Table", "Data", "\5SummaryInformation", "\5DocumentSummaryInformation"};
constexpr uint32_t tellingNumbers[] = {0,      1,      2,       0x7F,       0xFF,       0x100,
                                       0x7FFF, 0xFFFF, 0x10000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};

// Two or four bytes anywhere, in one half of cases near the start, where headers are.
void changeNumber(std::string& stream, fuzz::Choices& choices) {
  const size_t width = choices.oneIn(2) ? 2 : 4;
  if (stream.size() < width) return;
  const size_t range = choices.oneIn(2) ? std::min<size_t>(stream.size(), 1024) : stream.size();
  const size_t at = std::min(choices.below(range) & ~size_t{1}, stream.size() - width);
  uint32_t number = choices.of(tellingNumbers);
  if (choices.oneIn(2)) {
    std::memcpy(&number, stream.data() + at, width);
    number += static_cast<uint32_t>(choices.below(9)) - 4;
  }
  std::memcpy(stream.data() + at, &number, width);
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t room, unsigned seed) {
  fuzz::Choices choices(seed);
  const auto file = choices.oneIn(20) ? std::nullopt : compound_file::File::open({bytes, size});
  if (!file) return LLVMFuzzerMutate(bytes, size, room);
  std::vector<std::pair<std::string_view, std::string>> contents;
  for (const char* name : streamNames) {
    if (const auto stream = file->read(name)) contents.emplace_back(name, fuzz::textOf(*stream));
  }
  if (contents.empty()) return LLVMFuzzerMutate(bytes, size, room);
  std::string& changed = choices.of(contents).second;
  if (choices.oneIn(3)) {
    changed = fuzz::mutatedBytes(changed, changed.size() + 512);
  } else {
    for (size_t changes = 1 + choices.below(4); changes > 0; --changes) changeNumber(changed, choices);
  }
  std::vector<compound_file::Stream> streams;
  for (const auto& [name, stream] : contents) streams.push_back({name, stream});
  const std::optional<std::string> written = compound_file::write(streams, {});
  return written ? fuzz::put(*written, bytes, size, room) : LLVMFuzzerMutate(bytes, size, room);
}
