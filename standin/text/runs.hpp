// The attribute runs of styled text: lengths and attribute sets, found and edited by position.
#pragma once

#include <utility>

#include "standin/text/run_list.hpp"

namespace standin::text {

// A run and where it lies. The handle is borrowed from the run.
struct RunPlace {
  uint32_t start, length;
  AttributeHandle attributes;

  uint32_t end() const { return start + length; }
};

// Neighbouring runs always differ in their sets, and no run is empty. Positions and counts must lie inside. A text that
// is made of one run, as most short ones are, takes no allocation.
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
    typename Tree::Place place_{};  // unless there is a single run
    RunSpan entries_;               // of the leaf
    uint32_t index_;                // of the run among these
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

}  // namespace standin::text

#include "standin/text/runs_bodies.hpp"
