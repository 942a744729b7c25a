// The class record of the attributed string.
#include "attributed/constants.hpp"
#include "attributed/creation.hpp"
#include "attributed/export.hpp"
#include "attributed/pdf.hpp"
#include "attributed/properties.hpp"
#include "attributed/queries.hpp"
#include "classes/text_attachment.hpp"
#include "plugin/class_records.hpp"

namespace attributed {
namespace {

const PropertyRecord properties[] = {
    handleProperty(),
    property<"Length", "Integer", length>(),
    property<"Text", "String", string>(),
    property<"containsAttachments", "Boolean", containsAttachments>(),
};

const MethodRecord methods[] = {
    method<"fileWrapperFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil, byref Error "
           "as NSErrorZKT) as NSFileWrapperZKT",
           fileWrapperFromRange>(),
    method<"GeneratePDF(PrintOptions as variant = nil) as MemoryBlock", GeneratePDF>(),
    method<"AsCFAttributedString as Variant", AsCFAttributedString>(),
    method<"attributeAtIndex(name as string, location as UInt64) as variant", attributeAtIndex1r>(),
    method<"attributeAtIndex(name as string, location as UInt64, inRange as NSRangeZKT) as variant", attributeAtIndex2r>(),
    method<"attributeAtIndex2(name as string, location as UInt64, byref effectiveRange as NSRangeZKT) as variant",
           attributeAtIndex1>(),
    method<"attributeAtIndex2(name as string, location as UInt64, byref longestEffectiveRange as NSRangeZKT, inRange as "
           "NSRangeZKT) as variant",
           attributeAtIndex2>(),
    method<"attributedSubstringFromRange(range as NSRangeZKT) as NSAttributedStringZKT", attributedSubstringFromRange>(),
    method<"attributesAtIndex2(location as UInt64, byref range as NSRangeZKT, inRange as NSRangeZKT) as dictionary",
           attributesAtIndex2>(),
    method<"attributesAtIndex2(location as UInt64, byref range as NSRangeZKT) as dictionary", attributesAtIndex1>(),
    method<"attributesAtIndex(location as UInt64, inRange as NSRangeZKT) as dictionary", attributesAtIndex2r>(),
    method<"attributesAtIndex(location as UInt64) as dictionary", attributesAtIndex1r>(),
    method<"copy as NSAttributedStringZKT", copyWithZone>(),
    method<"mutableCopy as NSMutableAttributedStringZKT", mutableCopy>(),
    method<"isEqualToAttributedString(other as NSAttributedStringZKT) as Boolean", isEqualToAttributedString>(),
    method<"rtf as memoryblock", rtf>(),
    method<"htmlString as string", htmlString>(),
    method<"initWithString(text as string) as boolean", initWithString1>(),
    method<"initWithString(text as string, withAttributes as Dictionary) as boolean", initWithString2>(),
    method<"initWithAttributedString(text as NSAttributedStringZKT) as boolean", initWithAttributedString>(),
    method<"initWithURL(file as folderitem) as boolean", initWithURLfolderitem>(),
    method<"initWithURL(url as string) as boolean", initWithURLstring>(),
    method<"initWithPath(file as folderitem) as boolean", initWithPathfolderitem>(),
    method<"initWithPath(path as string) as boolean", initWithPathstring>(),
    method<"initWithRTF(data as memoryblock) as boolean", initWithRTF>(),
    method<"initWithRTFD(data as memoryblock) as boolean", initWithRTFD>(),
    method<"initWithHTML(data as memoryblock) as boolean", initWithHTML>(),
    method<"initWithHTML(data as memoryblock, BaseURL as string) as boolean", initWithHTML2>(),
    method<"initWithHTMLOld(data as string) as boolean", initWithHTMLOld>(),
    method<"initWithDocFormat(data as memoryblock) as boolean", initWithDocFormat>(),
    method<"dataFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil, byref error as "
           "NSErrorZKT) as memoryblock",
           dataFromRange>(),
    method<"RTFDFileWrapperFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as "
           "NSFileWrapperZKT",
           RTFDFileWrapperFromRange>(),
    method<"RTFFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock",
           RTFFromRange>(),
    method<"RTFDFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock",
           RTFDFromRange>(),
    method<"docFormatFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock",
           docFormatFromRange>(),
    method<"RTFFromRange(documentAttributes as dictionary = nil) as memoryblock", RTFFromRange2>(),
    method<"RTFDFromRange(documentAttributes as dictionary = nil) as memoryblock", RTFDFromRange2>(),
    method<"docFormatFromRange(documentAttributes as dictionary = nil) as memoryblock", docFormatFromRange2>(),
    method<"initWithURL(file as folderitem, byref documentAttributes as dictionary) as boolean", initWithURLfolderitemd>(),
    method<"initWithURL(url as string, byref documentAttributes as dictionary) as boolean", initWithURLstringd>(),
    method<"initWithPath(file as folderitem, byref documentAttributes as dictionary) as boolean", initWithPathfolderitemd>(),
    method<"initWithPath(path as string, byref documentAttributes as dictionary) as boolean", initWithPathstringd>(),
    method<"initWithRTF(data as memoryblock, byref documentAttributes as dictionary) as boolean", initWithRTFd>(),
    method<"initWithRTFD(data as memoryblock, byref documentAttributes as dictionary) as boolean", initWithRTFDd>(),
    method<"initWithHTML(data as memoryblock, byref documentAttributes as dictionary) as boolean", initWithHTMLd>(),
    method<"initWithHTML(data as memoryblock, BaseURL as string, byref documentAttributes as dictionary) as boolean",
           initWithHTML2d>(),
    method<"initWithDocFormat(data as memoryblock, byref documentAttributes as dictionary) as boolean",
           initWithDocFormatd>(),
};

#define ATTRIBUTED_KEY_ROW(key) sharedMethod<#key " as string", get##key>(),
const MethodRecord sharedMethods[] = {
    sharedMethod<"attributedStringWithAttachment(attachment as NSTextAttachmentZKT) as NSAttributedStringZKT",
                 attributedStringWithAttachment>(),
    sharedMethod<
        "attributedStringWithURL(file as folderitem, byref DocumentAttributes as dictionary) as NSAttributedStringZKT",
        attributedStringWithURLfolderitemd>(),
    sharedMethod<"attributedStringWithURL(url as string, byref DocumentAttributes as dictionary) as NSAttributedStringZKT",
                 attributedStringWithURLstringd>(),
    sharedMethod<
        "attributedStringWithPath(file as folderitem, byref DocumentAttributes as dictionary) as NSAttributedStringZKT",
        attributedStringWithPathfolderitemd>(),
    sharedMethod<"attributedStringWithPath(path as string, byref DocumentAttributes as dictionary) as NSAttributedStringZKT",
                 attributedStringWithPathstringd>(),
    sharedMethod<
        "attributedStringWithRTF(data as memoryblock, byref DocumentAttributes as dictionary) as NSAttributedStringZKT",
        attributedStringWithRTFd>(),
    sharedMethod<
        "attributedStringWithRTFD(data as memoryblock, byref DocumentAttributes as dictionary) as NSAttributedStringZKT",
        attributedStringWithRTFDd>(),
    sharedMethod<
        "attributedStringWithHTML(data as memoryblock, byref DocumentAttributes as dictionary) as NSAttributedStringZKT",
        attributedStringWithHTMLd>(),
    sharedMethod<"attributedStringWithHTML(data as memoryblock, BaseURL as string, byref DocumentAttributes as dictionary) "
                 "as NSAttributedStringZKT",
                 attributedStringWithHTML2d>(),
    sharedMethod<"attributedStringWithDocFormat(data as memoryblock, byref DocumentAttributes as dictionary) as "
                 "NSAttributedStringZKT",
                 attributedStringWithDocFormatd>(),
    sharedMethod<"attributedStringWithString(text as string) as NSAttributedStringZKT", attributedStringWithString1>(),
    sharedMethod<"attributedStringWithString(text as string, withAttributes as dictionary) as NSAttributedStringZKT",
                 attributedStringWithString2>(),
    sharedMethod<"attributedStringWithAttributedString(text as NSAttributedStringZKT) as NSAttributedStringZKT",
                 attributedStringWithAttributedString>(),
    sharedMethod<"attributedStringWithURL(file as folderitem) as NSAttributedStringZKT",
                 attributedStringWithURLfolderitem>(),
    sharedMethod<"attributedStringWithURL(url as string) as NSAttributedStringZKT", attributedStringWithURLstring>(),
    sharedMethod<"attributedStringWithPath(file as folderitem) as NSAttributedStringZKT",
                 attributedStringWithPathfolderitem>(),
    sharedMethod<"attributedStringWithPath(path as string) as NSAttributedStringZKT", attributedStringWithPathstring>(),
    sharedMethod<"attributedStringWithRTF(data as memoryblock) as NSAttributedStringZKT", attributedStringWithRTF>(),
    sharedMethod<"attributedStringWithRTFD(data as memoryblock) as NSAttributedStringZKT", attributedStringWithRTFD>(),
    sharedMethod<"attributedStringWithHTML(data as memoryblock) as NSAttributedStringZKT", attributedStringWithHTML>(),
    sharedMethod<"attributedStringWithHTML(data as memoryblock, BaseURL as string) as NSAttributedStringZKT",
                 attributedStringWithHTML2>(),
    sharedMethod<"attributedStringWithHTMLOld(data as string) as NSAttributedStringZKT", attributedStringWithHTMLOld>(),
    sharedMethod<"attributedStringWithDocFormat(data as memoryblock) as NSAttributedStringZKT",
                 attributedStringWithDocFormat>(),
    PLATFORM_ATTRIBUTED_STRING_KEYS(ATTRIBUTED_KEY_ROW)};
#undef ATTRIBUTED_KEY_ROW

static_assert(std::size(properties) == 4 && std::size(methods) == 47 && std::size(sharedMethods) == 109);

}  // namespace
}  // namespace attributed

plugin::ClassRecord plugin::NSAttributedStringClass = classRecord({.name = "NSAttributedStringZKT",
                                                                   .instanceDataSize = sizeof(NSAttributedString*),
                                                                   .constructor = NSAttributedStringConstructor,
                                                                   .destructor = NSAttributedStringDestructor,
                                                                   .properties = attributed::properties,
                                                                   .methods = attributed::methods,
                                                                   .sharedMethods = attributed::sharedMethods});
