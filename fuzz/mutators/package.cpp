// For documents that are zip containers of XML: a part is changed, and the container written anew.
#include <optional>
#include <vector>

#include "fuzz/mutators/mutators.hpp"
#include "standin/formats/zip.hpp"

namespace {

namespace containers = standin::formats::zip;

bool isXml(const std::string& name) { return name.ends_with(".xml") || name.ends_with(".rels"); }

std::vector<containers::Entry> entriesOf(fuzz::Bytes package) {
  std::vector<containers::Entry> entries;
  auto archive = containers::Archive::open(package);
  if (!archive) return entries;
  for (const std::string& name : archive->names()) {
    if (auto contents = archive->read(name)) entries.push_back({name, *std::move(contents), false});
  }
  return entries;
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t room, unsigned seed) {
  fuzz::Choices choices(seed);
  std::vector<containers::Entry> entries;
  if (!choices.oneIn(20)) entries = entriesOf({bytes, size});
  if (entries.empty()) return LLVMFuzzerMutate(bytes, size, room);
  containers::Entry& entry = choices.of(entries);
  const size_t mostBytes = entry.contents.size() + 4096;
  entry.contents = isXml(entry.name) ? fuzz::mutatedMarkup(entry.contents, mostBytes, choices)
                                     : fuzz::mutatedBytes(entry.contents, mostBytes);
  const std::optional<std::string> written = containers::write(entries);
  return written ? fuzz::put(*written, bytes, size, room) : LLVMFuzzerMutate(bytes, size, room);
}
