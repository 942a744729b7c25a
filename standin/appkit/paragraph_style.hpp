// Paragraph styles and tab stops as platform objects.
#pragma once

#include "platform/appkit.h"
#include "standin/runtime/object.hpp"
#include "standin/text/style.hpp"

namespace standin::appkit {

Owned<NSParagraphStyle> newParagraphStyle(const text::Paragraph& paragraph);
const text::Paragraph& paragraphOf(NSParagraphStyle* style);
Owned<NSMutableParagraphStyle> newMutableParagraphStyle(const text::Paragraph& paragraph);

Owned<NSTextTab> newTextTab(const text::TabStop& tab);
const text::TabStop& tabStopOf(NSTextTab* tab);

}  // namespace standin::appkit
