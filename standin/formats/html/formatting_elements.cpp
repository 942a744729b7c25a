// Formatting elements: they go on in the blocks that follow when a block ends before they do, and end across blocks.
#include <algorithm>

#include "standin/formats/html/tree_builder.hpp"

namespace standin::formats::html {
namespace {

constexpr size_t mostFormatting = 64;  // of elements that go on at a time

}  // namespace

// From the end of the list; its size when there is none.
size_t TreeBuilder::formattingPlace(Tag tag) const {
  for (size_t place = formatting_.size(); place-- > 0 && formatting_[place] != noNode;) {
    if (tree_.nodes_[formatting_[place]].tag == tag) return place;
  }
  return formatting_.size();
}

size_t TreeBuilder::formattingPlace(NodeIndex element) const {
  return static_cast<size_t>(std::find(formatting_.begin(), formatting_.end(), element) - formatting_.begin());
}

size_t TreeBuilder::openPosition(NodeIndex element) const {
  const auto found = std::find(open_.rbegin(), open_.rend(), element);
  return found == open_.rend() ? 0 : static_cast<size_t>(open_.rend() - found) - 1;
}

bool TreeBuilder::areAlike(NodeIndex left, NodeIndex right) const {
  const Node &one = tree_.nodes_[left], &other = tree_.nodes_[right];
  const auto attributes = tree_.attributes_.begin();
  return one.tag == other.tag && one.attributeCount == other.attributeCount &&
         std::equal(attributes + one.firstAttribute, attributes + one.firstAttribute + one.attributeCount,
                    attributes + other.firstAttribute,
                    [](const Attribute& a, const Attribute& b) { return a.name == b.name && a.value == b.value; });
}

// No more than three that are alike go on.
void TreeBuilder::dropThirdLike(NodeIndex element) {
  size_t alike = 0, earliest = 0;
  for (size_t place = formatting_.size(); place-- > 0 && formatting_[place] != noNode;) {
    if (!areAlike(formatting_[place], element)) continue;
    ++alike;
    earliest = place;
  }
  if (alike >= 3) formatting_.erase(formatting_.begin() + static_cast<ptrdiff_t>(earliest));
}

void TreeBuilder::startFormatting(const Token& token) {
  resumeFormatting();
  const NodeIndex element = newElement(token);
  if (token.closesItself && isXML_) return append(open_.back(), element);
  open(element);
  dropThirdLike(element);
  if (formatting_.size() >= mostFormatting) {
    const auto dropped =
        std::find_if(formatting_.begin(), formatting_.end(), [](NodeIndex place) { return place != noNode; });
    if (dropped != formatting_.end()) formatting_.erase(dropped);
  }
  formatting_.push_back(element);
}

// Opens copies of what goes on and is not open.
void TreeBuilder::resumeFormatting() {
  size_t first = formatting_.size();
  while (first > 0 && formatting_[first - 1] != noNode && openPosition(formatting_[first - 1]) == 0) --first;
  for (; first < formatting_.size() && !isFull(); ++first) {
    const NodeIndex copy = cloneOf(formatting_[first]);
    open(copy);
    formatting_[first] = copy;
  }
}

void TreeBuilder::endFormatting(Tag tag, std::string_view name) {
  constexpr int mostBlocks = 8;
  for (int block = 0; block < mostBlocks && endFormattingOnce(tag, name); ++block) {
  }
}

// True when the element also was around a block, out of which it was taken: there may be another.
bool TreeBuilder::endFormattingOnce(Tag tag, std::string_view name) {
  const size_t place = formattingPlace(tag);
  if (place == formatting_.size()) {
    if (!name.empty()) endInline(name);
    return false;
  }
  const size_t position = openPosition(formatting_[place]);
  const auto isBlock = [this](NodeIndex open) { return hasTrait(tree_.nodes_[open].tag, isSpecial); };
  const auto block = std::find_if(open_.begin() + static_cast<ptrdiff_t>(position), open_.end(), isBlock);
  if (position > 0 && block != open_.end() && !isFull()) {
    moveOutOfFormatting(position, static_cast<size_t>(block - open_.begin()));
    return true;
  }
  formatting_.erase(formatting_.begin() + static_cast<ptrdiff_t>(place));
  if (position > 0) popThrough(position);
  return false;
}

// The elements between the formatting element and the block are copied around what follows the element; the copies of those
// that do not go on are left out. Gives what is to stand behind the formatting element.
NodeIndex TreeBuilder::wrapFollowing(size_t position, size_t block) {
  NodeIndex last = open_[block];
  for (size_t at = block; --at > position;) {
    const size_t listed = formattingPlace(open_[at]);
    if (listed == formatting_.size()) {
      open_.erase(open_.begin() + static_cast<ptrdiff_t>(at));
      continue;
    }
    const NodeIndex copy = cloneOf(open_[at]);
    formatting_[listed] = open_[at] = copy;
    unlink(last);
    append(copy, last);
    last = copy;
  }
  return last;
}

// The block goes behind the formatting element, and its content, as far as it has been read, into a copy of that.
void TreeBuilder::moveOutOfFormatting(size_t position, size_t block) {
  const NodeIndex element = open_[position], blockNode = open_[block], outer = open_[position - 1];
  const NodeIndex moved = wrapFollowing(position, block);
  unlink(moved);
  append(outer, moved);
  const NodeIndex copy = cloneOf(element);
  while (tree_.nodes_[blockNode].firstChild != noNode) {
    const NodeIndex child = tree_.nodes_[blockNode].firstChild;
    unlink(child);
    append(copy, child);
  }
  append(blockNode, copy);
  formatting_[formattingPlace(element)] = copy;
  open_.erase(open_.begin() + static_cast<ptrdiff_t>(position));
  const size_t behind = openPosition(blockNode) + 1;
  open_.insert(open_.begin() + static_cast<ptrdiff_t>(behind), copy);
}

}  // namespace standin::formats::html
