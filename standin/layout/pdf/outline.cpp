// Headings as a tree of objects.
#include "standin/layout/pdf/outline.hpp"

#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout::pdf {
namespace {

// By number of object; 0: there is none.
struct Entry {
  int object = 0, parent = 0, previous = 0, next = 0, first = 0, last = 0, children = 0;
};

// Entry 0 is the outline itself; the others are those of the headings.
class Tree {
 public:
  Tree(File& file, const std::vector<Heading>& headings) : entries_(headings.size() + 1) {
    for (Entry& entry : entries_) entry.object = file.reserve();
    std::vector<size_t> open{0};
    for (size_t index = 1; index < entries_.size(); ++index) {
      while (open.size() > 1 && headings[open.back() - 1].level >= headings[index - 1].level) open.pop_back();
      add(entries_[open.back()], index);
      open.push_back(index);
    }
  }
  const Entry& operator[](size_t index) const { return entries_[index]; }

 private:
  void add(Entry& parent, size_t index) {
    Entry& entry = entries_[index];
    entry.parent = parent.object;
    entry.previous = parent.last;
    if (parent.last != 0) {
      entries_[static_cast<size_t>(parent.last - entries_[0].object)].next = entry.object;
    } else {
      parent.first = entry.object;
    }
    parent.last = entry.object;
    ++parent.children;
  }

  std::vector<Entry> entries_;  // their objects follow one another
};

void link(std::string& body, const char* key, int object) {
  if (object != 0) body += key + reference(object);
}

}  // namespace

int writeOutline(File& file, const std::vector<Heading>& headings) {
  if (headings.empty()) return 0;
  const Tree tree(file, headings);
  for (size_t index = 0; index <= headings.size(); ++index) {
    const Entry& entry = tree[index];
    std::string body = index == 0 ? "<</Type/Outlines" : "<</Title" + textString(headings[index - 1].title);
    link(body, "/Parent ", entry.parent);
    link(body, "/Prev ", entry.previous);
    link(body, "/Next ", entry.next);
    link(body, "/First ", entry.first);
    link(body, "/Last ", entry.last);
    // Only the highest level is open at first.
    if (entry.children != 0) body += "/Count " + std::to_string(index == 0 ? entry.children : -entry.children);
    if (index > 0) {
      body += "/Dest[" + reference(headings[index - 1].page) + "/XYZ null ";
      appendNumber(body, headings[index - 1].top);
      body += " null]";
    }
    file.put(entry.object, body + ">>");
  }
  return tree[0].object;
}

}  // namespace standin::layout::pdf
