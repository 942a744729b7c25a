// Between attribute dictionaries, which hold platform objects, and styles, which are values.
#pragma once

#include <unordered_map>

#include "platform/appkit.h"
#include "platform/owned.h"
#include "standin/text/style.hpp"

namespace standin::appkit {

// Links between the styles of one text and its attributes: a long address that thousands of them have is there once.
struct SharedLinks {
  std::unordered_map<text::Link, Owned<NSObject>, text::LinkHash> objects{};
  std::unordered_map<NSObject*, text::Link> targets{};  // of objects that the attributes keep alive
};

// What the attributes say, as far as formats carry it. Values of other classes than the key asks for are left out.
text::Style styleOf(NSDictionary* attributes);
text::Style styleOf(NSDictionary* attributes, SharedLinks& links);
// The attributes that say what the style does.
Owned<NSDictionary> attributesOf(const text::Style& style);
Owned<NSDictionary> attributesOf(const text::Style& style, SharedLinks& links);

}  // namespace standin::appkit
