// Text views, and what holds their text: container, layout manager, storage.
#pragma once

#include "platform/appkit.h"
#include "standin/runtime/class_definition.hpp"

namespace standin::appkit {

struct LayoutManager : Object {
  NSTextStorage* storage = nullptr;  // the view's, while it lives
};

struct TextContainer : Object {
  NSLayoutManager* manager = nullptr;  // the view's, while it lives
  double linePadding = 5;              // points at both ends of every line
};

// The view owns all three, which know each other only as long as it lives.
struct TextView : Object {
  TextView();
  TextView(const TextView&) = delete;
  TextView& operator=(const TextView&) = delete;
  ~TextView();

  NSRect frame{};
  Owned<NSTextStorage> storage;
  Owned<NSLayoutManager> manager;
  Owned<NSTextContainer> container;
};

bool isTextView(NSObject* object);
TextView& textViewState(NSObject* view);

}  // namespace standin::appkit
