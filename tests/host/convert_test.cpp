// Documents converted and inspected from the command line.
#include "tests/host/command_support.hpp"

namespace command_test {
namespace {

class Documents : public CommandTest {
 protected:
  // The exit status; what was printed, on both streams, is kept.
  int run(const std::string& arguments) {
    const Outcome outcome = styledtext(arguments);
    printed_ = outcome.output;
    return outcome.status;
  }

  std::string printed_;
};

constexpr char linked[] = "<b>Regards</b>to <u>all</u>";

TEST_F(Documents, GoThroughEveryFormatAndKeepTextAndStyle) {
  write("a.tags", linked);
  for (const char* line : {"a.tags -o b.rtf", "b.rtf -o c.rtfd", "c.rtfd/ --to rtf --into d", "d/c.rtf -o e.tags",
                           "e.tags -o f.txt", "--from tags f.txt -o g.rtf"}) {
    EXPECT_EQ(run(std::string("convert ") + line), 0) << line << ": " << printed_;
    EXPECT_EQ(printed_, "");
  }
  EXPECT_EQ(read("e.tags"), linked);
  EXPECT_EQ(read("f.txt"), "Regardsto all");
  EXPECT_EQ(run("inspect g.rtf"), 0);
  EXPECT_NE(printed_.find("\"Regardsto all"), std::string::npos) << printed_;
}

TEST_F(Documents, BecomePagesAndPictures) {
  write("a.rtf",
        "{\\rtf1\\paperw6000\\paperh8000\\margl400\\margr400\\margt600{\\info{\\title On Paper}{\\keywords one, "
        "two}}one\\page two}");
  EXPECT_EQ(run("convert a.rtf -o a.pdf"), 0);
  EXPECT_EQ(printed_, "");
  const std::string pdf = read("a.pdf");
  EXPECT_TRUE(pdf.starts_with("%PDF-1.")) << pdf.substr(0, 20);
  EXPECT_NE(pdf.find("/Keywords(one, two)"), std::string::npos);
  EXPECT_EQ(run("preview a.rtf -o page.png --page 2 --resolution 72"), 0) << printed_;
  const std::string picture = read("page.png");
  ASSERT_TRUE(picture.size() > 24 && picture.starts_with("\x89PNG"));
  EXPECT_EQ(picture.substr(16, 8), std::string("\0\0\x01\x2C\0\0\x01\x90", 8)) << "300 by 400 points";
  EXPECT_EQ(run("preview a.rtf -o page.png --page 3"), 1);
  EXPECT_EQ(printed_, "styledtext: a.rtf: it has no page 3; the last is 2\n");
  EXPECT_EQ(run("preview a.rtf -o missing/page.png"), 1);
  EXPECT_EQ(run("--log convert a.rtf -o b.pdf"), 0);
  EXPECT_NE(printed_.find("tempFileName: "), std::string::npos) << printed_;
}

TEST_F(Documents, WhatADocumentSaysOfItselfIsKept) {
  write("a.rtf",
        "{\\rtf1{\\info{\\title The Title}{\\creatim\\yr2014\\mo3\\dy5}}\\paperw11900\\paperh16840\\margl1440 text}");
  ASSERT_EQ(run("convert a.rtf -o b.rtfd"), 0) << printed_;
  ASSERT_EQ(run("inspect a.rtf"), 0);
  const std::string before = printed_;
  EXPECT_NE(before.find("NSTitleDocumentAttribute: The Title\n"), std::string::npos) << before;
  EXPECT_NE(before.find("PaperSize: width 595, height 842\n"), std::string::npos) << before;
  ASSERT_EQ(run("inspect b.rtfd"), 0);
  std::string expected = before;
  expected.replace(expected.find("NSRTF"), 5, "NSRTFD");
  EXPECT_EQ(printed_, expected);
}

// A picture of one pixel.
constexpr std::string_view picture(
    "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\x01\0\0\0\x01\x08\x06\0\0\0\x1F\x15\xC4\x89\0\0\0\x0D"
    "IDATx\x9C"
    "c\xF8\xCF\xC0\xF0\x1F\0\x05\0\x01\xFF\x56\xC7\x2F\x0D\0\0\0\0IEND\xAE\x42\x60\x82",
    70);

TEST_F(Documents, AttachmentsAreListedAndKept) {
  fs::create_directories(folder_ / "a.rtfd/parts/inner");
  write("a.rtfd/dot.png", std::string(picture));
  write("a.rtfd/plain", "12345");
  write("a.rtfd/parts/one", "1");
  write("a.rtfd/parts/inner/two", "22");
  write("a.rtfd/TXT.rtf",
        "{\\rtf1 see {{\\NeXTGraphic dot.png \\width20 \\height20}\xAC} {{\\NeXTGraphic plain \\width0 \\height0}\xAC} "
        "{{\\NeXTGraphic parts \\width0 \\height0}\xAC}}");
  const auto expectAttachments = [&](const std::string& document) {
    ASSERT_EQ(run("inspect " + document), 0) << printed_;
    for (const char* listed : {"  NSAttachment: name dot.png, type png, size 70\n", "  NSAttachment: name plain, size 5\n",
                               "  NSAttachment: name parts, size 3\n"}) {
      EXPECT_NE(printed_.find(listed), std::string::npos) << listed << printed_;
    }
  };
  expectAttachments("a.rtfd");
  ASSERT_EQ(run("convert a.rtfd -o b.rtfd"), 0) << printed_;
  expectAttachments("b.rtfd");
  EXPECT_EQ(read("b.rtfd/dot.png"), picture);
  ASSERT_EQ(run("convert a.rtfd -o c.rtf"), 0) << printed_;
  ASSERT_EQ(run("convert c.rtf -o d.rtfd"), 0) << printed_;
  EXPECT_EQ(run("inspect d.rtfd"), 0);
  EXPECT_NE(printed_.find("type png"), std::string::npos) << printed_;
}

TEST_F(Documents, OneBadDocumentIsReportedAndTheRestGoOn) {
  write("a.rtf", "{\\rtf1 a}");
  write("b.rtf", "no rtf");
  write("c.txt", "plain");
  write("empty.txt", "");
  fs::create_directory(folder_ / "sub");
  write("sub/a.rtf", "{\\rtf1 other}");
  EXPECT_EQ(run("convert a.rtf b.rtf missing.rtf c.txt empty.txt sub/a.rtf --to rtfd --into out"), 1);
  EXPECT_NE(printed_.find("styledtext: b.rtf: "), std::string::npos) << printed_;
  EXPECT_NE(printed_.find("styledtext: missing.rtf: No such file or directory\n"), std::string::npos) << printed_;
  EXPECT_NE(printed_.find("styledtext: sub/a.rtf: another document was converted to out/a.rtfd\n"), std::string::npos);
  for (const char* name : {"a", "c", "empty"})
    EXPECT_TRUE(fs::exists(folder_ / "out" / (std::string(name) + ".rtfd/TXT.rtf")));
  EXPECT_FALSE(fs::exists(folder_ / "out/b.rtfd"));
  EXPECT_EQ(run("convert c.txt -o missing/c.rtf"), 1);
  EXPECT_EQ(printed_, "styledtext: c.txt: the folder of missing/c.rtf does not exist\n");
}

TEST_F(Documents, WrongUsageSaysWhatIsWrong) {
  write("a.txt", "");
  for (const char* line : {"a.txt", "a.txt -o b.unknown", "a.txt a.txt -o b.rtf", "a.txt --into out", "a.txt --to pict -o b",
                           "--to rtf --into out", "a.txt -o b.rtf --into out --to rtf"}) {
    EXPECT_EQ(run(std::string("convert ") + line), 2) << line;
    EXPECT_TRUE(printed_.starts_with("styledtext: ")) << line << ": " << printed_;
  }
  EXPECT_EQ(run("inspect missing.rtf"), 1);
  EXPECT_EQ(printed_, "styledtext: missing.rtf: No such file or directory\n");
}

TEST_F(Documents, RunsAreListedWithTheirAttributes) {
  write("a.rtf",
        "{\\rtf1{\\fonttbl{\\f0 Times;}}{\\colortbl;\\red255\\green0\\blue0;}\\f0\\fs36\\cf1\\qc\\li400 one\\par "
        "\\pard\\plain\\f0 two}");
  EXPECT_EQ(run("inspect a.rtf"), 0);
  EXPECT_EQ(printed_,
            "Length 7\n"
            "  DocumentType: NSRTF\n"
            "0+4 \"one\\n\"\n"
            "  NSColor: #FF0000\n"
            "  NSFont: fontName Times-Roman, pointSize 18\n"
            "  NSParagraphStyle: alignment 2, firstLineHeadIndent 20, headIndent 20\n"
            "4+3 \"two\"\n"
            "  NSFont: fontName Times-Roman, pointSize 12\n");
  EXPECT_EQ(run("inspect a.rtf --json"), 0);
  EXPECT_NE(printed_.find("{\"location\": 4, \"length\": 3, \"text\": \"two\", \"attributes\": {\"NSFont\": {\"fontName\": "
                          "\"Times-Roman\", \"pointSize\": 12}}}\n ]}\n"),
            std::string::npos)
      << printed_;
  write("a.txt", "x\"\\\x01");
  EXPECT_EQ(run("inspect a.txt --json"), 0);
  EXPECT_NE(printed_.find("\"text\": \"x\\\"\\\\\\u0001\""), std::string::npos) << printed_;
}

}  // namespace
}  // namespace command_test
