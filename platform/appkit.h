// AppKit, as far as the library and its siblings use it: the messages of each class, constants and keys.
#pragma once

#include "platform/appkit_keys.h"
#include "platform/foundation.h"

struct NSAttributedString;
struct NSCell;
struct NSFileWrapper;
struct NSFont;
struct NSImage;
struct NSLayoutManager;
struct NSTextAttachment;
struct NSTextStorage;

using NSFontTraitMask = NSUInteger;
inline constexpr NSFontTraitMask NSItalicFontMask = 1;
inline constexpr NSFontTraitMask NSBoldFontMask = 2;

struct NSColor : NSObject {
  static constexpr char className_[] = "NSColor";
  static inline constinit Message<NSColor*()> blackColor{"blackColor"};
  static inline constinit Message<NSColor*(CGFloat, CGFloat)> colorWithCalibratedWhite{"colorWithCalibratedWhite:alpha:"};
  static inline constinit Message<NSColor*(CGFloat, CGFloat)> colorWithDeviceWhite{"colorWithDeviceWhite:alpha:"};
  static inline constinit Message<NSColor*(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithCalibratedRGB{
      "colorWithCalibratedRed:green:blue:alpha:"};
  static inline constinit Message<NSColor*(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithDeviceRGB{
      "colorWithDeviceRed:green:blue:alpha:"};
  static inline constinit Message<NSColor*(CGFloat, CGFloat, CGFloat, CGFloat, CGFloat)> colorWithDeviceCMYK{
      "colorWithDeviceCyan:magenta:yellow:black:alpha:"};
  static inline constinit Message<NSColor*(NSString*)> colorUsingColorSpaceName{"colorUsingColorSpaceName:"};
  static inline constinit Message<NSString*()> colorSpaceName{"colorSpaceName"};
  static inline constinit Message<void(CGFloat*, CGFloat*, CGFloat*, CGFloat*)> getRGBA{"getRed:green:blue:alpha:"};
  static inline constinit Message<CGFloat()> redComponent{"redComponent"};
  static inline constinit Message<CGFloat()> greenComponent{"greenComponent"};
  static inline constinit Message<CGFloat()> blueComponent{"blueComponent"};
  static inline constinit Message<CGFloat()> alphaComponent{"alphaComponent"};
  static inline constinit Message<CGFloat()> whiteComponent{"whiteComponent"};
};

struct NSFont : NSObject {
  static constexpr char className_[] = "NSFont";
  static inline constinit Message<NSFont*(NSString*, CGFloat)> fontWithName{"fontWithName:size:"};
  static inline constinit Message<CGFloat()> pointSize{"pointSize"};
  static inline constinit Message<NSString*()> familyName{"familyName"};
  static inline constinit Message<NSString*()> fontName{"fontName"};
};

struct NSFontManager : NSObject {
  static constexpr char className_[] = "NSFontManager";
  static inline constinit Message<NSFontManager*()> sharedFontManager{"sharedFontManager"};
  static inline constinit Message<NSFont*(NSString*, NSFontTraitMask, NSInteger, CGFloat)> fontWithFamily{
      "fontWithFamily:traits:weight:size:"};
  static inline constinit Message<NSFontTraitMask(NSFont*)> traitsOfFont{"traitsOfFont:"};
  static inline constinit Message<NSInteger(NSFont*)> weightOfFont{"weightOfFont:"};
};

struct NSAttributedString : NSObject {
  static constexpr char className_[] = "NSAttributedString";
  static inline constinit Message<NSAttributedString*(NSString*)> initWithString{"initWithString:"};
  static inline constinit Message<NSAttributedString*(NSString*, NSDictionary*)> initWithStringAttributes{
      "initWithString:attributes:"};
  static inline constinit Message<NSAttributedString*(NSAttributedString*)> initWithAttributedString{
      "initWithAttributedString:"};
  static inline constinit Message<NSAttributedString*(NSURL*, NSDictionary**)> initWithURL{
      "initWithURL:documentAttributes:"};
  static inline constinit Message<NSAttributedString*(NSString*, NSDictionary**)> initWithPath{
      "initWithPath:documentAttributes:"};
  static inline constinit Message<NSAttributedString*(NSData*, NSDictionary**)> initWithRTF{
      "initWithRTF:documentAttributes:"};
  static inline constinit Message<NSAttributedString*(NSData*, NSDictionary**)> initWithRTFD{
      "initWithRTFD:documentAttributes:"};
  static inline constinit Message<NSAttributedString*(NSData*, NSDictionary**)> initWithHTML{
      "initWithHTML:documentAttributes:"};
  static inline constinit Message<NSAttributedString*(NSData*, NSURL*, NSDictionary**)> initWithHTMLBase{
      "initWithHTML:baseURL:documentAttributes:"};
  static inline constinit Message<NSAttributedString*(NSData*, NSDictionary**)> initWithDocFormat{
      "initWithDocFormat:documentAttributes:"};
  static inline constinit Message<NSAttributedString*(NSTextAttachment*)> attributedStringWithAttachment{
      "attributedStringWithAttachment:"};
  static inline constinit Message<NSUInteger()> length{"length"};
  static inline constinit Message<NSString*()> string{"string"};
  static inline constinit Message<BOOL()> containsAttachments{"containsAttachments"};
  static inline constinit Message<NSDictionary*(NSUInteger, NSRange*)> attributesAtIndex{
      "attributesAtIndex:effectiveRange:"};
  static inline constinit Message<NSDictionary*(NSUInteger, NSRange*, NSRange)> attributesAtIndexLongest{
      "attributesAtIndex:longestEffectiveRange:inRange:"};
  static inline constinit Message<NSObject*(NSString*, NSUInteger, NSRange*)> attributeAtIndex{
      "attribute:atIndex:effectiveRange:"};
  static inline constinit Message<NSObject*(NSString*, NSUInteger, NSRange*, NSRange)> attributeAtIndexLongest{
      "attribute:atIndex:longestEffectiveRange:inRange:"};
  static inline constinit Message<NSAttributedString*(NSRange)> attributedSubstringFromRange{
      "attributedSubstringFromRange:"};
  static inline constinit Message<BOOL(NSAttributedString*)> isEqualToAttributedString{"isEqualToAttributedString:"};
  static inline constinit Message<NSData*(NSRange, NSDictionary*)> RTFFromRange{"RTFFromRange:documentAttributes:"};
  static inline constinit Message<NSData*(NSRange, NSDictionary*)> RTFDFromRange{"RTFDFromRange:documentAttributes:"};
  static inline constinit Message<NSData*(NSRange, NSDictionary*)> docFormatFromRange{
      "docFormatFromRange:documentAttributes:"};
  static inline constinit Message<NSFileWrapper*(NSRange, NSDictionary*)> RTFDFileWrapperFromRange{
      "RTFDFileWrapperFromRange:documentAttributes:"};
  static inline constinit Message<NSData*(NSRange, NSDictionary*, NSError**)> dataFromRange{
      "dataFromRange:documentAttributes:error:"};
  static inline constinit Message<NSFileWrapper*(NSRange, NSDictionary*, NSError**)> fileWrapperFromRange{
      "fileWrapperFromRange:documentAttributes:error:"};
};

struct NSMutableAttributedString : NSAttributedString {
  static constexpr char className_[] = "NSMutableAttributedString";
  static inline constinit Message<BOOL(NSRange)> containsAttachmentsInRange{"containsAttachmentsInRange:"};
  static inline constinit Message<NSDictionary*(NSRange)> rulerAttributesInRange{"rulerAttributesInRange:"};
  static inline constinit Message<NSDictionary*(NSRange)> fontAttributesInRange{"fontAttributesInRange:"};
  static inline constinit Message<void(NSRange)> superscriptRange{"superscriptRange:"};
  static inline constinit Message<void(NSRange)> subscriptRange{"subscriptRange:"};
  static inline constinit Message<void(NSRange)> unscriptRange{"unscriptRange:"};
  static inline constinit Message<void(NSFontTraitMask, NSRange)> applyFontTraits{"applyFontTraits:range:"};
  static inline constinit Message<void(NSUInteger, NSRange)> setAlignment{"setAlignment:range:"};
  static inline constinit Message<void(NSInteger, NSRange)> setBaseWritingDirection{"setBaseWritingDirection:range:"};
  static inline constinit Message<void(NSRange)> fixAttributesInRange{"fixAttributesInRange:"};
  static inline constinit Message<void(NSRange)> fixFontAttributeInRange{"fixFontAttributeInRange:"};
  static inline constinit Message<void(NSRange)> fixParagraphStyleAttributeInRange{"fixParagraphStyleAttributeInRange:"};
  static inline constinit Message<void(NSRange)> fixAttachmentAttributeInRange{"fixAttachmentAttributeInRange:"};
  static inline constinit Message<void(NSString*)> updateAttachmentsFromPath{"updateAttachmentsFromPath:"};
  static inline constinit Message<void(NSAttributedString*, NSUInteger)> insertAttributedString{
      "insertAttributedString:atIndex:"};
  static inline constinit Message<void(NSRange, NSAttributedString*)> replaceWithAttributedString{
      "replaceCharactersInRange:withAttributedString:"};
  static inline constinit Message<void(NSRange, NSString*)> replaceWithString{"replaceCharactersInRange:withString:"};
  static inline constinit Message<void(NSRange)> deleteCharactersInRange{"deleteCharactersInRange:"};
  static inline constinit Message<void(NSDictionary*, NSRange)> addAttributes{"addAttributes:range:"};
  static inline constinit Message<void(NSString*, NSObject*, NSRange)> addAttribute{"addAttribute:value:range:"};
  static inline constinit Message<void(NSDictionary*, NSRange)> setAttributes{"setAttributes:range:"};
  static inline constinit Message<void(NSString*, NSRange)> removeAttribute{"removeAttribute:range:"};
  static inline constinit Message<void()> beginEditing{"beginEditing"};
  static inline constinit Message<void()> endEditing{"endEditing"};
  static inline constinit Message<void(NSAttributedString*)> setAttributedString{"setAttributedString:"};
  static inline constinit Message<void(NSAttributedString*)> appendAttributedString{"appendAttributedString:"};
};

struct NSTextStorage : NSMutableAttributedString {
  static constexpr char className_[] = "NSTextStorage";
};

struct NSTextTab : NSObject {
  static constexpr char className_[] = "NSTextTab";
  static inline constinit Message<NSTextTab*(NSUInteger, CGFloat)> initWithType{"initWithType:location:"};
  static inline constinit Message<CGFloat()> location{"location"};
  static inline constinit Message<NSUInteger()> tabStopType{"tabStopType"};
};

struct NSParagraphStyle : NSObject {
  static constexpr char className_[] = "NSParagraphStyle";
  static inline constinit Message<NSParagraphStyle*()> defaultParagraphStyle{"defaultParagraphStyle"};
  static inline constinit Message<NSUInteger()> alignment{"alignment"};
  static inline constinit Message<NSInteger()> baseWritingDirection{"baseWritingDirection"};
  static inline constinit Message<CGFloat()> firstLineHeadIndent{"firstLineHeadIndent"};
  static inline constinit Message<CGFloat()> headIndent{"headIndent"};
  static inline constinit Message<CGFloat()> tailIndent{"tailIndent"};
  static inline constinit Message<CGFloat()> lineSpacing{"lineSpacing"};
  static inline constinit Message<CGFloat()> paragraphSpacing{"paragraphSpacing"};
  static inline constinit Message<CGFloat()> paragraphSpacingBefore{"paragraphSpacingBefore"};
  static inline constinit Message<CGFloat()> minimumLineHeight{"minimumLineHeight"};
  static inline constinit Message<CGFloat()> maximumLineHeight{"maximumLineHeight"};
  static inline constinit Message<CGFloat()> lineHeightMultiple{"lineHeightMultiple"};
  static inline constinit Message<CGFloat()> defaultTabInterval{"defaultTabInterval"};
  static inline constinit Message<float()> hyphenationFactor{"hyphenationFactor"};
  static inline constinit Message<NSUInteger()> lineBreakMode{"lineBreakMode"};
  static inline constinit Message<NSInteger()> headerLevel{"headerLevel"};
  static inline constinit Message<NSArray*()> tabStops{"tabStops"};
};

struct NSMutableParagraphStyle : NSParagraphStyle {
  static constexpr char className_[] = "NSMutableParagraphStyle";
  static inline constinit Message<void(NSUInteger)> setAlignment{"setAlignment:"};
  static inline constinit Message<void(NSInteger)> setBaseWritingDirection{"setBaseWritingDirection:"};
  static inline constinit Message<void(CGFloat)> setFirstLineHeadIndent{"setFirstLineHeadIndent:"};
  static inline constinit Message<void(CGFloat)> setHeadIndent{"setHeadIndent:"};
  static inline constinit Message<void(CGFloat)> setTailIndent{"setTailIndent:"};
  static inline constinit Message<void(CGFloat)> setLineSpacing{"setLineSpacing:"};
  static inline constinit Message<void(CGFloat)> setParagraphSpacing{"setParagraphSpacing:"};
  static inline constinit Message<void(CGFloat)> setParagraphSpacingBefore{"setParagraphSpacingBefore:"};
  static inline constinit Message<void(CGFloat)> setMinimumLineHeight{"setMinimumLineHeight:"};
  static inline constinit Message<void(CGFloat)> setMaximumLineHeight{"setMaximumLineHeight:"};
  static inline constinit Message<void(CGFloat)> setLineHeightMultiple{"setLineHeightMultiple:"};
  static inline constinit Message<void(CGFloat)> setDefaultTabInterval{"setDefaultTabInterval:"};
  static inline constinit Message<void(float)> setHyphenationFactor{"setHyphenationFactor:"};
  static inline constinit Message<void(NSUInteger)> setLineBreakMode{"setLineBreakMode:"};
  static inline constinit Message<void(NSInteger)> setHeaderLevel{"setHeaderLevel:"};
  static inline constinit Message<void(NSArray*)> setTabStops{"setTabStops:"};
  static inline constinit Message<void(NSTextTab*)> addTabStop{"addTabStop:"};
  static inline constinit Message<void(NSTextTab*)> removeTabStop{"removeTabStop:"};
  static inline constinit Message<void(NSParagraphStyle*)> setParagraphStyle{"setParagraphStyle:"};
};

struct NSImage : NSObject {
  static constexpr char className_[] = "NSImage";
  static inline constinit Message<NSSize()> size{"size"};
};

struct NSCell : NSObject {
  static constexpr char className_[] = "NSCell";
  static inline constinit Message<NSImage*()> image{"image"};
  static inline constinit Message<void(NSImage*)> setImage{"setImage:"};
};

struct NSTextAttachmentCell : NSCell {
  static constexpr char className_[] = "NSTextAttachmentCell";
};

struct NSTextAttachment : NSObject {
  static constexpr char className_[] = "NSTextAttachment";
  static inline constinit Message<NSTextAttachment*(NSFileWrapper*)> initWithFileWrapper{"initWithFileWrapper:"};
  static inline constinit Message<NSFileWrapper*()> fileWrapper{"fileWrapper"};
  static inline constinit Message<void(NSFileWrapper*)> setFileWrapper{"setFileWrapper:"};
  static inline constinit Message<NSCell*()> attachmentCell{"attachmentCell"};
  static inline constinit Message<void(NSCell*)> setAttachmentCell{"setAttachmentCell:"};
};

struct NSFileWrapper : NSObject {
  static constexpr char className_[] = "NSFileWrapper";
  static inline constinit Message<NSFileWrapper*(NSURL*, NSUInteger, NSError**)> initWithURL{"initWithURL:options:error:"};
  static inline constinit Message<NSFileWrapper*(NSData*)> initRegularFileWithContents{"initRegularFileWithContents:"};
  static inline constinit Message<NSFileWrapper*(NSData*)> initWithSerializedRepresentation{
      "initWithSerializedRepresentation:"};
  static inline constinit Message<NSFileWrapper*(NSDictionary*)> initDirectoryWithFileWrappers{
      "initDirectoryWithFileWrappers:"};
  static inline constinit Message<NSImage*()> icon{"icon"};
  static inline constinit Message<void(NSImage*)> setIcon{"setIcon:"};
  static inline constinit Message<BOOL()> isDirectory{"isDirectory"};
  static inline constinit Message<BOOL()> isRegularFile{"isRegularFile"};
  static inline constinit Message<BOOL()> isSymbolicLink{"isSymbolicLink"};
  static inline constinit Message<NSString*()> preferredFilename{"preferredFilename"};
  static inline constinit Message<void(NSString*)> setPreferredFilename{"setPreferredFilename:"};
  static inline constinit Message<NSString*()> filename{"filename"};
  static inline constinit Message<void(NSString*)> setFilename{"setFilename:"};
  static inline constinit Message<NSDictionary*()> fileAttributes{"fileAttributes"};
  static inline constinit Message<void(NSDictionary*)> setFileAttributes{"setFileAttributes:"};
  static inline constinit Message<NSData*()> serializedRepresentation{"serializedRepresentation"};
  static inline constinit Message<NSData*()> regularFileContents{"regularFileContents"};
  static inline constinit Message<NSURL*()> symbolicLinkDestinationURL{"symbolicLinkDestinationURL"};
  static inline constinit Message<NSDictionary*()> fileWrappers{"fileWrappers"};
  static inline constinit Message<BOOL(NSURL*, NSUInteger, NSError**)> readFromURL{"readFromURL:options:error:"};
  static inline constinit Message<BOOL(NSURL*, NSUInteger, NSURL*, NSError**)> writeToURL{
      "writeToURL:options:originalContentsURL:error:"};
  static inline constinit Message<BOOL(NSURL*)> matchesContentsOfURL{"matchesContentsOfURL:"};
  static inline constinit Message<NSString*(NSData*, NSString*)> addRegularFileWithContents{
      "addRegularFileWithContents:preferredFilename:"};
  static inline constinit Message<NSString*(NSFileWrapper*)> addFileWrapper{"addFileWrapper:"};
  static inline constinit Message<void(NSFileWrapper*)> removeFileWrapper{"removeFileWrapper:"};
  static inline constinit Message<NSString*(NSFileWrapper*)> keyForFileWrapper{"keyForFileWrapper:"};
};

struct NSShadow : NSObject {
  static constexpr char className_[] = "NSShadow";
  static inline constinit Message<CGFloat()> shadowBlurRadius{"shadowBlurRadius"};
  static inline constinit Message<void(CGFloat)> setShadowBlurRadius{"setShadowBlurRadius:"};
  static inline constinit Message<NSColor*()> shadowColor{"shadowColor"};
  static inline constinit Message<void(NSColor*)> setShadowColor{"setShadowColor:"};
  static inline constinit Message<NSSize()> shadowOffset{"shadowOffset"};
  static inline constinit Message<void(NSSize)> setShadowOffset{"setShadowOffset:"};
  static inline constinit Message<void()> set{"set"};
};

struct NSLayoutManager : NSObject {
  static constexpr char className_[] = "NSLayoutManager";
  static inline constinit Message<NSTextStorage*()> textStorage{"textStorage"};
};

struct NSTextContainer : NSObject {
  static constexpr char className_[] = "NSTextContainer";
  static inline constinit Message<NSLayoutManager*()> layoutManager{"layoutManager"};
};

struct NSView : NSObject {
  static constexpr char className_[] = "NSView";
  static inline constinit Message<void()> endPage{"endPage"};
};

struct NSTextView : NSView {
  static constexpr char className_[] = "NSTextView";
  static inline constinit Message<NSTextView*(NSRect)> initWithFrame{"initWithFrame:"};
  static inline constinit Message<NSTextContainer*()> textContainer{"textContainer"};
  static inline constinit Message<void(BOOL)> setRichText{"setRichText:"};
  static inline constinit Message<void(BOOL)> setImportsGraphics{"setImportsGraphics:"};
  static inline constinit Message<void(BOOL)> setAutomaticQuoteSubstitutionEnabled{"setAutomaticQuoteSubstitutionEnabled:"};
  static inline constinit Message<void(BOOL)> setAutomaticLinkDetectionEnabled{"setAutomaticLinkDetectionEnabled:"};
  static inline constinit Message<void(BOOL)> setAutomaticDataDetectionEnabled{"setAutomaticDataDetectionEnabled:"};
  static inline constinit Message<void(BOOL)> setAutomaticDashSubstitutionEnabled{"setAutomaticDashSubstitutionEnabled:"};
  static inline constinit Message<void(BOOL)> setAutomaticTextReplacementEnabled{"setAutomaticTextReplacementEnabled:"};
  static inline constinit Message<void(BOOL)> setAutomaticSpellingCorrectionEnabled{
      "setAutomaticSpellingCorrectionEnabled:"};
};

struct NSPrintInfo : NSObject {
  static constexpr char className_[] = "NSPrintInfo";
  static inline constinit Message<void(NSUInteger)> setHorizontalPagination{"setHorizontalPagination:"};
  static inline constinit Message<void(NSUInteger)> setVerticalPagination{"setVerticalPagination:"};
  static inline constinit Message<void(BOOL)> setVerticallyCentered{"setVerticallyCentered:"};
  static inline constinit Message<void(BOOL)> setHorizontallyCentered{"setHorizontallyCentered:"};
  static inline constinit Message<void(CGFloat)> setLeftMargin{"setLeftMargin:"};
  static inline constinit Message<void(CGFloat)> setTopMargin{"setTopMargin:"};
  static inline constinit Message<void(CGFloat)> setBottomMargin{"setBottomMargin:"};
  static inline constinit Message<void(CGFloat)> setRightMargin{"setRightMargin:"};
  static inline constinit Message<void(NSString*)> setJobDisposition{"setJobDisposition:"};
  static inline constinit Message<NSMutableDictionary*()> dictionary{"dictionary"};
  static inline constinit Message<NSSize()> paperSize{"paperSize"};
  static inline constinit Message<void(NSSize)> setPaperSize{"setPaperSize:"};
  static inline constinit Message<NSInteger()> orientation{"orientation"};
  static inline constinit Message<void(NSInteger)> setOrientation{"setOrientation:"};
  static inline constinit Message<CGFloat()> leftMargin{"leftMargin"};
  static inline constinit Message<CGFloat()> rightMargin{"rightMargin"};
  static inline constinit Message<CGFloat()> topMargin{"topMargin"};
  static inline constinit Message<CGFloat()> bottomMargin{"bottomMargin"};
  static inline constinit Message<CGFloat()> scalingFactor{"scalingFactor"};
  static inline constinit Message<void(CGFloat)> setScalingFactor{"setScalingFactor:"};
  static inline constinit Message<NSUInteger()> horizontalPagination{"horizontalPagination"};
  static inline constinit Message<NSUInteger()> verticalPagination{"verticalPagination"};
  static inline constinit Message<BOOL()> isHorizontallyCentered{"isHorizontallyCentered"};
  static inline constinit Message<BOOL()> isVerticallyCentered{"isVerticallyCentered"};
};

struct NSPrintOperation : NSObject {
  static constexpr char className_[] = "NSPrintOperation";
  static inline constinit Message<NSPrintOperation*(NSView*, NSPrintInfo*)> printOperationWithView{
      "printOperationWithView:printInfo:"};
  static inline constinit Message<void(BOOL)> setShowsPrintPanel{"setShowsPrintPanel:"};
  static inline constinit Message<void(BOOL)> setShowsProgressPanel{"setShowsProgressPanel:"};
  static inline constinit Message<BOOL()> runOperation{"runOperation"};
};

extern "C" {
extern NSString* const NSCalibratedRGBColorSpace;
extern NSString* const NSCalibratedWhiteColorSpace;
extern NSString* const NSDeviceRGBColorSpace;
extern NSString* const NSDeviceWhiteColorSpace;
extern NSString* const NSDeviceCMYKColorSpace;
extern NSString* const NSPrintSaveJob;
extern NSString* const NSPrintJobSavingURL;
}
