// The bodies of the summed tree.
#pragma once

#include <algorithm>

#include "standin/text/summed_tree.hpp"

#define TREE_TEMPLATE template <class Leaf, uint32_t fanOut>
#define TREE SummedTree<Leaf, fanOut>

// NOLINTBEGIN(clang-analyzer-*): as for NodeReference.
namespace standin::text {

// Finding.

TREE_TEMPLATE
auto TREE::findBy(uint32_t Sum::*measure, uint32_t index) const -> Place {
  Sum before{}, sum = total_;
  const TreeNode* node = root_.get();
  const Branch* parent = nullptr;
  uint32_t child = 0;
  bool isOwn = root_.isUnique();
  while (node->height > 0) {
    parent = static_cast<const Branch*>(node);
    // As in `descend`.
    child = parent->count - 1;
    Sum beforeLast = before;
    beforeLast += sum;
    beforeLast -= parent->sums[child];
    if (index >= beforeLast.*measure) {
      before = beforeLast;
    } else {
      for (child = 0; index - before.*measure >= parent->sums[child].*measure;) before += parent->sums[child++];
    }
    sum = parent->sums[child];
    node = parent->children[child].get();
    isOwn = isOwn && node->references == 1;
  }
  return {static_cast<const Leaf*>(node), before, parent, child, isOwn};
}

// The last child is tried first: text is mostly made, and asked about, at its end.
TREE_TEMPLATE
uint32_t TREE::descend(const Branch& branch, uint32_t units, uint32_t& position) {
  const uint32_t last = branch.count - 1, beforeLast = units - branch.sums[last].units;
  if (position >= beforeLast) {
    position -= beforeLast;
    return last;
  }
  uint32_t child = 0;
  while (position >= branch.sums[child].units) position -= branch.sums[child++].units;
  return child;
}

TREE_TEMPLATE
const Leaf& TREE::lastLeaf() const {
  const TreeNode* node = root_.get();
  while (node->height > 0) {
    const Branch& branch = *static_cast<const Branch*>(node);
    node = branch.children[branch.count - 1].get();
  }
  return *static_cast<const Leaf*>(node);
}

TREE_TEMPLATE
auto TREE::next(const Place& place) const -> Place {
  Sum before = place.before;
  before += place.parent->sums[place.child];
  const uint32_t child = place.child + 1;
  if (child == place.parent->count) return find(before.units);
  return {static_cast<const Leaf*>(place.parent->children[child].get()), before, place.parent, child, false};
}

// Nodes.

TREE_TEMPLATE
void TREE::destroy(TreeNode* node) {
  if (node->height == 0) {
    Leaf::destroy(static_cast<Leaf*>(node));
  } else {
    delete static_cast<Branch*>(node);
  }
}

TREE_TEMPLATE
void TREE::Branch::insert(uint32_t index, Piece piece) {
  std::move_backward(children.begin() + index, children.begin() + count, children.begin() + count + 1);
  std::move_backward(sums.begin() + index, sums.begin() + count, sums.begin() + count + 1);
  children[index] = std::move(piece.node);
  sums[index] = piece.sum;
  ++count;
}

TREE_TEMPLATE
void TREE::Branch::erase(uint32_t index, uint32_t erased) {
  std::move(children.begin() + index + erased, children.begin() + count, children.begin() + index);
  std::move(sums.begin() + index + erased, sums.begin() + count, sums.begin() + index);
  for (uint32_t vacant = count - erased; vacant < count; ++vacant) children[vacant] = {};
  count -= erased;
}

// Moves the children from `first` on to the end of this branch.
TREE_TEMPLATE
void TREE::Branch::takeFrom(Branch& other, uint32_t first) {
  for (uint32_t child = first; child < other.count; ++child) {
    insert(count, Piece{std::move(other.children[child]), other.sums[child]});
  }
  other.count = first;
}

TREE_TEMPLATE
auto TREE::writableLeaf(Reference& node, uint32_t entries) -> Leaf& {
  Leaf& leaf = leafOf(node.get());
  if (node.isUnique() && leaf.hasRoom(entries)) return leaf;
  if constexpr (Leaf::canGrow) {
    if (node.isUnique()) {
      node.exchange(Leaf::grown(&leaf, Leaf::roomFor(entries)));
      return leafOf(node.get());
    }
  }
  Leaf* copy = Leaf::make(std::max(Leaf::roomFor(entries), leaf.count()));
  copy->append(leaf.content());
  node = Reference::adopt(copy);
  return *copy;
}

TREE_TEMPLATE
auto TREE::writableBranch(Reference& node) -> Branch& {
  Branch& branch = branchOf(node.get());
  if (node.isUnique()) return branch;
  auto* copy = new Branch(branch);
  copy->references = 1;
  node = Reference::adopt(copy);
  return *copy;
}

TREE_TEMPLATE
auto TREE::sumOf(const Branch& branch) -> Sum {
  Sum sum{};
  for (uint32_t child = 0; child < branch.count; ++child) sum += branch.sums[child];
  return sum;
}

// Loading.

TREE_TEMPLATE
auto TREE::load(const Content& content) -> SummedTree {
  SummedTree tree;
  const uint32_t count = Leaf::countOf(content);
  if (count == 0) return tree;
  // Leaves are left with some room, so that the first edits do not split every one of them.
  constexpr uint32_t fill = Leaf::capacity - Leaf::capacity / 8;
  if (count <= Leaf::capacity) {
    Leaf* made = Leaf::make(count);
    tree.root_ = Reference::adopt(made);
    tree.total_ = Leaf::sumOf(content);
    made->append(content);
    return tree;
  }
  const uint32_t leaves = (count - 1) / fill + 1;
  std::vector<Piece> level;
  level.reserve(leaves);
  for (uint32_t leaf = 0; leaf < leaves; ++leaf) {
    const auto from = static_cast<uint32_t>(uint64_t{count} * leaf / leaves);
    const auto end = static_cast<uint32_t>(uint64_t{count} * (leaf + 1) / leaves);
    const Content part = Leaf::slice(content, from, end - from);
    Leaf* made = Leaf::make(end - from);
    level.push_back(Piece{Reference::adopt(made), Leaf::sumOf(part)});
    made->append(part);
  }
  while (level.size() > 1) level = gather(std::move(level));
  tree.root_ = std::move(level.front().node);
  tree.total_ = level.front().sum;
  return tree;
}

// The branches over a level of nodes, filled evenly.
TREE_TEMPLATE
auto TREE::gather(std::vector<Piece> level) -> std::vector<Piece> {
  std::vector<Piece> above((level.size() - 1) / fanOut + 1);
  const auto height = static_cast<uint16_t>(level.front().node->height + 1);
  for (size_t index = 0; index < above.size(); ++index) {
    auto* branch = new Branch(height);
    above[index].node = Reference::adopt(branch);
    const size_t end = level.size() * (index + 1) / above.size();
    for (size_t child = level.size() * index / above.size(); child < end; ++child) {
      above[index].sum += level[child].sum;
      branch->insert(branch->count, std::move(level[child]));
    }
  }
  return above;
}

// Editing.

TREE_TEMPLATE
void TREE::replace(uint32_t from, uint32_t removed, const Content& inserted) {
  if (!root_ || Leaf::countOf(inserted) > Leaf::capacity) {
    splice(from, removed, load(inserted));
    return;
  }
  if (editInPlace(from, removed, inserted)) return;
  Piece overflow;
  edit(root_, total_, from, removed, inserted, overflow);
  finish(std::move(overflow));
}

TREE_TEMPLATE
bool TREE::extend(const Content& content) {
  Path path(*this);
  while (path.canGoOn()) path.enter(path.branch().count - 1);
  if (!path.isAtLeaf()) return false;
  const uint32_t count = leafOf(path.node().get()).count() + Leaf::countOf(content);
  if (count > Leaf::capacity) return false;
  writableLeaf(path.node(), count).append(content);
  path.change(Sum{}, Leaf::sumOf(content));
  return true;
}

TREE_TEMPLATE
bool TREE::editInPlace(uint32_t from, uint32_t removed, const Content& inserted) {
  Path path(*this);
  while (path.canGoOn()) {
    const Branch& branch = path.branch();
    const uint32_t child = descend(branch, path.sum().units, from);
    if (removed > branch.sums[child].units - from) return false;
    path.enter(child);
  }
  if (!path.isAtLeaf() || !path.node().isUnique()) return false;
  Leaf& leaf = leafOf(path.node().get());
  const Extent extent = leaf.extent(from, removed);
  const uint32_t count = leaf.count() - extent.count + Leaf::countOf(inserted);
  // Only a leaf that loses entries can become too small beside its neighbours.
  const uint32_t fewest = &path.node() == &root_ ? 1 : capacityOf(0) / 4 + 1;
  if (count < std::min(fewest, leaf.count()) || count > Leaf::capacity || !leaf.hasRoom(count)) return false;
  const Sum former = path.sum();
  Sum sum = former;
  leaf.replace(extent, inserted, sum);
  path.change(former, sum);
  return true;
}

TREE_TEMPLATE
void TREE::adjust(uint32_t position, uint32_t entry, const Sum& change) {
  Reference* node = &root_;
  Sum* sum = &total_;
  while ((*node)->height > 0) {
    Branch& branch = writableBranch(*node);
    const uint32_t child = descend(branch, sum->units, position);
    *sum += change;
    node = &branch.children[child];
    sum = &branch.sums[child];
  }
  *sum += change;
  writableLeaf(*node, leafOf(node->get()).count()).adjust(entry, change);
}

TREE_TEMPLATE
void TREE::edit(Reference& node, Sum& sum, uint32_t from, uint32_t removed, const Content& inserted, Piece& overflow) {
  if (node->height == 0) {
    editLeaf(node, sum, from, removed, inserted, overflow);
  } else {
    editBranch(node, sum, from, removed, inserted, overflow);
  }
}

TREE_TEMPLATE
void TREE::editLeaf(Reference& node, Sum& sum, uint32_t from, uint32_t removed, const Content& inserted, Piece& overflow) {
  const Leaf& leaf = leafOf(node.get());
  const Extent extent = leaf.extent(from, removed);
  const uint32_t count = leaf.count() - extent.count + Leaf::countOf(inserted);
  if (count == 0) {
    node = {};
    sum = {};
  } else if (count > Leaf::capacity) {
    splitLeaf(node, sum, extent, inserted, overflow);
  } else {
    writableLeaf(node, count).replace(extent, inserted, sum);
  }
}

// The halves are even, but content that follows all that the leaf holds gets a leaf of its own: appending leaves full
// leaves behind.
TREE_TEMPLATE
void TREE::splitLeaf(Reference& node, Sum& sum, Extent extent, const Content& inserted, Piece& overflow) {
  const Content whole = leafOf(node.get()).content();
  const uint32_t end = extent.first + extent.count;
  const std::array<Content, 3> parts{Leaf::slice(whole, 0, extent.first), inserted,
                                     Leaf::slice(whole, end, Leaf::countOf(whole) - end)};
  uint32_t total = 0;
  for (const Content& part : parts) total += Leaf::countOf(part);
  const bool atEnd = end == Leaf::countOf(whole) && extent.first > Leaf::capacity / 2;
  uint32_t room = atEnd ? extent.first : total / 2;

  Piece left{Reference::adopt(Leaf::make(Leaf::roomFor(room)))};
  overflow.node = Reference::adopt(Leaf::make(Leaf::roomFor(total - room)));
  overflow.sum = {};
  for (const Content& part : parts) {
    const uint32_t count = Leaf::countOf(part);
    const uint32_t taken = std::min(room, count);
    const Content head = Leaf::slice(part, 0, taken);
    const Content tail = Leaf::slice(part, taken, count - taken);
    leafOf(left.node.get()).append(head);
    left.sum += Leaf::sumOf(head);
    leafOf(overflow.node.get()).append(tail);
    overflow.sum += Leaf::sumOf(tail);
    room -= taken;
  }
  node = std::move(left.node);
  sum = left.sum;
}

TREE_TEMPLATE
void TREE::editBranch(Reference& node, Sum& sum, uint32_t from, uint32_t removed, const Content& inserted, Piece& overflow) {
  Branch& branch = writableBranch(node);
  const uint32_t index = descend(branch, sum.units, from);
  Piece extra;
  if (removed > branch.sums[index].units - from) {
    editAcross(branch, index, from, removed, inserted, extra);
    sum = sumOf(branch);
    sum += extra.sum;
    settle(node, sum, index, std::move(extra), overflow);
    return;
  }
  sum -= branch.sums[index];
  edit(branch.children[index], branch.sums[index], from, removed, inserted, extra);
  sum += branch.sums[index];
  sum += extra.sum;
  if (!branch.children[index] || extra.node || isSmall(branch.children[index])) {
    settle(node, sum, index, std::move(extra), overflow);
  }
}

// The first child takes the content, children in the middle go, and the last loses its head.
TREE_TEMPLATE
void TREE::editAcross(Branch& branch, uint32_t index, uint32_t offset, uint32_t removed, const Content& inserted,
                      Piece& extra) {
  uint32_t rest = removed - (branch.sums[index].units - offset);
  edit(branch.children[index], branch.sums[index], offset, branch.sums[index].units - offset, inserted, extra);
  uint32_t end = index + 1;
  while (end < branch.count && rest >= branch.sums[end].units) rest -= branch.sums[end++].units;
  branch.erase(index + 1, end - index - 1);
  Piece none;
  if (rest > 0) edit(branch.children[index + 1], branch.sums[index + 1], 0, rest, Content{}, none);
}

TREE_TEMPLATE
void TREE::settle(Reference& node, Sum& sum, uint32_t index, Piece extra, Piece& overflow) {
  Branch& branch = branchOf(node.get());
  if (extra.node) branch.insert(index + 1, std::move(extra));
  if (!branch.children[index]) branch.erase(index, 1);
  // From right to left, so that a merge does not move what is still to be looked at.
  for (uint32_t child = std::min(index + 3, branch.count); child-- > (index == 0 ? 0 : index - 1);)
    mergeSmall(branch, child);
  if (branch.count == 0) {
    node = {};
  } else if (branch.count > fanOut) {
    auto* right = new Branch(branch.height);
    overflow.node = Reference::adopt(right);
    right->takeFrom(branch, (fanOut + 1) / 2);
    overflow.sum = sumOf(*right);
    sum -= overflow.sum;
  }
}

TREE_TEMPLATE
void TREE::mergeSmall(Branch& branch, uint32_t index) {
  while (index < branch.count && isSmall(branch.children[index])) {
    if (index > 0 && mergePair(branch, index - 1)) {
      --index;
    } else if (index + 1 >= branch.count || !mergePair(branch, index)) {
      return;
    }
  }
}

TREE_TEMPLATE
bool TREE::mergePair(Branch& branch, uint32_t left) {
  if (!canMerge(branch.children[left], branch.children[left + 1])) return false;
  merge(branch.children[left], branch.children[left + 1]);
  branch.sums[left] += branch.sums[left + 1];
  branch.erase(left + 1, 1);
  return true;
}

// Only to three quarters, so that the merged node does not split again at once.
TREE_TEMPLATE
bool TREE::canMerge(const Reference& left, const Reference& right) {
  const uint32_t capacity = capacityOf(left->height);
  return countIn(left) + countIn(right) <= capacity - capacity / 4;
}

TREE_TEMPLATE
void TREE::merge(Reference& left, Reference& right) {
  if (left->height == 0) {
    const Leaf& from = leafOf(right.get());
    writableLeaf(left, leafOf(left.get()).count() + from.count()).append(from.content());
    return;
  }
  Branch& target = writableBranch(left);
  const uint32_t seam = target.count;
  target.takeFrom(writableBranch(right), 0);
  mergeSmall(target, seam);
  mergeSmall(target, seam - 1);
}

// Joining trees.

TREE_TEMPLATE
void TREE::attach(Reference& node, Sum& sum, Piece other, bool atEnd, Piece& overflow) {
  if (node->height > other.node->height) {
    Branch& branch = writableBranch(node);
    const uint32_t index = atEnd ? branch.count - 1 : 0;
    sum += other.sum;
    Piece extra;
    attach(branch.children[index], branch.sums[index], std::move(other), atEnd, extra);
    settle(node, sum, index, std::move(extra), overflow);
    return;
  }
  if (!atEnd) {
    std::swap(node, other.node);
    std::swap(sum, other.sum);
  }
  if ((isSmall(node) || isSmall(other.node)) && canMerge(node, other.node)) {
    merge(node, other.node);
    sum += other.sum;
  } else {
    overflow = std::move(other);
  }
}

TREE_TEMPLATE
void TREE::append(const SummedTree& other) {
  if (!other.root_) return;
  if (!root_) {
    *this = other;
    return;
  }
  Piece overflow, right{other.root_, other.total_};
  if (root_->height >= right.node->height) {
    attach(root_, total_, std::move(right), true, overflow);
  } else {
    std::swap(root_, right.node);
    std::swap(total_, right.sum);
    attach(root_, total_, std::move(right), false, overflow);
  }
  finish(std::move(overflow));
}

TREE_TEMPLATE
void TREE::splice(uint32_t from, uint32_t removed, const SummedTree& inserted) {
  SummedTree joined = slice(0, from);
  joined.append(inserted);
  joined.append(slice(from + removed, total_.units - from - removed));
  *this = std::move(joined);
}

TREE_TEMPLATE
auto TREE::slice(uint32_t from, uint32_t count) const -> SummedTree {
  if (count == 0) return {};
  SummedTree part = *this;
  const uint32_t end = from + count;
  if (end < total_.units) part.replace(end, total_.units - end, Content{});
  if (from > 0) part.replace(0, from, Content{});
  return part;
}

TREE_TEMPLATE
void TREE::growRoot(Reference& root, Sum& total, Piece overflow) {
  auto* branch = new Branch(static_cast<uint16_t>(root->height + 1));
  const Sum left = total;
  total += overflow.sum;
  branch->insert(0, Piece{std::move(root), left});
  branch->insert(1, std::move(overflow));
  root = Reference::adopt(branch);
}

// Takes in what overflowed from the root, and drops roots with one child.
TREE_TEMPLATE
void TREE::finish(Piece overflow) {
  if (overflow.node) growRoot(root_, total_, std::move(overflow));
  while (root_ && root_->height > 0 && branchOf(root_.get()).count == 1) {
    Reference child = branchOf(root_.get()).children[0];
    root_ = std::move(child);
  }
}

// Looking after it.

TREE_TEMPLATE
template <class Visit>
void TREE::checkInvariants(Visit&& visit) const {
  if (root_) {
    check(root_, total_, true, visit);
  } else if (!(total_ == Sum{})) {
    throw std::logic_error("an empty tree with a sum");
  }
}

TREE_TEMPLATE
template <class Visit>
void TREE::check(const Reference& node, const Sum& sum, bool isRoot, Visit& visit) {
  const auto require = [](bool condition, const char* what) {
    if (!condition) throw std::logic_error(what);
  };
  require(countIn(node) > 0, "an empty node");
  require(countIn(node) <= capacityOf(node->height), "too full a node");
  if (node->height == 0) {
    const Leaf& leaf = leafOf(node.get());
    require(Leaf::sumOf(leaf.content()) == sum, "a leaf's sum is wrong");
    visit(leaf);
    return;
  }
  const Branch& branch = branchOf(node.get());
  require(!isRoot || branch.count > 1, "a root with one child");
  require(sumOf(branch) == sum, "a branch's sum is wrong");
  for (uint32_t child = 0; child < branch.count; ++child) {
    require(branch.children[child]->height + 1 == branch.height, "children of unequal height");
    require(child == 0 || !isSmall(branch.children[child]) || !isSmall(branch.children[child - 1]), "two small neighbours");
    check(branch.children[child], branch.sums[child], false, visit);
  }
}

TREE_TEMPLATE
size_t TREE::bytesHeld(const Reference& node) {
  if (node->height == 0) return leafOf(node.get()).bytesHeld();
  size_t bytes = sizeof(Branch);
  for (uint32_t child = 0; child < branchOf(node.get()).count; ++child)
    bytes += bytesHeld(branchOf(node.get()).children[child]);
  return bytes;
}

}  // namespace standin::text
// NOLINTEND(clang-analyzer-*)

#undef TREE
#undef TREE_TEMPLATE
