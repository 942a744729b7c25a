// What fontconfig hands out, in owners that give it back.
#pragma once

#include <fontconfig/fontconfig.h>

#include <memory>

namespace standin::text {

struct ReleaseFonts {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
  void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};
using FontPattern = std::unique_ptr<FcPattern, ReleaseFonts>;
using FontSet = std::unique_ptr<FcFontSet, ReleaseFonts>;

}  // namespace standin::text
