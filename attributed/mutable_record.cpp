// The class record of the mutable attributed string. Instance data, construction and all else are its superclass's.
#include "attributed/editing.hpp"
#include "plugin/class_records.hpp"

namespace attributed {
namespace {

const MethodRecord methods[] = {
    method<"containsAttachmentsInRange(offset as integer, length as integer) as Boolean", containsAttachmentsInRange>(),
    method<"rulerAttributesInRange(offset as integer, length as integer) as Dictionary", rulerAttributesInRange>(),
    method<"fontAttributesInRange(offset as integer, length as integer) as Dictionary", fontAttributesInRange>(),
    method<"superscriptRange(offset as integer, length as integer)", superscriptRange>(),
    method<"subscriptRange(offset as integer, length as integer)", subscriptRange>(),
    method<"unscriptRange(offset as integer, length as integer)", unscriptRange>(),
    method<"applyFontTraits(FontTraitMask as Integer, offset as integer, length as integer)", applyFontTraits>(),
    method<"setAlignment(alignment as Integer, offset as integer, length as integer)", setAlignment>(),
    method<"setBaseWritingDirection(writingDirection as Integer, offset as integer, length as integer)",
           setBaseWritingDirection>(),
    method<"fixAttributesInRange(offset as integer, length as integer)", fixAttributesInRange>(),
    method<"fixFontAttributeInRange(offset as integer, length as integer)", fixFontAttributeInRange>(),
    method<"fixParagraphStyleAttributeInRange(offset as integer, length as integer)", fixParagraphStyleAttributeInRange>(),
    method<"fixAttachmentAttributeInRange(offset as integer, length as integer)", fixAttachmentAttributeInRange>(),
    method<"AsCFMutableAttributedString as Variant", AsCFMutableAttributedString>(),
    method<"updateAttachmentsFromPath(path as string)", updateAttachmentsFromPath>(),
    method<"updateAttachmentsFromPath(file as folderitem)", updateAttachmentsFromFile>(),
    method<"insertAttributedString(attrString as NSAttributedStringZKT, location as UInt64)", insertAttributedString>(),
    method<"replaceCharactersInRange(range as NSRangeZKT, attrString as NSAttributedStringZKT)",
           replaceCharactersInRange2>(),
    method<"addAttributes(attrs as Dictionary, range as NSRangeZKT)", addAttributes>(),
    method<"addAttribute(name as string, value as variant, range as NSRangeZKT)", addAttribute>(),
    method<"setAttributes(attrs as Dictionary, range as NSRangeZKT)", setAttributes>(),
    method<"replaceCharactersInRange(range as NSRangeZKT, text as string)", replaceCharactersInRange>(),
    method<"deleteCharactersInRange(range as NSRangeZKT)", deleteCharactersInRange>(),
    method<"beginEditing", beginEditing>(),
    method<"endEditing", endEditing>(),
    method<"setAttributedString(attrString as NSAttributedStringZKT)", setAttributedString>(),
    method<"appendAttributedString(attrString as NSAttributedStringZKT)", appendAttributedString>(),
    method<"removeAttribute(name as string, range as NSRangeZKT)", removeAttribute>(),
};
static_assert(std::size(methods) == 28);

}  // namespace
}  // namespace attributed

plugin::ClassRecord plugin::NSMutableAttributedStringClass = classRecord(
    {.name = "NSMutableAttributedStringZKT", .superclass = "NSAttributedStringZKT", .methods = attributed::methods});
