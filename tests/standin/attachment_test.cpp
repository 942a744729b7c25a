// Attachments, images, and the documents that carry them: RTFD packages and pictures in RTF.
#include <gtest/gtest.h>

#include "standin/formats/pictures/picture.hpp"
#include "tests/standin/file_wrapper_support.hpp"

namespace {

using namespace file_wrapper_support;
namespace fs = std::filesystem;

// A PNG of the size, all of one grey.
std::string png(int width, int height, uint8_t grey = 128) {
  const std::vector<uint8_t> pixels(static_cast<size_t>(width * height) * 4, grey);
  return *standin::formats::pictures::encode(pixels, {width, height});
}

NSTextAttachment* attachmentOf(NSFileWrapper* file) {
  return static_cast<NSTextAttachment*>(
      adopt(NSTextAttachment::initWithFileWrapper(alloc<NSTextAttachment>(), file)).autorelease());
}
NSImage* imageWith(const std::string& content) {
  return adopt(send<NSImage*>(alloc<NSImage>(), "initWithData:", bytes(content))).autorelease();
}

NSMutableAttributedString* text(std::u16string_view units) {
  NSString* string = newString(units).autorelease();
  return static_cast<NSMutableAttributedString*>(
      adopt(NSAttributedString::initWithString(alloc<NSMutableAttributedString>(), string)).autorelease());
}
void append(NSMutableAttributedString* string, NSTextAttachment* attachment) {
  NSMutableAttributedString::appendAttributedString(
      string, NSAttributedString::attributedStringWithAttachment(classOf<NSAttributedString>(), attachment));
}
NSTextAttachment* attachmentAt(NSAttributedString* string, NSUInteger index) {
  return static_cast<NSTextAttachment*>(
      NSAttributedString::attributeAtIndex(string, NSAttachmentAttributeName, index, nullptr));
}
std::string fileAt(NSAttributedString* string, NSUInteger index) {
  NSFileWrapper* file = NSTextAttachment::fileWrapper(attachmentAt(string, index));
  return file != nullptr ? contentOf(NSFileWrapper::regularFileContents(file)) : "(no file)";
}
NSRange whole(NSAttributedString* string) { return {0, NSAttributedString::length(string)}; }
NSData* rtfd(NSAttributedString* string) { return NSAttributedString::RTFDFromRange(string, whole(string), nullptr); }
NSData* rtf(NSAttributedString* string) { return NSAttributedString::RTFFromRange(string, whole(string), nullptr); }
NSAttributedString* opened(NSData* data) {
  return adopt(NSAttributedString::initWithRTFD(alloc<NSAttributedString>(), data, nullptr)).autorelease();
}
NSAttributedString* openedRTF(NSData* data, NSDictionary** attributes = nullptr) {
  return adopt(NSAttributedString::initWithRTF(alloc<NSAttributedString>(), data, attributes)).autorelease();
}
std::u16string unitsIn(NSAttributedString* string) { return unitsOf(NSAttributedString::string(string)); }

TEST(Images, KnowTheirSizeAndRefuseWhatIsNone) {
  AutoreleasePool pool;
  NSImage* image = imageWith(png(7, 5));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(send<NSSize>(image, "size").width, 7);
  EXPECT_EQ(send<NSSize>(image, "size").height, 5);
  NSData* tiff = send<NSData*>(image, "TIFFRepresentation");
  EXPECT_EQ(send<NSSize>(imageWith(contentOf(tiff)), "size").height, 5);
  const TemporaryFolder scratch;
  for (const std::string& junk :
       {std::string(), std::string("plain text"), png(7, 5).substr(0, 12), std::string("\x89PNG\r\n\x1A\n")}) {
    EXPECT_EQ(imageWith(junk), nullptr);
    NSString* path = ns(scratch.file("junk", junk));
    EXPECT_EQ(send(alloc<NSImage>(), "initWithContentsOfFile:", path), nullptr);
  }
  EXPECT_EQ(send(alloc<NSImage>(), "initWithContentsOfFile:", ns("/nowhere")), nullptr);
  EXPECT_EQ(send(alloc<NSImage>(), "initWithContentsOfURL:", static_cast<NSURL*>(nullptr)), nullptr);
  // A picture that says it is larger than memory.
  std::string vast = png(1, 1);
  vast.replace(16, 8, "\x00\x0F\xFF\xFF\x00\x0F\xFF\xFF", 8);
  NSImage* told = imageWith(vast);
  EXPECT_EQ(told != nullptr ? send(told, "TIFFRepresentation") : nullptr, nullptr);
}

TEST(Images, SurviveEveryAlteredByte) {
  const std::string original = png(3, 3);
  for (size_t position = 0; position < original.size(); ++position) {
    AutoreleasePool pool;
    std::string changed = original;
    changed[position] = static_cast<char>(~changed[position]);
    if (NSImage* image = imageWith(changed)) send(image, "TIFFRepresentation");
    imageWith(original.substr(0, position));
  }
}

TEST(Attachments, CellsShowTheFile) {
  AutoreleasePool pool;
  NSFileWrapper *picture = named("p.png", fileWith(png(9, 4))), *other = named("o.bin", fileWith("bytes"));
  NSTextAttachment* attachment = attachmentOf(picture);
  NSCell* cell = NSTextAttachment::attachmentCell(attachment);
  EXPECT_EQ(send<NSSize>(cell, "cellSize").width, 9);
  EXPECT_EQ(NSTextAttachment::attachmentCell(attachment), cell);
  EXPECT_EQ(send(cell, "attachment"), attachment);
  NSTextAttachment::setFileWrapper(attachment, other);
  EXPECT_EQ(NSTextAttachment::fileWrapper(attachment), other);
  EXPECT_EQ(send(NSTextAttachment::attachmentCell(attachment), "image"), NSFileWrapper::icon(other));
  NSTextAttachment::setFileWrapper(attachment, nullptr);
  EXPECT_EQ(NSTextAttachment::attachmentCell(attachment), nullptr);
  EXPECT_NE(raised([] { NSAttributedString::attributedStringWithAttachment(classOf<NSAttributedString>(), nullptr); }), "");
  // A cell outlives its attachment and forgets it.
  const Owned<NSCell> kept = adopt(static_cast<NSCell*>(NSObject::init(alloc<NSTextAttachmentCell>())));
  {
    const auto brief = adopt(static_cast<NSTextAttachment*>(NSObject::init(alloc<NSTextAttachment>())));
    NSTextAttachment::setAttachmentCell(brief, kept);
    EXPECT_EQ(send(kept, "attachment"), brief.get());
  }
  EXPECT_EQ(send(kept, "attachment"), nullptr);
  // So does one whose attachment got another file.
  NSTextAttachment::setAttachmentCell(attachment, kept);
  NSTextAttachment::setFileWrapper(attachment, other);
  EXPECT_EQ(send(kept, "attachment"), nullptr);
}

NSMutableAttributedString* illustrated(NSTextAttachment* first) {
  NSMutableAttributedString* string = text(u"see ");
  append(string, first);
  NSMutableAttributedString::appendAttributedString(string, text(u" and\n"));
  append(string, attachmentOf(named("a\xC3\xA9 {b}.png", fileWith(png(2, 2, 7)))));
  append(string, attachmentOf(named("TXT.rtf", fileWith("not the text"))));
  append(string, first);
  NSMutableAttributedString::appendAttributedString(string, text(u"!"));
  return string;
}

void expectIllustrated(NSAttributedString* string, const std::string& first) {
  ASSERT_NE(string, nullptr);
  EXPECT_EQ(unitsIn(string), u"see \uFFFC and\n\uFFFC\uFFFC\uFFFC!");
  EXPECT_EQ(fileAt(string, 4), first);
  EXPECT_EQ(fileAt(string, 10), png(2, 2, 7));
  EXPECT_EQ(fileAt(string, 11), "not the text");
  EXPECT_EQ(fileAt(string, 12), first);
  EXPECT_EQ(NSTextAttachment::fileWrapper(attachmentAt(string, 4)), NSTextAttachment::fileWrapper(attachmentAt(string, 12)));
  EXPECT_EQ(utf8(NSFileWrapper::preferredFilename(NSTextAttachment::fileWrapper(attachmentAt(string, 10)))),
            "a\xC3\xA9 {b}.png");
  EXPECT_TRUE(NSAttributedString::containsAttachments(string));
}

// Through the archive, the file wrapper and the folder: every attachment comes back with its bytes and its name.
TEST(Attachments, RTFDComesBackAsItWas) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  const std::string first = png(5, 6);
  NSMutableAttributedString* string = illustrated(attachmentOf(named("pic.png", fileWith(first))));
  expectIllustrated(opened(rtfd(string)), first);
  expectIllustrated(opened(rtfd(opened(rtfd(string)))), first);
  NSFileWrapper* package = NSAttributedString::RTFDFileWrapperFromRange(string, whole(string), nullptr);
  EXPECT_EQ(NSDictionary::count(NSFileWrapper::fileWrappers(package)), 4U);
  ASSERT_TRUE(write(package, scratch / "doc.rtfd", atomic));
  EXPECT_EQ(readFile((scratch / "doc.rtfd/pic.png").c_str()), first);
  NSDictionary* attributes = nullptr;
  NSAttributedString* again =
      adopt(send<NSAttributedString*>(alloc<NSAttributedString>(), "initWithRTFDFileWrapper:documentAttributes:",
                                      read(scratch / "doc.rtfd"), &attributes))
          .autorelease();
  expectIllustrated(again, first);
  EXPECT_EQ(utf8(NSDictionary::objectForKey(attributes, NSDocumentTypeDocumentAttribute)), "NSRTFD");
  // Only the files that the range refers to go along.
  NSFileWrapper* part = NSAttributedString::RTFDFileWrapperFromRange(string, {0, 5}, nullptr);
  EXPECT_EQ(NSDictionary::count(NSFileWrapper::fileWrappers(part)), 2U);
}

TEST(Attachments, RTFDIsReadAsOthersWriteIt) {
  AutoreleasePool pool;
  NSFileWrapper* package = directory();
  add(package, "TXT.rtf",
      "{\\rtf1\\ansi x{{\\NeXTGraphic Pasted Graphic.png \\width640 \\height400 \\appleattachmentpadding0\n}\\'ac}y"
      "{\\NeXTGraphic gone.png}\\'acz{{\\NeXTGraphic }\\'ac}{{\\NeXTGraphic \\u233?.png}\\'ac}}");
  add(package, "e\xCC\x81.png", "composed otherwise");
  add(package, "Pasted Graphic.png", png(4, 4));
  const auto string =
      adopt(send<NSAttributedString*>(alloc<NSAttributedString>(), "initWithRTFDFileWrapper:documentAttributes:", package,
                                      static_cast<NSDictionary**>(nullptr)));
  EXPECT_EQ(unitsIn(string), u"x\uFFFCy\uFFFCz\u00AC\uFFFC");
  EXPECT_EQ(fileAt(string, 6), "composed otherwise");
  EXPECT_EQ(fileAt(string, 1), png(4, 4));
  EXPECT_EQ(send<NSRect>(attachmentAt(string, 1), "bounds").size.width, 32);
  EXPECT_EQ(attachmentAt(string, 3), nullptr);
}

TEST(Attachments, WhatIsNoPackageIsRefused) {
  AutoreleasePool pool;
  NSFileWrapper *empty = directory(), *wrong = directory(), *nested = directory();
  add(wrong, "TXT.rtf", "not RTF");
  NSFileWrapper::addFileWrapper(nested, named("TXT.rtf", directory()));
  for (NSFileWrapper* package : {empty, wrong, nested, fileWith("{\\rtf1 x}")}) {
    EXPECT_EQ(send(alloc<NSAttributedString>(), "initWithRTFDFileWrapper:documentAttributes:", package,
                   static_cast<NSDictionary**>(nullptr)),
              nullptr);
    EXPECT_EQ(opened(NSFileWrapper::serializedRepresentation(package)), nullptr);
  }
  EXPECT_EQ(opened(bytes("junk")), nullptr);
  EXPECT_NE(raised([] { opened(nullptr); }), "");
}

// The names of attachments never lead out of the package, nor to nothing.
TEST(Attachments, PackagesCanAlwaysBeWritten) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  NSMutableAttributedString* string = text(u"");
  for (const char* name : {"..", "a/b", "../up.png", "same", "same"})
    append(string, attachmentOf(named(name, fileWith(name))));
  append(string, attachmentOf(fileWith("nameless")));
  NSFileWrapper* package = NSAttributedString::RTFDFileWrapperFromRange(string, whole(string), nullptr);
  ASSERT_TRUE(write(package, scratch / "p.rtfd"));
  NSAttributedString* again = opened(NSFileWrapper::serializedRepresentation(read(scratch / "p.rtfd")));
  ASSERT_EQ(NSAttributedString::length(again), 6U);
  for (NSUInteger index = 0; index < 6; ++index) EXPECT_EQ(fileAt(again, index), fileAt(string, index));
  EXPECT_EQ(std::distance(fs::directory_iterator(scratch.path()), {}), 1);
}

// RTF holds pictures; other files it cannot, and leaves them out with their characters.
TEST(Attachments, PicturesInRTF) {
  AutoreleasePool pool;
  const std::string picture = png(5, 6);
  NSMutableAttributedString* string = illustrated(attachmentOf(named("pic.png", fileWith(picture))));
  for (NSAttributedString* read : {openedRTF(rtf(string)), openedRTF(rtf(openedRTF(rtf(string))))}) {
    EXPECT_EQ(unitsIn(read), u"see \uFFFC and\n\uFFFC\uFFFC!");
    EXPECT_EQ(fileAt(read, 4), picture);
    EXPECT_EQ(fileAt(read, 10), png(2, 2, 7));
    EXPECT_EQ(utf8(NSFileWrapper::preferredFilename(NSTextAttachment::fileWrapper(attachmentAt(read, 4)))),
              "Attachment.png");
    EXPECT_EQ(send<NSRect>(attachmentAt(read, 4), "bounds").size.height, 0);  // the picture's own, as it was
  }
  const auto hex = [](const std::string& content) {
    std::string digits;
    for (const char c : content) {
      char pair[3];
      snprintf(pair, sizeof pair, "%02X", static_cast<unsigned char>(c));
      digits.append(pair).append(digits.size() % 7 == 0 ? "\n" : "");
    }
    return digits;
  };
  const std::string raw = "\\bin" + std::to_string(picture.size()) + " " + picture;
  const std::pair<std::string, std::u16string> rows[] = {
      {"a{\\*\\shppict{\\pict{\\*\\blipuid 0123}\\pngblip\\picwgoal100 " + hex(picture) +
           "}}{\\nonshppict{\\pict\\wmetafile8 " + hex(picture) + "}}b",
       u"a\uFFFCb"},
      {"a{\\pict\\pngblip" + raw + "}b", u"a\uFFFCb"},
      {"a{\\pict\\wmetafile8 0102}b", u"ab"},
      {"{\\header{\\pict\\pngblip " + hex(picture) + "}}b", u"b"},
      {"{\\deleted{\\pict\\pngblip " + hex(picture) + "}}b", u"b"},
      {"a{\\pict\\pngblip\\bin999999 " + picture, u"a"},
  };
  for (const auto& [body, expected] : rows) {
    NSAttributedString* read = openedRTF(bytes("{\\rtf1 " + body + "}"));
    EXPECT_EQ(unitsIn(read), expected) << body.substr(0, 40);
    if (expected == u"a\uFFFCb") {
      EXPECT_EQ(fileAt(read, 1), picture);
    }
  }
}

// Attachments are equal by what they hold, wherever the text with them came from.
TEST(Attachments, DocumentsReadTwiceAreEqual) {
  AutoreleasePool pool;
  const auto picture = [](const std::string& contents, const std::string& size) {
    std::string document = "{\\rtf1 a{\\pict\\pngblip" + size + "\\bin" + std::to_string(contents.size()) + " ";
    return openedRTF(bytes(document + contents + "}b}"));
  };
  const auto equal = [](NSAttributedString* left, NSAttributedString* right) {
    return NSObject::isEqual(left, right) && NSObject::hash(attachmentAt(left, 1)) == NSObject::hash(attachmentAt(right, 1));
  };
  for (const char* size : {"", "\\picwgoal100\\pichgoal300"}) {
    NSAttributedString* read = picture(png(5, 6), size);
    EXPECT_TRUE(equal(read, picture(png(5, 6), size))) << size;
    EXPECT_TRUE(equal(read, openedRTF(rtf(read)))) << size;
    EXPECT_FALSE(NSObject::isEqual(read, picture(png(5, 7), size))) << size;
    EXPECT_FALSE(NSObject::isEqual(read, picture(png(5, 6), "\\picwgoal20"))) << size;
  }
}

// An attachment that is a cell alone is written as the picture that the cell shows.
TEST(Attachments, CellsWithoutFiles) {
  AutoreleasePool pool;
  const auto attachment = adopt(static_cast<NSTextAttachment*>(NSObject::init(alloc<NSTextAttachment>())));
  const auto cell = adopt(static_cast<NSCell*>(NSObject::init(alloc<NSTextAttachmentCell>())));
  NSTextAttachment::setAttachmentCell(attachment, cell);
  NSMutableAttributedString* string = text(u"");
  append(string, attachment);
  EXPECT_EQ(unitsIn(openedRTF(rtf(string))), u"");
  EXPECT_EQ(NSAttributedString::length(opened(rtfd(string))), 0U);
  NSCell::setImage(cell, imageWith(png(3, 3)));
  EXPECT_EQ(fileAt(opened(rtfd(string)), 0), png(3, 3));
  EXPECT_EQ(fileAt(openedRTF(rtf(string)), 0), png(3, 3));
}

TEST(Attachments, AreUpdatedFromThePackage) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  NSMutableAttributedString* string = text(u"");
  append(string, attachmentOf(named("a.txt", fileWith("old"))));
  append(string, attachmentOf(named("b.txt", fileWith("kept"))));
  scratch.file("a.txt", "new");
  NSFileWrapper* file = NSTextAttachment::fileWrapper(attachmentAt(string, 0));
  NSMutableAttributedString::updateAttachmentsFromPath(string, ns(scratch.path()));
  EXPECT_EQ(NSTextAttachment::fileWrapper(attachmentAt(string, 0)), file);
  EXPECT_EQ(fileAt(string, 0), "new");
  EXPECT_EQ(fileAt(string, 1), "kept");
}

// Archives name their files as they like.
TEST(Attachments, AreNotUpdatedFromOutsideThePackage) {
  const TemporaryFolder scratch;
  AutoreleasePool pool;
  scratch.file("secret", "secret");
  std::filesystem::create_directory(scratch.path() + "/package");
  for (const char* name : {"../secret", "./../secret", ".."}) {
    NSMutableAttributedString* string = text(u"");
    append(string, attachmentOf(named(name, fileWith("old"))));
    NSMutableAttributedString::updateAttachmentsFromPath(string, ns(scratch.path() + "/package"));
    EXPECT_EQ(fileAt(string, 0), "old") << name;
  }
}

}  // namespace
