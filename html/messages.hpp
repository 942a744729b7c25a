// The messages that this folder adds to the platform's string and attributed-string classes, and the colour class.
#pragma once

#include "platform/appkit.h"

namespace html {

// To an NSAttributedString.
inline constinit Message<NSAttributedString*(NSString* html)> initWithHTML_ZKT{"initWithHTML_ZKT:"};
inline constinit Message<void()> resetAttributes{"resetAttributes"};
inline constinit Message<void(BOOL)> setBold{"setBold:"};
inline constinit Message<void(BOOL)> setItalic{"setItalic:"};
inline constinit Message<void(BOOL)> setUnderline{"setUnderline:"};
inline constinit Message<void(NSMutableAttributedString*)> setCurrentAttributes{"setCurrentAttributes:"};
inline constinit Message<void(NSObject*)> pushFontDirective{"pushFontDirective:"};
inline constinit Message<void()> popFontDirective{"popFontDirective"};
inline constinit Message<NSString*()> closeTags{"closeTags"};
inline constinit Message<NSData*()> rtf_ZKT{"rtf_ZKT"};
// To the class NSAttributedString: fills the entity table and the text of black. Left to whoever wants them.
inline constinit Message<void()> didLoad{"didLoad"};

// To an NSAttributedString: the document; to an NSString: the escaped text.
inline constinit Message<NSString*()> htmlString_ZKT{"htmlString_ZKT"};

struct ColorPaletteZKT : NSObject {
  static constexpr char className_[] = "ColorPaletteZKT";
  static inline constinit Message<NSString*(NSColor*)> stringForColor{"stringForColor:"};
  static inline constinit Message<NSString*(NSColor*, double)> stringForColorGamma{"stringForColor:gamma:"};
};

}  // namespace html
