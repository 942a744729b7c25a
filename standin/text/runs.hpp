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

// Neighbouring runs always differ in their sets, and no run is empty. Positions and counts must lie inside. A text all of
// one run, as most short ones are, takes no allocation.
template <uint32_t leafCapacity, uint32_t fanOut>
class BasicRuns {
  using Leaf = RunLeaf<leafCapacity>;
  using Tree = SummedTree<Leaf, fanOut>;

 public:
  // Steps from run to run. Valid until the runs are edited.
  class Cursor {
   public:
    // At the run that holds the position; for the end of the text, at the last run. There must be a run.
    Cursor(const BasicRuns& runs, uint32_t position) : runs_(&runs) { seek(position); }

    uint32_t start() const { return start_; }
    uint32_t length() const { return entries_.lengths[index_]; }
    uint32_t indexInLeaf() const { return index_; }
    uint32_t end() const { return start_ + length(); }
    AttributeHandle attributes() const { return entries_.handles[index_]; }
    RunPlace place() const { return {start_, length(), attributes()}; }
    bool isFirst() const { return start_ == 0; }
    bool isLast() const { return end() == runs_->length(); }
    // To the run behind or before; there must be one.
    void next() { index_ + 1 < entries_.count ? stepInLeaf() : stepToLeaf(); }
    void previous();
    // To the run that holds a position at or behind this run.
    void advanceTo(uint32_t position);

   private:
    friend BasicRuns;

    void seek(uint32_t position);
    void stepInLeaf() { start_ += entries_.lengths[index_++]; }
    void stepToLeaf();

    const BasicRuns* runs_;
    typename Tree::Place place_;  // unless there is a single run
    RunSpan entries_;             // of the leaf
    uint32_t index_;              // of the run among these
    uint32_t start_;
  };

  BasicRuns() = default;
  BasicRuns(uint32_t length, const AttributeSet& attributes) { become(length, attributes); }
  // In bulk, O(n).
  explicit BasicRuns(const RunList& runs);

  uint32_t length() const { return single_.length + tree_.sum().units; }
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
  // All of a text in one run: then the tree is empty, as this is whenever the tree is not.
  struct Single {
    uint32_t length = 0;
    AttributeSet attributes;

    RunSpan content() const { return {&length, attributes.place(), length > 0 ? 1U : 0U}; }
  };

  void become(uint32_t length, const AttributeSet& attributes);
  // Puts a single run into the tree.
  void plant();
  Cursor cursorBefore(uint32_t position) const { return Cursor(*this, position > 0 ? position - 1 : 0); }
  // False, with nothing done, when it takes more than a new run in the last leaf.
  bool extend(uint32_t length, AttributeHandle attributes);
  template <class Middle>
  void edit(Cursor before, uint32_t from, uint32_t removed, Middle&& middle);
  // Gives another set to a part of the run that joins no other run, as most do. False, with nothing done, when it takes
  // more.
  bool restyleInLeaf(const Cursor& run, uint32_t from, uint32_t count, AttributeHandle attributes);
  // False, with the list unfinished, when the range holds more runs than go into one leaf.
  bool gather(uint32_t from, uint32_t count, RunList& list) const;
  void append(const BasicRuns& other);

  Single single_;
  Tree tree_;
};

using Runs = BasicRuns<64, 16>;

// The bodies.

template <uint32_t leafCapacity, uint32_t fanOut>
BasicRuns<leafCapacity, fanOut>::BasicRuns(const RunList& list) {
  const RunSpan runs = list.runs();
  if (runs.count == 1) {
    become(*runs.lengths, AttributeSet(*runs.handles));
  } else {
    tree_ = Tree::load(runs);
  }
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::become(uint32_t length, const AttributeSet& attributes) {
  const Tree former = std::exchange(tree_, Tree());
  single_.length = length;
  single_.attributes = length > 0 ? attributes : AttributeSet();
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::plant() {
  if (!tree_.empty()) return;
  tree_ = Tree::load(single_.content());
  single_ = {};
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::Cursor::seek(uint32_t position) {
  if (runs_->tree_.empty()) {
    entries_ = runs_->single_.content();
    index_ = start_ = 0;
    return;
  }
  place_ = runs_->tree_.find(position);
  entries_ = place_.leaf->content();
  const auto found = place_.leaf->find(position - place_.before.units);
  index_ = found.index;
  start_ = place_.before.units + found.before;
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::Cursor::stepToLeaf() {
  place_ = runs_->tree_.next(place_);
  entries_ = place_.leaf->content();
  index_ = 0;
  start_ = place_.before.units;
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::Cursor::previous() {
  if (index_ == 0) return seek(start_ - 1);
  start_ -= entries_.lengths[--index_];
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::Cursor::advanceTo(uint32_t position) {
  while (position >= end() && index_ + 1 < entries_.count) stepInLeaf();
  if (position >= end() && !isLast()) seek(position);
}

// The sets that a restyling has led to so far, so that each is worked out once however many runs share it.
template <class Restyled>
class RestyledSets {
 public:
  explicit RestyledSets(Restyled& restyled) : restyled_(restyled) {}

  AttributeHandle operator()(AttributeHandle source) {
    for (size_t step = 0; step < slots_.size(); ++step) {
      Slot& slot = slots_[(source + step) % slots_.size()];
      if (!slot.isKnown) return fill(slot, source);
      if (slot.source == source) return slot.result.handle();
    }
    return fill(slots_[source % slots_.size()], source);
  }

 private:
  struct Slot {
    AttributeHandle source = 0;
    AttributeSet result;
    bool isKnown = false;
  };

  AttributeHandle fill(Slot& slot, AttributeHandle source) {
    slot.result = restyled_(AttributeSet(source));
    slot.source = source;
    slot.isKnown = true;
    return slot.result.handle();
  }

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
bool BasicRuns<leafCapacity, fanOut>::extend(uint32_t length, AttributeHandle attributes) {
  const Leaf& last = tree_.lastLeaf();
  return length > 0 && last.handles()[last.count() - 1] != attributes && tree_.extend({&length, &attributes, 1});
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::splice(uint32_t from, uint32_t removed, uint32_t inserted,
                                             const AttributeSet& attributes) {
  if (removed == length()) return become(inserted, attributes);
  if (tree_.empty() && (inserted == 0 || single_.attributes == attributes)) {
    single_.length += inserted - removed;
    return;
  }
  plant();
  if (from == length() && extend(inserted, attributes.handle())) return;
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
  if (length() == 0) return become(inserted, AttributeSet());
  const Cursor run(*this, removed > 0 || from == 0 ? from : from - 1);
  if (!tree_.empty() && from + removed <= run.end() && removed < run.length()) {
    tree_.adjust(run.start(), run.indexInLeaf(), {inserted - removed});
  } else {
    splice(from, removed, inserted, AttributeSet(run.attributes()));
  }
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::splice(uint32_t from, uint32_t removed, const BasicRuns& inserted) {
  if (inserted.tree_.empty()) return splice(from, removed, inserted.single_.length, inserted.single_.attributes);
  if (removed == length()) {
    const BasicRuns former = std::exchange(*this, inserted);
    return;
  }
  plant();
  RunList list;
  if (inserted.gather(0, inserted.length(), list)) {
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
bool BasicRuns<leafCapacity, fanOut>::restyleInLeaf(const Cursor& run, uint32_t from, uint32_t count,
                                                    AttributeHandle attributes) {
  const RunSpan runs = run.entries_;
  const uint32_t index = run.index_, ahead = from - run.start(), behind = run.end() - from - count;
  // What lies in another leaf could be equal.
  if (ahead == 0 && (index > 0 ? runs.handles[index - 1] == attributes : from > 0)) return false;
  if (behind == 0 && (index + 1 < runs.count ? runs.handles[index + 1] == attributes : !run.isLast())) return false;
  const AttributeHandle own = run.attributes();
  const std::array lengths{ahead, count, behind};
  const std::array handles{own, attributes, own};
  const uint32_t first = ahead == 0 ? 1 : 0, parts = (behind == 0 ? 2 : 3) - first;
  if (!run.place_.isOwn || !run.place_.leaf->hasRoom(runs.count + parts - 1)) return false;
  RunSum sum{run.length()};
  tree_.ownLeaf(run.place_).replace({index, 1}, {lengths.data() + first, handles.data() + first, parts}, sum);
  return true;
}

template <uint32_t leafCapacity, uint32_t fanOut>
template <class Restyled>
void BasicRuns<leafCapacity, fanOut>::restyle(uint32_t from, uint32_t count, Restyled&& restyled) {
  if (count == 0) return;
  const uint32_t to = from + count;
  Cursor cursor(*this, from);
  if (to <= cursor.end()) {
    const AttributeSet result = restyled(AttributeSet(cursor.attributes()));
    if (result.handle() == cursor.attributes()) return;
    if (tree_.empty() || !restyleInLeaf(cursor, from, count, result.handle())) splice(from, count, count, result);
    return;
  }
  if (from > 0 && cursor.start() == from) cursor.previous();
  edit(cursor, from, count, [&](RunList& list, Cursor& at) {
    RestyledSets sets(restyled);
    at.advanceTo(from);
    for (uint32_t start = from;; at.next()) {
      const uint32_t end = std::min(at.end(), to);
      list.add(end - start, sets(at.attributes()));
      if (end == to) return;
      start = end;
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
  if (length() == 0) {
    *this = other;
    return;
  }
  if (other.tree_.empty()) return splice(length(), 0, other.single_.length, other.single_.attributes);
  plant();
  const RunPlace first = other.find(0);
  if (find(length()).attributes != first.attributes) return tree_.append(other.tree_);
  splice(length(), 0, first.length, AttributeSet(first.attributes));
  Tree rest = other.tree_;
  rest.replace(0, first.length, RunSpan());
  tree_.append(rest);
}

template <uint32_t leafCapacity, uint32_t fanOut>
void BasicRuns<leafCapacity, fanOut>::checkInvariants() const {
  if (single_.length > 0 && !tree_.empty()) throw std::logic_error("runs both single and in a tree");
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
