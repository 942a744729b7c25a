// For web archives: the page or one of its files is changed, and the property list written anew.
#include <optional>

#include "fuzz/mutators/mutators.hpp"
#include "standin/formats/webarchive/archive.hpp"

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t room, unsigned seed) {
  namespace webarchive = standin::formats::webarchive;
  fuzz::Choices choices(seed);
  auto archive = choices.oneIn(3) ? std::nullopt : webarchive::parse({bytes, size});
  if (!archive) return LLVMFuzzerMutate(bytes, size, room);
  const bool isPage = archive->files.empty() || choices.oneIn(2);
  webarchive::Resource& resource = isPage ? archive->page : choices.of(archive->files);
  resource.contents = fuzz::mutatedMarkup(resource.contents, resource.contents.size() + 4096, choices);
  const std::optional<std::string> written = webarchive::serialize(*archive);
  return written ? fuzz::put(*written, bytes, size, room) : LLVMFuzzerMutate(bytes, size, room);
}
