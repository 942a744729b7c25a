// The attributes that the reader's state gives to a text run.
#pragma once

#include <cstdint>
#include <map>
#include <tuple>

#include "html/state.hpp"

namespace html {

void resetStyle();
void setTrait(NSFontTraitMask trait, bool on);

// Font, underline and, when there is one, link: from the state as it is now.
Owned<NSDictionary> currentAttributes();

// The same, made once for each state met in one reading. What is answered stays until the next question.
class AttributeMemo {
 public:
  const Owned<NSDictionary>& current();

 private:
  using State = std::tuple<uint32_t, NSFontTraitMask, bool>;

  const Owned<NSDictionary>& withoutLink();

  Owned<NSDictionary> linked_;
  std::map<State, Owned<NSDictionary>> plain_;
  std::pair<const State, Owned<NSDictionary>>* latest_ = nullptr;  // the one asked for last
};

}  // namespace html
