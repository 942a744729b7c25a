// File wrappers and attachments through the library's members: real files, errors, identity, RTFD.
#include <filesystem>
#include <fstream>

#include "host/runtime/dictionary.hpp"
#include "host/runtime/folder_item.hpp"
#include "host/runtime/memory_block.hpp"
#include "plugin/wrappers.hpp"
#include "tests/library/member_calls.hpp"

namespace {

using calls::Arguments;
using calls::Value;
namespace fs = std::filesystem;

class FileWrappers : public calls::MemberTest {
 protected:
  void SetUp() override {
    MemberTest::SetUp();
    char name[] = "/tmp/file-wrappers-XXXXXX";
    folder_ = mkdtemp(name);
  }
  void TearDown() override {
    fs::remove_all(folder_);
    MemberTest::TearDown();
  }
  std::string path(const std::string& name) const { return folder_ + "/" + name; }
  Value url(const std::string& name) const { return Value::string("file://" + path(name)); }
  Value item(const std::string& name) const { return Value::object(host::makeFolderItem(path(name))); }
  std::string fileAt(const std::string& name) const {
    std::ifstream file(path(name));
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string folder_;
};

constexpr char writeURL[] =
    "writeToURL(URL as String, Options as Integer = 0, originalContentsURL as String = \"\", byref Error as NSErrorZKT) as "
    "Boolean";
constexpr char writeFile[] =
    "writeToFile(File as Folderitem, Options as Integer = 0, originalContentsURL as FolderItem = nil, byref Error as "
    "NSErrorZKT) as Boolean";
constexpr char readURL[] = "readFromURL(URL as String, Options as Integer = 0, byref Error as NSErrorZKT) as Boolean";
constexpr char readFile[] = "readFromFile(File as Folderitem, Options as Integer = 0, byref Error as NSErrorZKT) as Boolean";
constexpr char addBytes[] = "addRegularFileWithContents(Data as MemoryBlock, preferredFilename as string) as String";
constexpr char addWrapper[] = "addFileWrapper(child as NSFileWrapperZKT) as String";
constexpr char keyFor[] = "keyForFileWrapper(child as NSFileWrapperZKT) as String";

Value fileWith(std::string_view content) {
  return calls::callShared("NSFileWrapperZKT", "initRegularFileWithContents(data as MemoryBlock) as NSFileWrapperZKT",
                           {calls::bytes(content)});
}
Value directory() {
  Value made = calls::make("NSFileWrapperZKT");
  calls::call(made, "Constructor");
  return made;
}
std::string contentOf(const Value& wrapper) {
  const Value block = calls::get(wrapper, "regularFileContents");
  if (block.isNil()) return "(nil)";
  const auto bytes = host::memoryOf(block.asObject());
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}
Value childOf(const Value& wrapper, std::string_view key) {
  const Value children = calls::get(wrapper, "fileWrappers");
  return host::dictionaryValue(children.asObject(), Value::string(key));
}
// "NSCocoaErrorDomain 260"
std::string errorText(const Value& error) {
  if (error.isNil()) return "no error";
  return calls::utf8(calls::get(error, "domain")) + " " + std::to_string(calls::get(error, "code").asInteger());
}

// Every form of reading and writing, by URL and by folder item, with the error of what fails.
TEST_F(FileWrappers, AreWrittenAndReadByURLAndByFile) {
  const Value tree = directory();
  EXPECT_TRUE(calls::get(tree, "Directory").asBoolean());
  EXPECT_EQ(calls::utf8(calls::call(tree, addBytes, {calls::bytes("alpha"), Value::string("a.txt")})), "a.txt");
  EXPECT_EQ(calls::utf8(calls::call(tree, addBytes, {calls::bytes("beta"), Value::string("a.txt")})), "1__#$!@%!#__a.txt");
  Arguments byURL = {url("u"), Value::integer(1), Value::string(""), Value()};
  EXPECT_TRUE(calls::call(tree, writeURL, byURL).asBoolean()) << errorText(byURL[3]);
  Arguments byFile = {item("f"), Value::integer(0), Value(), calls::make("NSErrorZKT")};
  EXPECT_TRUE(calls::call(tree, writeFile, byFile).asBoolean());
  EXPECT_TRUE(byFile[3].isNil());
  EXPECT_FALSE(calls::call(tree, writeFile, byFile).asBoolean());
  EXPECT_EQ(errorText(byFile[3]), "NSCocoaErrorDomain 516");
  for (const char* name : {"u", "f"}) {
    EXPECT_EQ(fileAt(name + std::string("/a.txt")), "alpha");
    const Value again = calls::make("NSFileWrapperZKT");
    calls::call(again, "Constructor");
    Arguments reading = {url(name), Value::integer(1), Value()};
    EXPECT_TRUE(calls::call(again, readURL, reading).asBoolean());
    EXPECT_EQ(contentOf(childOf(again, "1__#$!@%!#__a.txt")), "beta");
    EXPECT_TRUE(calls::call(again, "matchesContentsOfFile(File as Folderitem) as Boolean", {item(name)}).asBoolean());
    EXPECT_FALSE(calls::call(again, "matchesContentsOfURL(URL as String) as Boolean", {url("nowhere")}).asBoolean());
  }
  for (const auto& [declaration, argument, code] : {std::tuple(readURL, url("nowhere"), "NSCocoaErrorDomain 260"),
                                                    {readFile, item("nowhere"), "NSCocoaErrorDomain 260"},
                                                    {readFile, Value(), "NSCocoaErrorDomain 258"},
                                                    {readURL, Value(), "NSCocoaErrorDomain 258"}}) {
    Arguments reading = {argument, Value::integer(0), calls::make("NSErrorZKT")};
    EXPECT_FALSE(calls::call(tree, declaration, reading).asBoolean());
    EXPECT_EQ(errorText(reading[2]), code);
  }
  EXPECT_EQ(contentOf(childOf(tree, "a.txt")), "alpha");
}

TEST_F(FileWrappers, AreMadeByTheSharedConstructors) {
  std::ofstream(path("file")) << "on disk";
  constexpr char byURL[] = "initWithURL(URL as string, Options as Integer, byref error as NSErrorZKT) as NSFileWrapperZKT";
  constexpr char byFile[] =
      "initWithFile(File as folderItem, Options as Integer, byref error as NSErrorZKT) as NSFileWrapperZKT";
  Arguments found = {url("file"), Value::integer(1), Value()}, missing = {item("none"), Value::integer(0), Value()};
  const Value file = calls::callShared("NSFileWrapperZKT", byURL, found);
  EXPECT_EQ(contentOf(file), "on disk");
  EXPECT_TRUE(found[2].isNil());
  EXPECT_TRUE(calls::callShared("NSFileWrapperZKT", byFile, missing).isNil());
  EXPECT_EQ(errorText(missing[2]), "NSCocoaErrorDomain 260");
  const Value children = Value::object(host::makeDictionary());
  host::setDictionaryValue(children.asObject(), Value::string("key"), file);
  const Value folder = calls::callShared(
      "NSFileWrapperZKT", "initDirectoryWithFileWrappers(childrenByPreferredName as Dictionary) as NSFileWrapperZKT",
      {children});
  EXPECT_EQ(childOf(folder, "key").asObject(), file.asObject());
  const Value thawed =
      calls::callShared("NSFileWrapperZKT", "initWithSerializedRepresentation(data as MemoryBlock) as NSFileWrapperZKT",
                        {calls::get(folder, "serializedRepresentation")});
  EXPECT_EQ(contentOf(childOf(thawed, "key")), "on disk");
  EXPECT_TRUE(calls::callShared("NSFileWrapperZKT",
                                "initWithSerializedRepresentation(data as MemoryBlock) as NSFileWrapperZKT",
                                {calls::bytes("junk")})
                  .isNil());
}

TEST_F(FileWrappers, ChildrenAndNames) {
  const Value tree = directory(), child = fileWith("x");
  EXPECT_NE(calls::raisedBy([&] { calls::call(tree, addWrapper, {child}); }), "");
  calls::set(child, "preferredFilename", Value::string("name"));
  EXPECT_EQ(calls::utf8(calls::call(tree, addWrapper, {child})), "name");
  EXPECT_EQ(calls::utf8(calls::call(tree, keyFor, {child})), "name");
  EXPECT_EQ(childOf(tree, "name").asObject(), child.asObject());
  calls::call(tree, "removeFileWrapper(child as NSFileWrapperZKT)", {child});
  EXPECT_EQ(calls::utf8(calls::call(tree, keyFor, {child})), "");
  EXPECT_NE(calls::raisedBy([&] { calls::set(child, "filename", Value()); }), "");
  // What a kind of file does not have raises, and reads as nothing.
  EXPECT_NE(calls::raisedBy([&] { calls::get(child, "fileWrappers"); }), "");
  EXPECT_NE(calls::raisedBy([&] { calls::get(tree, "symbolicLinkDestinationURL"); }), "");
  const Value icon = calls::get(child, "icon");
  EXPECT_EQ(calls::classNameOf(icon), "NSImageZKT");
  EXPECT_EQ(calls::get(child, "icon").asObject(), icon.asObject());
  calls::set(tree, "icon", icon);
  EXPECT_EQ(calls::get(tree, "icon").asObject(), icon.asObject());
  const Value attributes = calls::get(child, "fileAttributes");
  EXPECT_EQ(calls::utf8(host::dictionaryValue(attributes.asObject(), Value::string("NSFileType"))), "NSFileTypeRegular");
  fs::create_symlink("a b", path("link"));
  Arguments reading = {url("link"), Value::integer(0), Value()};
  EXPECT_TRUE(calls::call(tree, readURL, reading).asBoolean());
  EXPECT_TRUE(calls::get(tree, "SymbolicLink").asBoolean());
  EXPECT_EQ(calls::utf8(calls::get(tree, "symbolicLinkDestinationURL")), "file://" + path("a%20b"));
}

// Attachment and file wrapper are the same host objects wherever they come back.
TEST_F(FileWrappers, AttachmentsKeepTheirIdentity) {
  const Value file = fileWith("attached");
  calls::set(file, "preferredFilename", Value::string("a.bin"));
  const Value attachment = calls::make("NSTextAttachmentZKT");
  calls::call(attachment, "Constructor(fileWrapper as NSFileWrapperZKT)", {file});
  EXPECT_EQ(calls::get(attachment, "fileWrapper").asObject(), file.asObject());
  const Value string = calls::callShared(
      "NSTextAttachmentZKT", "attributedStringWithAttachment(attachment as NSTextAttachmentZKT) as NSAttributedStringZKT",
      {attachment});
  EXPECT_EQ(calls::textOf(string), "\xEF\xBF\xBC");
  EXPECT_EQ(calls::classNameOf(calls::get(attachment, "attachmentCell")), "NSCellZKT");
  const Value attributes =
      calls::call(string, "attributesAtIndex(location as UInt64) as dictionary", {Value::unsignedInteger(0)});
  EXPECT_EQ(host::dictionaryValue(attributes.asObject(), Value::string("NSAttachment")).asObject(), attachment.asObject());
  const Value other = fileWith("other");
  calls::set(attachment, "fileWrapper", other);
  EXPECT_EQ(calls::get(attachment, "fileWrapper").asObject(), other.asObject());
  calls::set(attachment, "fileWrapper", Value());
  EXPECT_TRUE(calls::get(attachment, "fileWrapper").isNil());
}

// An attachment of an image has a cell that shows it, and no file; a second "Constructor" makes another attachment of it.
TEST_F(FileWrappers, AttachmentsAreMadeOfImagesAndMadeAgain) {
  const Value file = fileWith("x"), image = calls::get(file, "icon");
  EXPECT_EQ(calls::get(calls::get(image, "size"), "width").asDouble(), 32);
  const Value attachment = calls::make("NSTextAttachmentZKT");
  calls::call(attachment, "Constructor(image as NSImageZKT)", {image});
  const Value cell = calls::get(attachment, "attachmentCell");
  EXPECT_EQ(calls::get(cell, "image").asObject(), image.asObject());
  EXPECT_EQ(calls::handleOf(calls::get(attachment, "attachmentCell")), calls::handleOf(cell));
  EXPECT_TRUE(calls::get(attachment, "fileWrapper").isNil());
  // Kept, so that the next one cannot lie at its place.
  const Owned<NSObject> first = retain(calls::handleOf(attachment));
  calls::call(attachment, "Constructor(fileWrapper as NSFileWrapperZKT)", {file});
  EXPECT_NE(calls::handleOf(attachment), static_cast<NSObject*>(first));
  EXPECT_EQ(calls::get(attachment, "fileWrapper").asObject(), file.asObject());
  EXPECT_NE(calls::handleOf(calls::get(attachment, "attachmentCell")), calls::handleOf(cell));
  calls::call(attachment, "Constructor(image as NSImageZKT)", {image});
  EXPECT_TRUE(calls::get(attachment, "fileWrapper").isNil());
}

// The range is handed on as it is: one outside the text raises, and the error variable is cleared.
TEST_F(FileWrappers, PackagesOfRanges) {
  constexpr char declaration[] =
      "fileWrapperFromRange(offset as integer, length as integer, documentAttributes as dictionary = nil, byref Error as "
      "NSErrorZKT) as NSFileWrapperZKT";
  const Value attributes = Value::object(host::makeDictionary());
  host::setDictionaryValue(attributes.asObject(), Value::string("DocumentType"), Value::string("NSRTFD"));
  const Value string = calls::text("abcdef");
  for (const auto& [offset, length] : {std::pair(0, 7), {7, 0}, {-1, 2}, {3, -1}}) {
    Arguments arguments = {Value::integer(offset), Value::integer(length), attributes, calls::make("NSErrorZKT")};
    EXPECT_NE(calls::raisedBy([&] { calls::call(string, declaration, arguments); }).find("out of bounds; string length 6"),
              std::string::npos)
        << offset << "+" << length;
    EXPECT_TRUE(arguments[3].isNil());
  }
  Arguments arguments = {Value::integer(1), Value::integer(2), attributes, Value()};
  const Value package = calls::call(string, declaration, arguments);
  const Value text = childOf(package, "TXT.rtf");
  EXPECT_EQ(childOf(package, "TXT.rtf").asObject(), text.asObject());
  EXPECT_NE(contentOf(text).find("bc}"), std::string::npos) << contentOf(text);
}

}  // namespace
