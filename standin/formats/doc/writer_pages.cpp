// A page holds, from its start, the places where stretches begin and where the formats of each are in the page; from its
// end, the formats, each once.
#include "standin/formats/doc/writer_pages.hpp"

#include "standin/formats/doc/layout.hpp"
#include "standin/formats/little_endian.hpp"

namespace standin::formats::doc {
namespace {

constexpr size_t placeSize = 4, countPlace = pageSize - 1;

// A format as the page holds it: its length goes first. Of paragraphs the length counts pairs of bytes, of which the
// first is the length's own; an even number of bytes takes another length behind a zero.
std::string characterEntry(const std::string& modifiers) { return static_cast<char>(modifiers.size()) + modifiers; }

std::string paragraphEntry(const std::string& properties) {
  const auto pairs = static_cast<char>((properties.size() + 1) / 2);
  return properties.size() % 2 == 0 ? std::string{'\0', pairs} + properties : pairs + properties;
}

class PageWriter {
 public:
  // `referenceSize` is what a stretch takes beside its place: the format's place, and unused bytes behind it.
  PageWriter(std::string& document, const Formatting& formatting, TextPlace place, size_t referenceSize,
             std::string (*entryOf)(const std::string&))
      : document_(document), formatting_(formatting), place_(place), referenceSize_(referenceSize) {
    for (const std::string& format : formatting.formats) entries_.push_back({entryOf(format)});
  }

  std::string write() {
    uint32_t from = 0;
    for (const Stretch& stretch : formatting_.stretches) {
      if (!fits(entries_[stretch.format])) finishPage(from);
      add(entries_[stretch.format], from);
      from = stretch.end;
    }
    finishPage(from);
    return tableOfPages(from);
  }

 private:
  struct Entry {
    std::string bytes;
    size_t page = SIZE_MAX;  // in which it was put last
    size_t position = 0;     // there
  };

  bool isInPage(const Entry& entry) const { return entry.page == pageStarts_.size(); }
  // Formats begin at even places.
  size_t positionFor(const Entry& entry) const { return (formatsStart_ - entry.bytes.size()) & ~size_t{1}; }

  bool fits(const Entry& entry) const {
    const size_t count = starts_.size() + 1;
    const size_t placesEnd = placeSize * (count + 1) + referenceSize_ * count;
    if (isInPage(entry)) return placesEnd <= formatsStart_;
    return entry.bytes.size() <= formatsStart_ && placesEnd <= positionFor(entry);
  }

  void add(Entry& entry, uint32_t from) {
    if (!isInPage(entry)) {
      formatsStart_ = entry.position = positionFor(entry);
      entry.page = pageStarts_.size();
      page_.replace(entry.position, entry.bytes.size(), entry.bytes);
    }
    starts_.push_back(from);
    references_.push_back(static_cast<uint8_t>(entry.position / 2));
  }

  void finishPage(uint32_t end) {
    pageStarts_.push_back(starts_.front());
    starts_.push_back(end);
    for (size_t index = 0; index < starts_.size(); ++index) setNumber(page_, placeSize * index, place_.of(starts_[index]));
    for (size_t index = 0; index < references_.size(); ++index) {
      setNumber(page_, placeSize * starts_.size() + referenceSize_ * index, references_[index]);
    }
    setNumber(page_, countPlace, static_cast<uint8_t>(references_.size()));
    document_ += page_;
    page_.assign(pageSize, '\0');
    starts_.clear();
    references_.clear();
    formatsStart_ = countPlace;
  }

  std::string tableOfPages(uint32_t end) const {
    std::string table;
    for (const uint32_t start : pageStarts_) append32(table, place_.of(start));
    append32(table, place_.of(end));
    const size_t firstPage = document_.size() / pageSize - pageStarts_.size();
    for (size_t index = 0; index < pageStarts_.size(); ++index) append32(table, firstPage + index);
    return table;
  }

  std::string& document_;
  const Formatting& formatting_;
  const TextPlace place_;
  const size_t referenceSize_;
  std::vector<Entry> entries_;
  std::vector<uint32_t> pageStarts_, starts_;  // characters
  std::vector<uint8_t> references_;
  size_t formatsStart_ = countPlace;
  std::string page_ = std::string(pageSize, '\0');
};

}  // namespace

std::string appendCharacterPages(std::string& document, const Formatting& formatting, TextPlace place) {
  return PageWriter(document, formatting, place, 1, characterEntry).write();
}

std::string appendParagraphPages(std::string& document, const Formatting& formatting, TextPlace place) {
  constexpr size_t unusedLineHeights = 12;
  return PageWriter(document, formatting, place, 1 + unusedLineHeights, paragraphEntry).write();
}

}  // namespace standin::formats::doc
