// Fixing fonts, paragraph styles and attachments, and the messages that ask for it.
#include "standin/appkit/attribute_fixing.hpp"

#include <vector>

#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/font.hpp"
#include "standin/appkit/font_substitution.hpp"
#include "standin/appkit/text_storage.hpp"
#include "standin/text/font_faces.hpp"

namespace standin::appkit {
namespace {

using text::AttributeHandle;
using text::AttributeSet;
using text::RunPlace;
using text::StyledText;
using text::UnitRange;

// What is to be done is gathered first: runs do not change while they are walked.
struct FontChange {
  UnitRange range;
  Owned<NSFont> font;
};

std::vector<FontChange> fontChanges(const StyledText& styled, UnitRange range) {
  std::vector<FontChange> changes;
  styled.forEachRun(range.start, range.length, [&](const RunPlace& run) {
    const text::Font font = fontIn(run.attributes);
    const uint64_t traits = font.traits & (text::boldTrait | text::italicTrait);
    for (const Substitution& lacking : substitutions(styled.text(), {run.start, run.length}, font.family)) {
      changes.push_back({lacking.range, fontObject(text::fontMeant(lacking.family, traits, font.size))});
    }
  });
  return changes;
}

// All runs of the paragraph already have the style, or all have none.
bool hasOneStyle(const StyledText& styled, UnitRange paragraph, NSObject* style) {
  for (auto run = styled.cursor(paragraph.start);; run.next()) {
    if (!equalValues(attributeIn(run.attributes(), NSParagraphStyleAttributeName), style)) return false;
    if (run.end() >= paragraph.end()) return true;
  }
}

void extendFirstStyle(StyledText& styled, UnitRange paragraph) {
  const AttributeSet first(styled.find(paragraph.start).attributes);
  NSObject* const style = attributeIn(first.handle(), NSParagraphStyleAttributeName);
  if (hasOneStyle(styled, paragraph, style)) return;
  if (style != nullptr) {
    styled.addAttribute(paragraph.start, paragraph.length, NSParagraphStyleAttributeName, style);
  } else {
    styled.removeAttribute(paragraph.start, paragraph.length, NSParagraphStyleAttributeName);
  }
}

// The stretches of units in the range that stand for attachments, or those of all others.
std::vector<UnitRange> stretches(const text::Text& text, UnitRange range, bool ofAttachments) {
  std::vector<UnitRange> found;
  uint32_t position = range.start;
  text.visitChunks(range.start, range.length, [&](auto units) {
    for (const char16_t unit : units) {
      const uint32_t at = position++;
      if ((unit == text::attachmentCharacter) != ofAttachments) continue;
      if (!found.empty() && found.back().end() == at) {
        ++found.back().length;
      } else {
        found.push_back({at, 1});
      }
    }
  });
  return found;
}

struct AttachmentFaults {
  std::vector<UnitRange> misplaced;  // attachments where no character stands for one
  std::vector<UnitRange> missing;    // characters that stand for nothing
};

AttachmentFaults attachmentFaults(const StyledText& styled, UnitRange range) {
  AttachmentFaults faults;
  const auto add = [](std::vector<UnitRange>& list, const std::vector<UnitRange>& more) {
    list.insert(list.end(), more.begin(), more.end());
  };
  styled.forEachRun(range.start, range.length, [&](const RunPlace& run) {
    const UnitRange place{run.start, run.length};
    if (attributeIn(run.attributes, NSAttachmentAttributeName) != nullptr) {
      add(faults.misplaced, stretches(styled.text(), place, false));
    } else if (styled.text().attachmentCharacters(run.start, run.length) > 0) {
      add(faults.missing, stretches(styled.text(), place, true));
    }
  });
  return faults;
}

template <auto& fix>
void fixed(NSAttributedString* self, const char* selector, NSRange range) {
  const UnitRange part = rangeIn(self, selector, range);
  StyledText& styled = stateOf<AttributedString>(self).styled;
  const uint32_t length = styled.length();
  fix(styled, part);
  noteEdit(self, part, part.length - (length - styled.length()));
}

void fixAttributesInRange(NSAttributedString* self, NSRange range) {
  fixed<fixAttributes>(self, "fixAttributesInRange:", range);
}
void fixFontAttributeInRange(NSAttributedString* self, NSRange range) {
  fixed<fixFonts>(self, "fixFontAttributeInRange:", range);
}
void fixParagraphStyleAttributeInRange(NSAttributedString* self, NSRange range) {
  fixed<fixParagraphStyles>(self, "fixParagraphStyleAttributeInRange:", range);
}
void fixAttachmentAttributeInRange(NSAttributedString* self, NSRange range) {
  fixed<fixAttachments>(self, "fixAttachmentAttributeInRange:", range);
}

[[maybe_unused]] const Category fixing = Category("NSMutableAttributedString")
                                             .method<fixAttributesInRange>("fixAttributesInRange:")
                                             .method<fixFontAttributeInRange>("fixFontAttributeInRange:")
                                             .method<fixParagraphStyleAttributeInRange>("fixParagraphStyleAttributeInRange:")
                                             .method<fixAttachmentAttributeInRange>("fixAttachmentAttributeInRange:");

}  // namespace

void fixFonts(StyledText& styled, UnitRange range) {
  for (const FontChange& change : fontChanges(styled, range)) {
    styled.addAttribute(change.range.start, change.range.length, NSFontAttributeName, change.font.get());
  }
}

void fixParagraphStyles(StyledText& styled, UnitRange range) {
  const UnitRange whole = styled.text().paragraphs(range.start, range.length);
  for (uint32_t position = whole.start; position < whole.end();) {
    const UnitRange paragraph = styled.text().paragraphs(position, 0);
    extendFirstStyle(styled, paragraph);
    position = paragraph.end();
  }
}

void fixAttachments(StyledText& styled, UnitRange range) {
  const AttachmentFaults faults = attachmentFaults(styled, range);
  for (const UnitRange& place : faults.misplaced) {
    styled.removeAttribute(place.start, place.length, NSAttachmentAttributeName);
  }
  // From the back, so that the places before stay right.
  for (auto place = faults.missing.rbegin(); place != faults.missing.rend(); ++place) {
    styled.splice(place->start, place->length, StyledText());
  }
}

// Attachments last: only they can make the text shorter.
void fixAttributes(StyledText& styled, UnitRange range) {
  fixFonts(styled, range);
  fixParagraphStyles(styled, range);
  fixAttachments(styled, range);
}

}  // namespace standin::appkit
