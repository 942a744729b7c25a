// The character entities of the dialect.
#pragma once

#include <string_view>

namespace html {

struct Entity {
  std::string_view name;  // Without the semicolon, which stays in the text.
  char replacement;
};

// In the order in which they are tried at an ampersand.
inline constexpr Entity entities[] = {{"&quot", '"'}, {"&amp", '&'}, {"&lt", '<'}, {"&gt", '>'}};

}  // namespace html
