// Lists that are open, and the markers of their items.
#pragma once

#include <string>
#include <vector>

#include "standin/formats/html/css/computed_style.hpp"
#include "standin/formats/html/tree.hpp"

namespace standin::formats::html {

class Lists {
 public:
  explicit Lists(const Tree& tree) : tree_(tree) {}

  static bool isList(Tag tag) { return tag == Tag::ol || tag == Tag::ul || tag == Tag::menu || tag == Tag::dir; }
  void open(NodeIndex list);
  void close() { counters_.pop_back(); }

  // Counts the item, and gives the text of its marker with what stands around it; empty for none.
  std::u16string markerOf(NodeIndex item, const css::ComputedStyle& style);

 private:
  struct Counter {
    int next = 1, step = 1;
  };
  int itemCount(NodeIndex list) const;

  const Tree& tree_;
  std::vector<Counter> counters_;
};

}  // namespace standin::formats::html
