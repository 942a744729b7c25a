// The attribute runs of styled text: lengths and attribute sets, found and edited by position.
#pragma once

#include <algorithm>
#include <array>
#include <utility>

#include "standin/text/run_list.hpp"

namespace standin::text {

// A run and where it lies. The handle is borrowed from the run.
struct RunPlace {
  uint32_t start, length;
  AttributeHandle attributes;

  uint32_t end() const { return start + length; }
};

// Neighbouring runs always differ in their sets, and no run is empty. Positions and counts must lie inside.
template <uint32_t leafCapacity, uint32_t fanOut>
class BasicRuns {
  using Leaf = RunLeaf<leafCapacity>;
  using Tree = SummedTree<Leaf, fanOut>;

 public:
  // Steps from run to run. Valid until the runs are edited.
  class Cursor {
   public:
    // At the run that holds the position; for the end of the text, at the last run. There must be a run.
    Cursor(const BasicRuns& runs, uint32_t position) : tree_(&runs.tree_) { seek(position); }

    uint32_t start() const { return start_; }
    uint32_t length() const { return leaf().lengths()[index_]; }
    uint32_t indexInLeaf() const { return index_; }
    uint32_t end() const { return start_ + length(); }
    AttributeHandle attributes() const { return leaf().handles()[index_]; }
    RunPlace place() const { return {start_, length(), attributes()}; }
    bool isFirst() const { return start_ == 0; }
    bool isLast() const { return end() == tree_->sum().units; }
    // To the run behind or before; there must be one.
    void next() { index_ + 1 < leaf().count() ? stepInLeaf() : stepToLeaf(); }
    void previous();
    // To the run that holds a position at or behind this run.
    void advanceTo(uint32_t position);

   private:
    const Leaf& leaf() const { return *place_.leaf; }
    void seek(uint32_t position);
    void stepInLeaf() { start_ += leaf().lengths()[index_++]; }
    void stepToLeaf();

    const Tree* tree_;
    typename Tree::Place place_;
    uint32_t index_;  // of the run in its leaf
    uint32_t start_;
  };

  BasicRuns() = default;
  BasicRuns(uint32_t length, const AttributeSet& attributes) { splice(0, 0, length, attributes); }
  // In bulk, O(n).
  explicit BasicRuns(const RunList& runs) : tree_(Tree::load(runs.runs())) {}

  uint32_t length() const { return tree_.sum().units; }
  RunPlace find(uint32_t position) const { return Cursor(*this, position).place(); }

  void splice(uint32_t from, uint32_t removed, uint32_t inserted, const AttributeSet& attributes);
  void splice(uint32_t from, uint32_t removed, const BasicRuns& inserted);
  // What is inserted gets the attributes of the first unit removed; when none is, those of the unit before it, or else of
  // the one behind it.
  void spliceInheriting(uint32_t from, uint32_t removed, uint32_t inserted);
  void remove(uint32_t from, uint32_t count) { splice(from, count, 0, AttributeSet()); }
  // Gives every run in the range the set that restyled(set) answers for its own.
  template <class Restyled>
  void restyle(uint32_t from, uint32_t count, Restyled&& restyled);
  BasicRuns slice(uint32_t from, uint32_t count) const;

  // Throws std::logic_error when something is wrong.
  void checkInvariants() const;
  size_t bytesHeld() const { return tree_.bytesHeld(); }

 private:
  Cursor cursorBefore(uint32_t position) const { return Cursor(*this, position > 0 ? position - 1 : 0); }
  template <class Middle>
  void edit(Cursor before, uint32_t from, uint32_t removed, Middle&& middle);
  // False, with the list unfinished, when the range holds more runs than go into one leaf.
  bool gather(uint32_t from, uint32_t count, RunList& list) const;
  void append(const BasicRuns& other);

  Tree tree_;
};

using Runs = BasicRuns<64, 16>;

// The bodies.

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::Cursor::seek(uint32_t position) {
  place_ = tree_->find(position);
  const auto found = leaf().find(position - place_.before.units);
  index_ = found.index;
  start_ = place_.before.units + found.before;
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::Cursor::stepToLeaf() {
  place_ = tree_->next(place_);
  index_ = 0;
  start_ = place_.before.units;
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::Cursor::previous() {
  if (index_ == 0) return seek(start_ - 1);
  start_ -= leaf().lengths()[--index_];
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::Cursor::advanceTo(uint32_t position) {
  while (position >= end() && index_ + 1 < leaf().count()) stepInLeaf();
  if (position >= end() && !isLast()) seek(position);
}

// The sets that a restyling has led to so far, so that each is worked out once however many runs share it.
template <class Restyled>
class RestyledSets {
 public:
  explicit RestyledSets(Restyled& restyled) : restyled_(restyled) {}

  AttributeHandle operator()(AttributeHandle source) {
    auto& [known, result, isKnown] = slots_[source % slots_.size()];
    if (!isKnown || known != source) {
      result = restyled_(AttributeSet(source));
      known = source;
      isKnown = true;
    }
    return result.handle();
  }

 private:
  struct Slot {
    AttributeHandle source = 0;
    AttributeSet result;
    bool isKnown = false;
  };
  Restyled& restyled_;
  std::array<Slot, 8> slots_;
};

// Replaces a window of whole runs that reaches to the runs on both sides of the edit, so that merging inside the window
// leaves no equal neighbours anywhere. The cursor is at the run before the edit; middle(list, cursor) adds what comes
// between what stays of the runs at its ends.
template <uint32_t leafCapacity, uint32_t fanOut>
template <class Middle>
void BasicRuns<leafCapacity, fanOut>::edit(Cursor cursor, uint32_t from, uint32_t removed, Middle&& middle) {
  RunList list;
  const uint32_t start = from > 0 ? cursor.start() : 0;
  if (from > 0) list.add(from - start, cursor.attributes());
  middle(list, cursor);
  const uint32_t to = from + removed;
  uint32_t end = to;
  if (to < length()) {
    cursor.advanceTo(to);
    end = cursor.end();
    list.add(end - to, cursor.attributes());
  }
  tree_.replace(start, end - start, list.runs());
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::splice(uint32_t from, uint32_t removed, uint32_t inserted,
                                             const AttributeSet& attributes) {
  if (tree_.empty()) {
    RunList list;
    list.add(inserted, attributes.handle());
    tree_ = Tree::load(list.runs());
    return;
  }
  const Cursor run = cursorBefore(from);
  const bool keepsAttributes = inserted == 0 || run.attributes() == attributes.handle();
  if (keepsAttributes && from + removed <= run.end() && removed < run.length()) {
    tree_.adjust(run.start(), run.indexInLeaf(), {inserted - removed});
  } else {
    edit(run, from, removed, [&](RunList& list, Cursor&) { list.add(inserted, attributes.handle()); });
  }
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::spliceInheriting(uint32_t from, uint32_t removed, uint32_t inserted) {
  if (tree_.empty()) return splice(from, removed, inserted, AttributeSet());
  const Cursor run(*this, removed > 0 || from == 0 ? from : from - 1);
  if (from + removed <= run.end() && removed < run.length()) {
    tree_.adjust(run.start(), run.indexInLeaf(), {inserted - removed});
  } else {
    splice(from, removed, inserted, AttributeSet(run.attributes()));
  }
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::splice(uint32_t from, uint32_t removed, const BasicRuns& inserted) {
  RunList list;
  if (tree_.empty()) {
    *this = inserted;
  } else if (inserted.tree_.empty()) {
    remove(from, removed);
  } else if (const RunPlace first = inserted.find(0); first.length == inserted.length()) {
    splice(from, removed, first.length, AttributeSet(first.attributes));
  } else if (inserted.gather(0, inserted.length(), list)) {
    edit(cursorBefore(from), from, removed, [&](RunList& target, Cursor&) {
      const RunSpan runs = list.runs();
      for (uint32_t index = 0; index < runs.count; ++index) target.add(runs.lengths[index], runs.handles[index]);
    });
  } else {
    BasicRuns joined = slice(0, from);
    joined.append(inserted);
    joined.append(slice(from + removed, length() - from - removed));
    *this = std::move(joined);
  }
}

template <uint32_t leafCapacity, uint32_t fanOut>
template <class Restyled>
void BasicRuns<leafCapacity, fanOut>::restyle(uint32_t from, uint32_t count, Restyled&& restyled) {
  if (count == 0) return;
  edit(cursorBefore(from), from, count, [&](RunList& list, Cursor& cursor) {
    const uint32_t to = from + count;
    cursor.advanceTo(from);
    if (to <= cursor.end()) {
      const AttributeSet result = restyled(AttributeSet(cursor.attributes()));
      return list.add(count, result.handle());
    }
    RestyledSets sets(restyled);
    for (uint32_t at = from;; cursor.next()) {
      const uint32_t end = std::min(cursor.end(), to);
      list.add(end - at, sets(cursor.attributes()));
      if (end == to) return;
      at = end;
    }
  });
}

template <uint32_t leafCapacity, uint32_t fanOut>
bool BasicRuns<leafCapacity, fanOut>::gather(uint32_t from, uint32_t count, RunList& list) const {
  if (count == 0) return true;
  const uint32_t to = from + count;
  for (Cursor cursor(*this, from);; cursor.next()) {
    const uint32_t end = std::min(cursor.end(), to);
    list.add(end - std::max(cursor.start(), from), cursor.attributes());
    if (end == to) return true;
    if (list.runs().count == leafCapacity) return false;
  }
}

template <uint32_t leafCapacity, uint32_t fanOut>
auto BasicRuns<leafCapacity, fanOut>::slice(uint32_t from, uint32_t count) const -> BasicRuns {
  RunList list;
  if (gather(from, count, list)) return BasicRuns(list);
  BasicRuns part = *this;
  const uint32_t to = from + count;
  if (to < length()) part.remove(to, length() - to);
  if (from > 0) part.remove(0, from);
  return part;
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::append(const BasicRuns& other) {
  if (tree_.empty() || other.tree_.empty()) {
    if (tree_.empty()) *this = other;
    return;
  }
  const RunPlace first = other.find(0);
  if (find(length()).attributes != first.attributes) return tree_.append(other.tree_);
  splice(length(), 0, first.length, AttributeSet(first.attributes));
  Tree rest = other.tree_;
  rest.replace(0, first.length, RunSpan());
  tree_.append(rest);
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::checkInvariants() const {
  bool isFirst = true;
  AttributeHandle before = 0;
  tree_.checkInvariants([&](const Leaf& leaf) {
    for (uint32_t index = 0; index < leaf.count(); ++index) {
      if (leaf.lengths()[index] == 0) throw std::logic_error("an empty run");
      if (!isFirst && leaf.handles()[index] == before) throw std::logic_error("equal neighbours");
      before = leaf.handles()[index];
      isFirst = false;
    }
  });
}

}  // namespace standin::text
