// The bodies of the runs.
#pragma once

#include <algorithm>
#include <array>

#include "standin/text/restyled_sets.hpp"
#include "standin/text/runs.hpp"

#define RUNS_TEMPLATE template <uint32_t leafCapacity, uint32_t fanOut>
#define RUNS BasicRuns<leafCapacity, fanOut>

namespace standin::text {

RUNS_TEMPLATE
RUNS::BasicRuns(const RunList& list) {
  const RunSpan runs = list.runs();
  if (runs.count == 1) {
    become(*runs.lengths, AttributeSet(*runs.handles));
  } else {
    tree_ = Tree::load(runs);
  }
}

RUNS_TEMPLATE
void RUNS::become(uint32_t length, const AttributeSet& attributes) {
  const Tree former = std::exchange(tree_, Tree());
  single_.length = length;
  single_.attributes = length > 0 ? attributes : AttributeSet();
}

RUNS_TEMPLATE
void RUNS::plant() {
  if (!tree_.empty()) return;
  tree_ = Tree::load(single_.content());
  single_ = {};
}

RUNS_TEMPLATE
void RUNS::Cursor::seek(uint32_t position) {
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

RUNS_TEMPLATE
void RUNS::Cursor::stepToLeaf() {
  place_ = runs_->tree_.next(place_);
  entries_ = place_.leaf->content();
  index_ = 0;
  start_ = place_.before.units;
}

RUNS_TEMPLATE
void RUNS::Cursor::previous() {
  if (index_ == 0) return seek(start_ - 1);
  start_ -= entries_.lengths[--index_];
}

RUNS_TEMPLATE
void RUNS::Cursor::advanceTo(uint32_t position) {
  while (position >= end() && index_ + 1 < entries_.count) stepInLeaf();
  if (position >= end() && !isLast()) seek(position);
}

// Replaces a window of whole runs that reaches to the runs on both sides of the edit, so that merging inside the window
// leaves no equal neighbours anywhere. The cursor is at the run before the edit; middle(list, cursor) adds what comes
// between what stays of the runs at its ends.
RUNS_TEMPLATE
template <class Middle>
void RUNS::edit(Cursor cursor, uint32_t from, uint32_t removed, Middle&& middle) {
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

RUNS_TEMPLATE
bool RUNS::extend(uint32_t length, AttributeHandle attributes) {
  const Leaf& last = tree_.lastLeaf();
  return length > 0 && last.handles()[last.count() - 1] != attributes && tree_.extend({&length, &attributes, 1});
}

RUNS_TEMPLATE
void RUNS::splice(uint32_t from, uint32_t removed, uint32_t inserted, const AttributeSet& attributes) {
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

RUNS_TEMPLATE
void RUNS::spliceInheriting(uint32_t from, uint32_t removed, uint32_t inserted) {
  if (length() == 0) return become(inserted, AttributeSet());
  const Cursor run(*this, removed > 0 || from == 0 ? from : from - 1);
  if (!tree_.empty() && from + removed <= run.end() && removed < run.length()) {
    tree_.adjust(run.start(), run.indexInLeaf(), {inserted - removed});
  } else {
    splice(from, removed, inserted, AttributeSet(run.attributes()));
  }
}

RUNS_TEMPLATE
void RUNS::splice(uint32_t from, uint32_t removed, const BasicRuns& inserted) {
  if (&inserted == this) return splice(from, removed, BasicRuns(inserted));
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

RUNS_TEMPLATE
bool RUNS::restyleInLeaf(const Cursor& run, uint32_t from, uint32_t count, AttributeHandle attributes) {
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

RUNS_TEMPLATE
template <class Restyled>
void RUNS::restyle(uint32_t from, uint32_t count, Restyled&& restyled) {
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

RUNS_TEMPLATE
bool RUNS::gather(uint32_t from, uint32_t count, RunList& list) const {
  if (count == 0) return true;
  const uint32_t to = from + count;
  for (Cursor cursor(*this, from);; cursor.next()) {
    const uint32_t end = std::min(cursor.end(), to);
    list.add(end - std::max(cursor.start(), from), cursor.attributes());
    if (end == to) return true;
    if (list.runs().count == leafCapacity) return false;
  }
}

RUNS_TEMPLATE
auto RUNS::slice(uint32_t from, uint32_t count) const -> BasicRuns {
  RunList list;
  if (gather(from, count, list)) return BasicRuns(list);
  BasicRuns part = *this;
  const uint32_t to = from + count;
  if (to < length()) part.remove(to, length() - to);
  if (from > 0) part.remove(0, from);
  return part;
}

RUNS_TEMPLATE
void RUNS::append(const BasicRuns& other) {
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

RUNS_TEMPLATE
void RUNS::checkInvariants() const {
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

#undef RUNS
#undef RUNS_TEMPLATE
