// The lists around the place that is read, and the markers of their items.
#pragma once

#include "standin/formats/odt/library.hpp"

namespace standin::formats::odt {

// What the list makes of a paragraph.
struct Label {
  std::u16string marker;                // empty: none
  const LevelLayout* layout = nullptr;  // nil outside lists
};

class Numbering {
 public:
  explicit Numbering(const Library& library) : library_(library) {}

  // The elements of lists, numbered paragraphs being lists of one item.
  void startList(const xml::Element& element);
  void endList();
  void startItem(const xml::Element& element);
  void startNumberedParagraph(const xml::Element& element);
  // Lists in a table's cell are none of those around the table.
  void enterCell() { bases_.push_back(open_.size()); }
  void leaveCell();

  // Bytes that the lists take at most.
  size_t cost() const { return 3 * sizeof(ListCounters) * counters_.size() + identifiedBytes_; }

  // The label of the paragraph that starts; `listStyle` is what its own style names, for lists that name none.
  Label paragraph(std::string_view listStyle);
  // Of a heading, which is counted where it is in no list.
  Label heading(int level, const xml::Element& element, std::string_view listStyle);

 private:
  struct OpenList {
    const ListStyle* style = nullptr;  // nil: that of its paragraphs
    size_t counters = 0;
    int level = 0;
    bool continues = false;  // where an earlier list ended; so do lists inside, up to the end of the first
    bool restarts = false;   // with its first item
    bool awaitsMarker = false;
  };
  bool isInList() const { return open_.size() > bases_.back(); }
  size_t countersFor(const xml::Element& element);
  size_t identify(std::string identifier, size_t counters);
  static Label label(const ListStyle& style, ListCounters& counters, int level, bool isMarked);

  const Library& library_;
  const ListStyle plain_ = plainListStyle();
  std::vector<OpenList> open_;
  std::vector<size_t> bases_{0};
  std::vector<ListCounters> counters_;
  ListCounters headings_;
  std::string lastStyle_;
  size_t lastCounters_ = 0;
  std::unordered_map<std::string, size_t> identified_;  // counters, by the identifiers of lists
  size_t identifiedBytes_ = 0;                          // of these
};

}  // namespace standin::formats::odt
