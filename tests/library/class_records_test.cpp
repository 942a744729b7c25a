// The five class records as the host reads them: every member, in order.
#include "plugin/class_records.hpp"

#include <array>
#include <cstring>

#include "platform/appkit_keys.h"
#include "tests/library/member_calls.hpp"

namespace {

using calls::MemberTest;

class ClassRecords : public MemberTest {};

const char* const attributedStringMethods = R"(
fileWrapperFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil, byref Error as NSErrorZKT) as NSFileWrapperZKT
GeneratePDF(PrintOptions as variant = nil) as MemoryBlock
AsCFAttributedString as Variant
attributeAtIndex(name as string, location as UInt64) as variant
attributeAtIndex(name as string, location as UInt64, inRange as NSRangeZKT) as variant
attributeAtIndex2(name as string, location as UInt64, byref effectiveRange as NSRangeZKT) as variant
attributeAtIndex2(name as string, location as UInt64, byref longestEffectiveRange as NSRangeZKT, inRange as NSRangeZKT) as variant
attributedSubstringFromRange(range as NSRangeZKT) as NSAttributedStringZKT
attributesAtIndex2(location as UInt64, byref range as NSRangeZKT, inRange as NSRangeZKT) as dictionary
attributesAtIndex2(location as UInt64, byref range as NSRangeZKT) as dictionary
attributesAtIndex(location as UInt64, inRange as NSRangeZKT) as dictionary
attributesAtIndex(location as UInt64) as dictionary
copy as NSAttributedStringZKT
mutableCopy as NSMutableAttributedStringZKT
isEqualToAttributedString(other as NSAttributedStringZKT) as Boolean
rtf as memoryblock
htmlString as string
initWithString(text as string) as boolean
initWithString(text as string, withAttributes as Dictionary) as boolean
initWithAttributedString(text as NSAttributedStringZKT) as boolean
initWithURL(file as folderitem) as boolean
initWithURL(url as string) as boolean
initWithPath(file as folderitem) as boolean
initWithPath(path as string) as boolean
initWithRTF(data as memoryblock) as boolean
initWithRTFD(data as memoryblock) as boolean
initWithHTML(data as memoryblock) as boolean
initWithHTML(data as memoryblock, BaseURL as string) as boolean
initWithHTMLOld(data as string) as boolean
initWithDocFormat(data as memoryblock) as boolean
dataFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil, byref error as NSErrorZKT) as memoryblock
RTFDFileWrapperFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as NSFileWrapperZKT
RTFFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock
RTFDFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock
docFormatFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil) as memoryblock
RTFFromRange(documentAttributes as dictionary = nil) as memoryblock
RTFDFromRange(documentAttributes as dictionary = nil) as memoryblock
docFormatFromRange(documentAttributes as dictionary = nil) as memoryblock
initWithURL(file as folderitem, byref documentAttributes as dictionary) as boolean
initWithURL(url as string, byref documentAttributes as dictionary) as boolean
initWithPath(file as folderitem, byref documentAttributes as dictionary) as boolean
initWithPath(path as string, byref documentAttributes as dictionary) as boolean
initWithRTF(data as memoryblock, byref documentAttributes as dictionary) as boolean
initWithRTFD(data as memoryblock, byref documentAttributes as dictionary) as boolean
initWithHTML(data as memoryblock, byref documentAttributes as dictionary) as boolean
initWithHTML(data as memoryblock, BaseURL as string, byref documentAttributes as dictionary) as boolean
initWithDocFormat(data as memoryblock, byref documentAttributes as dictionary) as boolean
)";
const char* const mutableAttributedStringMethods = R"(
containsAttachmentsInRange(offset as integer, length as integer) as Boolean
rulerAttributesInRange(offset as integer, length as integer) as Dictionary
fontAttributesInRange(offset as integer, length as integer) as Dictionary
superscriptRange(offset as integer, length as integer)
subscriptRange(offset as integer, length as integer)
unscriptRange(offset as integer, length as integer)
applyFontTraits(FontTraitMask as Integer, offset as integer, length as integer)
setAlignment(alignment as Integer, offset as integer, length as integer)
setBaseWritingDirection(writingDirection as Integer, offset as integer, length as integer)
fixAttributesInRange(offset as integer, length as integer)
fixFontAttributeInRange(offset as integer, length as integer)
fixParagraphStyleAttributeInRange(offset as integer, length as integer)
fixAttachmentAttributeInRange(offset as integer, length as integer)
AsCFMutableAttributedString as Variant
updateAttachmentsFromPath(path as string)
updateAttachmentsFromPath(file as folderitem)
insertAttributedString(attrString as NSAttributedStringZKT, location as UInt64)
replaceCharactersInRange(range as NSRangeZKT, attrString as NSAttributedStringZKT)
addAttributes(attrs as Dictionary, range as NSRangeZKT)
addAttribute(name as string, value as variant, range as NSRangeZKT)
setAttributes(attrs as Dictionary, range as NSRangeZKT)
replaceCharactersInRange(range as NSRangeZKT, text as string)
deleteCharactersInRange(range as NSRangeZKT)
beginEditing
endEditing
setAttributedString(attrString as NSAttributedStringZKT)
appendAttributedString(attrString as NSAttributedStringZKT)
removeAttribute(name as string, range as NSRangeZKT)
)";
const char* const attributedStringFactories = R"(
attributedStringWithAttachment(attachment as NSTextAttachmentZKT) as NSAttributedStringZKT
attributedStringWithURL(file as folderitem, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithURL(url as string, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithPath(file as folderitem, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithPath(path as string, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithRTF(data as memoryblock, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithRTFD(data as memoryblock, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithHTML(data as memoryblock, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithHTML(data as memoryblock, BaseURL as string, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithDocFormat(data as memoryblock, byref DocumentAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithString(text as string) as NSAttributedStringZKT
attributedStringWithString(text as string, withAttributes as dictionary) as NSAttributedStringZKT
attributedStringWithAttributedString(text as NSAttributedStringZKT) as NSAttributedStringZKT
attributedStringWithURL(file as folderitem) as NSAttributedStringZKT
attributedStringWithURL(url as string) as NSAttributedStringZKT
attributedStringWithPath(file as folderitem) as NSAttributedStringZKT
attributedStringWithPath(path as string) as NSAttributedStringZKT
attributedStringWithRTF(data as memoryblock) as NSAttributedStringZKT
attributedStringWithRTFD(data as memoryblock) as NSAttributedStringZKT
attributedStringWithHTML(data as memoryblock) as NSAttributedStringZKT
attributedStringWithHTML(data as memoryblock, BaseURL as string) as NSAttributedStringZKT
attributedStringWithHTMLOld(data as string) as NSAttributedStringZKT
attributedStringWithDocFormat(data as memoryblock) as NSAttributedStringZKT
)";
const char* const fileWrapperMethods = R"(
writeToFile(File as Folderitem, Options as Integer = 0, originalContentsURL as FolderItem = nil, byref Error as NSErrorZKT) as Boolean
writeToURL(URL as String, Options as Integer = 0, originalContentsURL as String = "", byref Error as NSErrorZKT) as Boolean
readFromFile(File as Folderitem, Options as Integer = 0, byref Error as NSErrorZKT) as Boolean
readFromURL(URL as String, Options as Integer = 0, byref Error as NSErrorZKT) as Boolean
matchesContentsOfFile(File as Folderitem) as Boolean
matchesContentsOfURL(URL as String) as Boolean
addRegularFileWithContents(Data as MemoryBlock, preferredFilename as string) as String
addFileWrapper(child as NSFileWrapperZKT) as String
removeFileWrapper(child as NSFileWrapperZKT)
keyForFileWrapper(child as NSFileWrapperZKT) as String
Constructor
)";
const char* const fileWrapperFactories = R"(
initDirectoryWithFileWrappers(childrenByPreferredName as Dictionary) as NSFileWrapperZKT
initWithFile(File as folderItem, Options as Integer, byref error as NSErrorZKT) as NSFileWrapperZKT
initWithURL(URL as string, Options as Integer, byref error as NSErrorZKT) as NSFileWrapperZKT
initRegularFileWithContents(data as MemoryBlock) as NSFileWrapperZKT
initWithSerializedRepresentation(data as MemoryBlock) as NSFileWrapperZKT
)";

#define KEY_LINE(key) #key " as string\n"
const char* const keys = PLATFORM_ATTRIBUTED_STRING_KEYS(KEY_LINE);
#undef KEY_LINE

struct Expected {
  const char* name;
  const char* superclass;
  int64_t dataSize;  // as registered
  bool constructs;
  std::string properties, methods, constants, sharedMethods;  // a line each
};

const std::vector<Expected> expectedClasses = {
    {"NSAttributedStringZKT", "", 16, true,
     "Handle as Integer\nLength as Integer read-only\nText as String read-only\ncontainsAttachments as Boolean read-only\n",
     attributedStringMethods, "", attributedStringFactories + std::string(keys)},
    {"NSMutableAttributedStringZKT", "NSAttributedStringZKT", 0, false, "", mutableAttributedStringMethods, "", ""},
    {"NSTextAttachmentZKT", "", 16, true,
     "Handle as Integer\nfileWrapper as NSFileWrapperZKT\nattachmentCell as Variant read-only\n",
     "Constructor(fileWrapper as NSFileWrapperZKT)\nConstructor(image as NSImageZKT)\n", "NSAttachmentCharacter = &hFFFC\n",
     "attributedStringWithAttachment(attachment as NSTextAttachmentZKT) as NSAttributedStringZKT\n"},
    {"NSFileWrapperZKT", "", 16, true,
     "Handle as Integer\nicon as NSImageZKT\nDirectory as Boolean read-only\nRegularFile as Boolean read-only\n"
     "SymbolicLink as Boolean read-only\npreferredFilename as String\nfilename as String\nfileAttributes as Dictionary\n"
     "serializedRepresentation as MemoryBlock read-only\nregularFileContents as MemoryBlock read-only\n"
     "symbolicLinkDestinationURL as String read-only\nfileWrappers as Dictionary read-only\n",
     fileWrapperMethods,
     "NSFileWrapperReadingImmediate = 1\nNSFileWrapperReadingWithoutMapping = 2\nNSFileWrapperWritingAtomic = 1\n"
     "NSFileWrapperWritingWithNameUpdating = 2\n",
     fileWrapperFactories},
    {"NSShadowZKT", "", 16, true,
     "Handle as Integer\nshadowBlurRadius as Double\nshadowColor as NSColorZKT\nshadowOffset as NSSizeZKT\n",
     "copy as NSShadowZKT\nConstructor\nset\n", "", ""},
};

template <class Records, class Describe>
std::string linesOf(const Records* records, uint64_t count, Describe describe) {
  std::string lines;
  for (uint64_t index = 0; index < count; ++index) lines += describe(records[index]) + "\n";
  return lines;
}

std::string describe(const plugin::PropertyRecord& property) {
  const std::string line = std::string(property.name) + " as " + property.type;
  return property.setter == nullptr ? line + " read-only" : line;
}

const char* declarationOf(const plugin::MethodRecord& method) { return method.declaration; }
const char* declarationOf(const plugin::ConstantRecord& constant) { return constant.declaration; }
template <class Record>
std::string describe(const Record& record) {
  return declarationOf(record);
}

// Without the line break that opens a raw string.
std::string lines(const std::string& text) { return text.substr(0, 1) == "\n" ? text.substr(1) : text; }

TEST_F(ClassRecords, DeclareEveryMemberInOrder) {
  for (const Expected& expected : expectedClasses) {
    SCOPED_TRACE(expected.name);
    const host::HostClass* registered = host::Runtime::shared().findClass(expected.name);
    ASSERT_NE(registered, nullptr);
    const auto& record = *reinterpret_cast<const plugin::ClassRecord*>(registered->record());
    EXPECT_STREQ(record.superclass == nullptr ? "" : record.superclass, expected.superclass);
    EXPECT_EQ(record.instanceDataSize, expected.dataSize);
    EXPECT_EQ(record.constructor != nullptr, expected.constructs);
    EXPECT_EQ(record.destructor != nullptr, expected.constructs);
    const auto description = [](const auto& row) { return describe(row); };
    EXPECT_EQ(linesOf(record.properties, record.propertyCount, description), expected.properties);
    EXPECT_EQ(linesOf(record.methods, record.methodCount, description), lines(expected.methods));
    EXPECT_EQ(linesOf(record.constants, record.constantCount, description), expected.constants);
    EXPECT_EQ(linesOf(record.sharedMethods, record.sharedMethodCount, description), lines(expected.sharedMethods));
  }
}

// A shared constant gives the platform's own text for the key, a new string each time.
TEST_F(ClassRecords, KeysAreThePlatforms) {
  const std::pair<const char*, NSString*> rows[] = {
#define KEY_ROW(key) {#key " as string", key},
      PLATFORM_ATTRIBUTED_STRING_KEYS(KEY_ROW)
#undef KEY_ROW
  };
  ASSERT_EQ(std::size(rows), 86U);
  for (const auto& [declaration, key] : rows) {
    EXPECT_EQ(calls::utf8(calls::callShared("NSAttributedStringZKT", declaration)), NSString::UTF8String(key))
        << declaration;
  }
}

// The 64-bit slots of a record, as the host reads them.
template <std::size_t Count, class Record>
std::array<uint64_t, Count> slotsOf(const Record& record) {
  static_assert(sizeof record == Count * sizeof(uint64_t));
  std::array<uint64_t, Count> slots;
  std::memcpy(slots.data(), &record, sizeof record);
  return slots;
}

template <std::size_t Count>
void expectZeros(const std::array<uint64_t, Count>& slots, std::initializer_list<std::size_t> places, const char* what) {
  for (const std::size_t place : places) EXPECT_EQ(slots[place], 0U) << what << ", slot " << place;
}

void expectMethodSlots(const plugin::MethodRecord* methods, uint64_t count) {
  for (uint64_t index = 0; index < count; ++index) {
    const auto slots = slotsOf<6>(methods[index]);
    EXPECT_NE(slots[0], 0U) << methods[index].declaration;
    EXPECT_EQ(slots[3], 4U) << methods[index].declaration;
    expectZeros(slots, {1, 4, 5}, methods[index].declaration);
  }
}

void expectPropertySlots(const plugin::PropertyRecord& property) {
  const auto slots = slotsOf<12>(property);
  EXPECT_EQ(slots[3], 6U) << property.name;
  expectZeros(slots, {0, 6, 7, 8, 9, 10, 11}, property.name);
  const bool isHandle = std::string_view(property.name) == "Handle";
  EXPECT_EQ(slots[4] == ~uint64_t{0}, isHandle) << property.name;
  EXPECT_EQ(slots[5] == ~uint64_t{0}, isHandle) << property.name;
}

const plugin::ClassRecord* const records[] = {&plugin::NSAttributedStringClass, &plugin::NSMutableAttributedStringClass,
                                              &plugin::NSTextAttachmentClass, &plugin::NSFileWrapperClass,
                                              &plugin::NSShadowClass};

TEST(ClassRecordSlots, HoldFlagsAndZerosWhereTheHostLooksForThem) {
  for (const plugin::ClassRecord* record : records) {
    const auto slots = slotsOf<30>(*record);
    EXPECT_EQ(slots[20], 4U) << record->name;
    expectZeros(slots, {4, 11, 12, 13, 14, 15, 16, 17, 21, 22, 25, 26, 27, 28, 29}, record->name);
    for (const auto& [table, count] : {std::pair{7, 8}, {9, 10}, {18, 19}, {23, 24}}) {
      EXPECT_EQ(slots[static_cast<std::size_t>(table)] == 0, slots[static_cast<std::size_t>(count)] == 0) << record->name;
    }
    for (uint64_t index = 0; index < record->propertyCount; ++index) expectPropertySlots(record->properties[index]);
    expectMethodSlots(record->methods, record->methodCount);
    expectMethodSlots(record->sharedMethods, record->sharedMethodCount);
    for (uint64_t index = 0; index < record->constantCount; ++index) {
      expectZeros(slotsOf<5>(record->constants[index]), {1, 2, 3, 4}, record->constants[index].declaration);
    }
  }
}

}  // namespace
