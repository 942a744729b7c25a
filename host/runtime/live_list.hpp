// The list of everything of one sort that is alive, threaded through the things themselves.
#pragma once

#include <cstdint>

namespace host {

template <class Item>
class LiveList {
 public:
  void add(Item* item) {
    item->previous = nullptr;
    item->next = first_;
    if (first_ != nullptr) first_->previous = item;
    first_ = item;
    ++count_;
  }
  void remove(Item* item) {
    (item->previous != nullptr ? item->previous->next : first_) = item->next;
    if (item->next != nullptr) item->next->previous = item->previous;
    --count_;
  }
  int64_t count() const { return count_; }
  // The youngest; walk on with `next`.
  Item* first() const { return first_; }

 private:
  Item* first_ = nullptr;
  int64_t count_ = 0;
};

}  // namespace host
