// A counted B+tree with sums: any sequence that is found and edited by position in O(log n), copied in O(1).
//
// `Leaf` derives from TreeNode and provides
//   Sum                        additive (+=, -=, ==), with a member `units` by which positions count
//   Content                    a borrowed stretch of entries: what edits insert
//   capacity                   the most entries that a leaf holds
//   static countOf, sumOf, slice(content, from, count)
//   static make(room), destroy a leaf with room for that many entries, empty
//   static roomFor(entries)    the room to give to a leaf of so many that is being edited
//   count(), content(), append(content)
//   hasRoom(entries)           the leaf can be edited in place to hold so many
//   canGrow, grown(leaf, room) whether a leaf that lacks room can be moved to where it has it, and doing so
//   extent(from, removed)      the entries that cover these units
//   replace(extent, content, sum&)   in place; brings the sum of the leaf up to date
//   adjust(entry, change)      if the tree's `adjust` is used: the entry grows by the sum
//
// Shape: every branch has 1 to fanOut children of equal height, no leaf is empty, and of two neighbouring children at least
// one is more than a quarter full. Nodes are edited in place when this tree alone holds them, and copied when not.
#pragma once

#include <array>
#include <stdexcept>
#include <vector>

#include "standin/text/tree_node.hpp"

namespace standin::text {

// A stretch of a leaf, in entries.
struct Extent {
  uint32_t first, count;
};

template <class Leaf, uint32_t fanOut = 16>
class SummedTree {
  struct Branch;

 public:
  using Sum = typename Leaf::Sum;
  using Content = typename Leaf::Content;
  // A leaf and the sum of all that lies before it.
  struct Place {
    const Leaf* leaf;
    Sum before;
    const Branch* parent;  // nil above a root
    uint32_t child;
    bool isOwn;  // known that nobody shares the leaf or a branch above it
  };

  SummedTree() = default;
  // Loads in bulk, O(n).
  static SummedTree load(const Content& content);

  bool empty() const { return !root_; }
  const Sum& sum() const { return total_; }
  bool sharesRootWith(const SummedTree& other) const { return root_ == other.root_; }

  // The leaf that holds the unit at the position; for the end of the sequence, the last leaf. The tree must not be empty.
  Place find(uint32_t position) const { return findBy(&Sum::units, position); }
  // The same along another member of the sum: the leaf that holds its element number `index`.
  Place findBy(uint32_t Sum::*measure, uint32_t index) const;

  // The tree must not be empty.
  const Leaf& lastLeaf() const;
  // The leaf behind; there must be one.
  Place next(const Place& place) const;

  // Changes one entry, a number in the leaf that holds the position: it grows, or modulo 2^32 shrinks, by the change.
  void adjust(uint32_t position, uint32_t entry, const Sum& change);
  // The leaf of a place of this tree that is its own, for edits that leave its sum as it is.
  Leaf& ownLeaf(const Place& place) { return const_cast<Leaf&>(*place.leaf); }
  // Adds entries at the end of the last leaf. False, with nothing done, when that is full or below a shared branch.
  bool extend(const Content& content);
  void replace(uint32_t from, uint32_t removed, const Content& inserted);
  void splice(uint32_t from, uint32_t removed, const SummedTree& inserted);
  SummedTree slice(uint32_t from, uint32_t count) const;
  void append(const SummedTree& other);

  // Throws std::logic_error when the shape or a sum is wrong. Visits every leaf with visit(leaf).
  template <class Visit>
  void checkInvariants(Visit&& visit) const;
  // What nodes take, shared ones included.
  size_t bytesHeld() const { return root_ ? bytesHeld(root_) : 0; }

 private:
  friend NodeReference<SummedTree>;
  using Reference = NodeReference<SummedTree>;

  struct Piece {
    Reference node;
    Sum sum{};
  };
  // One slot more than its fan-out, for the moment between an insertion and the split that follows.
  struct Branch : TreeNode {
    explicit Branch(uint16_t level) { height = level; }
    uint32_t count = 0;
    std::array<Sum, fanOut + 1> sums{};
    std::array<Reference, fanOut + 1> children;

    void insert(uint32_t index, Piece piece);
    void erase(uint32_t index, uint32_t erased);
    void takeFrom(Branch& other, uint32_t first);
  };

  // The way down through branches that nobody shares, with the sums that it passes.
  class Path {
   public:
    explicit Path(SummedTree& tree) : node_(&tree.root_) { sums_[levels_++] = &tree.total_; }

    bool isAtLeaf() const { return (*node_)->height == 0; }
    bool canGoOn() const { return !isAtLeaf() && node_->isUnique() && levels_ < sums_.size(); }
    Branch& branch() const { return branchOf(node_->get()); }
    void enter(uint32_t child) {
      Branch& entered = branch();
      sums_[levels_++] = &entered.sums[child];
      node_ = &entered.children[child];
    }
    Reference& node() const { return *node_; }
    // Of what is below.
    const Sum& sum() const { return *sums_[levels_ - 1]; }
    // Brings all the sums up to date.
    void change(const Sum& lost, const Sum& added) {
      for (uint32_t level = 0; level < levels_; ++level) {
        *sums_[level] -= lost;
        *sums_[level] += added;
      }
    }

   private:
    // Every branch but the root has two children or more: 32-bit positions need no higher tree.
    std::array<Sum*, 34> sums_;
    uint32_t levels_ = 0;
    Reference* node_;
  };

  static constexpr uint32_t capacityOf(uint16_t height) { return height == 0 ? Leaf::capacity : fanOut; }
  static Leaf& leafOf(TreeNode* node) { return *static_cast<Leaf*>(node); }
  static Branch& branchOf(TreeNode* node) { return *static_cast<Branch*>(node); }
  static uint32_t countIn(const Reference& node) {
    return node->height == 0 ? leafOf(node.get()).count() : branchOf(node.get()).count;
  }
  static bool isSmall(const Reference& node) { return countIn(node) <= capacityOf(node->height) / 4; }
  static void destroy(TreeNode* node);
  static size_t bytesHeld(const Reference& node);

  // The child that holds the position, which becomes one in the child. The branch has so many units.
  static uint32_t descend(const Branch& branch, uint32_t units, uint32_t& position);
  // The node for editing: itself when unique, else a copy that takes its place.
  static Leaf& writableLeaf(Reference& node, uint32_t entries);
  static Branch& writableBranch(Reference& node);

  // Edits inside one leaf when nothing but sums changes above it. False, with nothing done, when more than that is needed.
  bool editInPlace(uint32_t from, uint32_t removed, const Content& inserted);
  // Each edits what `node` holds and brings `sum` up to date. Afterwards `node` is nil when nothing is left, and
  // `overflow` holds the part that has to follow it when it no longer fits into one node.
  static void edit(Reference& node, Sum& sum, uint32_t from, uint32_t removed, const Content& inserted, Piece& overflow);
  static void editLeaf(Reference& node, Sum& sum, uint32_t from, uint32_t removed, const Content& inserted, Piece& overflow);
  static void splitLeaf(Reference& node, Sum& sum, Extent extent, const Content& inserted, Piece& overflow);
  static void editBranch(Reference& node, Sum& sum, uint32_t from, uint32_t removed, const Content& inserted,
                         Piece& overflow);
  static void editAcross(Branch& branch, uint32_t index, uint32_t offset, uint32_t removed, const Content& inserted,
                         Piece& extra);
  static void attach(Reference& node, Sum& sum, Piece other, bool atEnd, Piece& overflow);

  // After child `index` of the branch has changed: takes in what overflowed from it, drops it when it is nil, merges small
  // children, and splits the branch when it is too large.
  static void settle(Reference& node, Sum& sum, uint32_t index, Piece extra, Piece& overflow);
  static void mergeSmall(Branch& branch, uint32_t index);
  static bool mergePair(Branch& branch, uint32_t left);
  static bool canMerge(const Reference& left, const Reference& right);
  // Moves all of `right` to the end of `left`.
  static void merge(Reference& left, Reference& right);
  static Sum sumOf(const Branch& branch);

  static void growRoot(Reference& root, Sum& total, Piece overflow);
  void finish(Piece overflow);
  static std::vector<Piece> gather(std::vector<Piece> level);
  template <class Visit>
  static void check(const Reference& node, const Sum& sum, bool isRoot, Visit& visit);

  Reference root_;
  Sum total_{};
};

}  // namespace standin::text

#include "standin/text/summed_tree_bodies.hpp"
