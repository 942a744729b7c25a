// A table gives the numbers of the pages; a page has places in the text, and for each stretch between them the place of its
// modifiers in the page.
#include "standin/formats/doc/property_runs.hpp"

#include <algorithm>

namespace standin::formats::doc {
namespace {

// Of characters: a byte of size, and the list.
PropertyRun characterRun(Bytes page, size_t place) {
  return {0, 0, place == 0 ? Bytes() : page.part(place + 1, page.read8(place))};
}

// Of paragraphs: a size, the number of the style and the list.
PropertyRun paragraphRun(Bytes all) { return {0, 0, all.part(2), all.read16(0)}; }

// The size in pairs of bytes, one less than twice as many; or 0 and the size in pairs.
PropertyRun newParagraphRun(Bytes page, size_t place) {
  const uint8_t pairs = page.read8(place);
  if (place == 0) return {};
  return paragraphRun(pairs != 0 ? page.part(place + 1, size_t{pairs} * 2 - 1)
                                 : page.part(place + 2, size_t{page.read8(place + 1)} * 2));
}

PropertyRun oldParagraphRun(Bytes page, size_t place) {
  return place == 0 ? PropertyRun() : paragraphRun(page.part(place + 1, size_t{page.read8(place)} * 2));
}

// Pages overlap in no document that is whole: what goes back behind an earlier run is left out.
void addPage(PropertyRuns& runs, Bytes page, size_t descriptionSize, PropertyRun (*read)(Bytes, size_t)) {
  const size_t count = page.read8(pageSize - 1);
  const size_t descriptions = (count + 1) * 4;
  for (size_t index = 0; index < count && descriptions + index * descriptionSize < pageSize; ++index) {
    PropertyRun run = read(page, size_t{page.read8(descriptions + index * descriptionSize)} * 2);
    run.begin = page.read32(index * 4);
    run.end = page.read32(index * 4 + 4);
    if (run.begin < run.end && (runs.empty() || run.begin >= runs.back().end)) runs.push_back(run);
  }
}

PropertyRuns readPages(const Source& source, Part part, size_t descriptionSize, PropertyRun (*read)(Bytes, size_t)) {
  const Bytes table = source.part(part);
  const size_t numberSize = source.isOld ? 2 : 4;
  const size_t count = table.size() < 4 ? 0 : (table.size() - 4) / (4 + numberSize);
  PropertyRuns runs;
  for (size_t index = 0; index < count; ++index) {
    const size_t place = (count + 1) * 4 + index * numberSize;
    const size_t number = source.isOld ? table.read16(place) : table.read32(place) & 0x3FFFFF;
    addPage(runs, source.document.part(number * pageSize, pageSize), descriptionSize, read);
  }
  return runs;
}

}  // namespace

PropertyRuns characterRunsOf(const Source& source) { return readPages(source, Part::characterPages, 1, characterRun); }

PropertyRuns paragraphRunsOf(const Source& source) {
  return source.isOld ? readPages(source, Part::paragraphPages, 7, oldParagraphRun)
                      : readPages(source, Part::paragraphPages, 13, newParagraphRun);
}

PropertyRuns::const_iterator findRun(const PropertyRuns& runs, size_t place) {
  return std::upper_bound(runs.begin(), runs.end(), place,
                          [](size_t wanted, const PropertyRun& run) { return wanted < run.end; });
}

}  // namespace standin::formats::doc
