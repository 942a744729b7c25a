// The keys that AppKit publishes for attributed strings, written once: declarations, the library's accessors and their
// tests derive from these lists.
#pragma once

#include "platform/foundation.h"

// Missing from older systems: weakly bound, so that the address of an absent one is nil.
#define PLATFORM_RUNTIME_KEYS(X)     \
  X(NSTextEffectAttributeName)       \
  X(NSTextAlternativesAttributeName) \
  X(NSTextEffectLetterpressStyle)    \
  X(NSDefaultAttributesDocumentAttribute)

// Character attributes.
#define PLATFORM_ATTRIBUTE_NAMES(X)     \
  X(NSFontAttributeName)                \
  X(NSParagraphStyleAttributeName)      \
  X(NSForegroundColorAttributeName)     \
  X(NSUnderlineStyleAttributeName)      \
  X(NSSuperscriptAttributeName)         \
  X(NSBackgroundColorAttributeName)     \
  X(NSAttachmentAttributeName)          \
  X(NSLigatureAttributeName)            \
  X(NSBaselineOffsetAttributeName)      \
  X(NSKernAttributeName)                \
  X(NSLinkAttributeName)                \
  X(NSStrokeWidthAttributeName)         \
  X(NSStrokeColorAttributeName)         \
  X(NSUnderlineColorAttributeName)      \
  X(NSStrikethroughStyleAttributeName)  \
  X(NSStrikethroughColorAttributeName)  \
  X(NSShadowAttributeName)              \
  X(NSObliquenessAttributeName)         \
  X(NSExpansionAttributeName)           \
  X(NSCursorAttributeName)              \
  X(NSToolTipAttributeName)             \
  X(NSCharacterShapeAttributeName)      \
  X(NSGlyphInfoAttributeName)           \
  X(NSWritingDirectionAttributeName)    \
  X(NSMarkedClauseSegmentAttributeName) \
  X(NSVerticalGlyphFormAttributeName)   \
  X(NSSpellingStateAttributeName)

// Document types.
#define PLATFORM_DOCUMENT_TYPES(X)   \
  X(NSPlainTextDocumentType)         \
  X(NSRTFTextDocumentType)           \
  X(NSRTFDTextDocumentType)          \
  X(NSMacSimpleTextDocumentType)     \
  X(NSHTMLTextDocumentType)          \
  X(NSDocFormatTextDocumentType)     \
  X(NSWordMLTextDocumentType)        \
  X(NSWebArchiveTextDocumentType)    \
  X(NSOfficeOpenXMLTextDocumentType) \
  X(NSOpenDocumentTextDocumentType)

// Keys of a text layout section.
#define PLATFORM_LAYOUT_SECTION_KEYS(X) \
  X(NSTextLayoutSectionOrientation)     \
  X(NSTextLayoutSectionRange)

// Document attributes.
#define PLATFORM_DOCUMENT_ATTRIBUTES(X)    \
  X(NSPaperSizeDocumentAttribute)          \
  X(NSLeftMarginDocumentAttribute)         \
  X(NSRightMarginDocumentAttribute)        \
  X(NSTopMarginDocumentAttribute)          \
  X(NSBottomMarginDocumentAttribute)       \
  X(NSViewSizeDocumentAttribute)           \
  X(NSViewZoomDocumentAttribute)           \
  X(NSViewModeDocumentAttribute)           \
  X(NSDocumentTypeDocumentAttribute)       \
  X(NSReadOnlyDocumentAttribute)           \
  X(NSConvertedDocumentAttribute)          \
  X(NSCocoaVersionDocumentAttribute)       \
  X(NSBackgroundColorDocumentAttribute)    \
  X(NSHyphenationFactorDocumentAttribute)  \
  X(NSDefaultTabIntervalDocumentAttribute) \
  X(NSCharacterEncodingDocumentAttribute)  \
  X(NSFileTypeDocumentAttribute)           \
  X(NSTitleDocumentAttribute)              \
  X(NSCompanyDocumentAttribute)            \
  X(NSCopyrightDocumentAttribute)          \
  X(NSSubjectDocumentAttribute)            \
  X(NSAuthorDocumentAttribute)             \
  X(NSKeywordsDocumentAttribute)           \
  X(NSCommentDocumentAttribute)            \
  X(NSEditorDocumentAttribute)             \
  X(NSCreationTimeDocumentAttribute)       \
  X(NSModificationTimeDocumentAttribute)   \
  X(NSManagerDocumentAttribute)            \
  X(NSCategoryDocumentAttribute)           \
  X(NSTextLayoutSectionsAttribute)         \
  X(NSExcludedElementsDocumentAttribute)   \
  X(NSTextEncodingNameDocumentAttribute)   \
  X(NSPrefixSpacesDocumentAttribute)

// Document options.
#define PLATFORM_DOCUMENT_OPTIONS(X)         \
  X(NSDocumentTypeDocumentOption)            \
  X(NSDefaultAttributesDocumentOption)       \
  X(NSCharacterEncodingDocumentOption)       \
  X(NSTextEncodingNameDocumentOption)        \
  X(NSBaseURLDocumentOption)                 \
  X(NSTimeoutDocumentOption)                 \
  X(NSWebPreferencesDocumentOption)          \
  X(NSWebResourceLoadDelegateDocumentOption) \
  X(NSTextSizeMultiplierDocumentOption)      \
  X(NSFileTypeDocumentOption)

// All 86, in the order in which hosts see them.
#define PLATFORM_ATTRIBUTED_STRING_KEYS(X) \
  PLATFORM_RUNTIME_KEYS(X)                 \
  PLATFORM_ATTRIBUTE_NAMES(X)              \
  PLATFORM_DOCUMENT_TYPES(X)               \
  PLATFORM_LAYOUT_SECTION_KEYS(X)          \
  PLATFORM_DOCUMENT_ATTRIBUTES(X)          \
  PLATFORM_DOCUMENT_OPTIONS(X)

#define PLATFORM_DECLARE_KEY(name) extern NSString* const name;
#define PLATFORM_DECLARE_RUNTIME_KEY(name) extern NSString* const name __attribute__((weak));
extern "C" {
PLATFORM_RUNTIME_KEYS(PLATFORM_DECLARE_RUNTIME_KEY)
PLATFORM_ATTRIBUTE_NAMES(PLATFORM_DECLARE_KEY)
PLATFORM_DOCUMENT_TYPES(PLATFORM_DECLARE_KEY)
PLATFORM_LAYOUT_SECTION_KEYS(PLATFORM_DECLARE_KEY)
PLATFORM_DOCUMENT_ATTRIBUTES(PLATFORM_DECLARE_KEY)
PLATFORM_DOCUMENT_OPTIONS(PLATFORM_DECLARE_KEY)
}
#undef PLATFORM_DECLARE_KEY
#undef PLATFORM_DECLARE_RUNTIME_KEY
