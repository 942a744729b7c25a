// PDF generation: the pages, what options change, what it refuses, and that its temporary file is gone whatever happens.
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>

#include "host/runtime/memory_block.hpp"
#include "platform/corefoundation.h"
#include "tests/library/member_calls.hpp"

namespace {

namespace fs = std::filesystem;
using calls::Value;

constexpr const char* declaration = "GeneratePDF(PrintOptions as variant = nil) as MemoryBlock";

// Puts a method of the test's in the place of a class's own.
class Replaced {
 public:
  template <class Function>
  Replaced(Class cls, SEL selector, Function function)
      : class_(cls),
        selector_(selector),
        before_(class_replaceMethod(cls, selector, reinterpret_cast<IMP>(function), "@@:")) {}
  Replaced(const Replaced&) = delete;
  ~Replaced() { class_replaceMethod(class_, selector_, before_, "@@:"); }

 private:
  Class class_;
  SEL selector_;
  IMP before_;
};

class GeneratePDF : public calls::MemberTest {
 protected:
  void SetUp() override {
    calls::MemberTest::SetUp();
    std::string pattern = (fs::temp_directory_path() / "pdfXXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    setenv("TMPDIR", folder_.c_str(), 1);
  }
  void TearDown() override {
    unsetenv("TMPDIR");
    fs::remove_all(folder_);
    calls::MemberTest::TearDown();
  }

  // The PDF, "" for nil. What was raised and logged is kept; no file is left.
  std::string generate(const Value& text, const Value& options = {}) {
    const AutoreleasePool pool;
    std::string pdf;
    testing::internal::CaptureStderr();
    raised_ = calls::raisedBy([&] {
      const Value block = calls::call(text, declaration, {options});
      if (block.isNil()) return;
      const auto bytes = host::memoryOf(block.asObject());
      pdf.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    });
    log_ = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(!fs::exists(folder_) || fs::is_empty(folder_)) << log_;
    return pdf;
  }

  // What a program prints for the PDF; a test is skipped where it is not installed.
  std::string shownBy(const std::string& command, const std::string& pdf, const char* output = " -") {
    const fs::path file = folder_ / "x.pdf";
    std::ofstream(file) << pdf;
    FILE* pipe = popen((command + " '" + file.string() + "'" + output + " 2>&1").c_str(), "r");
    std::string shown;
    char buffer[4096];
    while (const size_t count = fread(buffer, 1, sizeof buffer, pipe)) shown.append(buffer, count);
    pclose(pipe);
    fs::remove(file);
    return shown;
  }
  static bool has(const char* program) {
    return std::system((std::string("command -v ") + program + " >/dev/null 2>&1").c_str()) == 0;
  }

  static Value printInfo() {
    Value made = calls::make("NSPrintInfoZKT");
    calls::call(made, "Constructor");
    for (const char* centring : {"horizontallyCentered", "verticallyCentered"})
      calls::set(made, centring, Value::boolean(false));
    return made;
  }

  fs::path folder_;
  std::string raised_, log_;
};

// The first word's left and top edge and the page's size: `<page width="595.0" …><word xMin="77.0" yMin="72.1" …`.
double numberAfter(const std::string& text, const std::string& name) {
  const size_t at = text.find(name + "=\"");
  return at == std::string::npos ? -1 : std::atof(text.c_str() + at + name.size() + 2);
}

TEST_F(GeneratePDF, PutsTheTextOnA4WithinItsMargins) {
  const std::string pdf = generate(calls::text("Wide and early"));
  EXPECT_EQ(raised_, "");
  ASSERT_TRUE(pdf.starts_with("%PDF-1.")) << pdf.substr(0, 20);
  size_t at = 0;
  for (const char* line :
       {"tempFileTemplate: ", "tempFileName: ", "path: file://", "printInfo: <NSPrintInfo ", "printOp: <NSPrintOperation"}) {
    at = log_.find(line, at);
    ASSERT_NE(at, std::string::npos) << line << log_;
  }
  EXPECT_EQ(log_.find("remove item error"), std::string::npos) << log_;
  if (!has("pdftotext")) GTEST_SKIP() << "pdftotext is not installed";
  const std::string boxes = shownBy("pdftotext -bbox", pdf);
  EXPECT_NEAR(numberAfter(boxes, "page width"), 595, 0.5) << boxes;
  EXPECT_NEAR(numberAfter(boxes, "height"), 842, 0.5);
  EXPECT_NEAR(numberAfter(boxes, "xMin"), 72 + 5, 0.8) << boxes;
  EXPECT_NEAR(numberAfter(boxes, "yMin"), 72, 2.5) << boxes;
  EXPECT_NE(boxes.find(">Wide<"), std::string::npos);
}

TEST_F(GeneratePDF, TakesMarginsPaperAndTitleFromTheOptions) {
  const Value options = printInfo();
  calls::set(options, "paperSize", calls::structure("NSSizeZKT", 400.0, 300.0));
  calls::set(options, "leftMargin", Value::number(20));
  calls::set(options, "topMargin", Value::number(33));
  calls::set(options, "rightMargin", Value::number(10));
  calls::call(options, "setEntry(key as String, text as String)",
              {Value::string("NSTitleDocumentAttribute"), Value::string("The Title")});
  const std::string pdf = generate(calls::text("x"), options);
  EXPECT_EQ(raised_, "");
  if (!has("pdftotext")) GTEST_SKIP() << "pdftotext is not installed";
  const std::string boxes = shownBy("pdftotext -bbox", pdf);
  EXPECT_NEAR(numberAfter(boxes, "page width"), 400, 0.5) << boxes;
  EXPECT_NEAR(numberAfter(boxes, "xMin"), 25, 0.8);
  EXPECT_NEAR(numberAfter(boxes, "yMin"), 33, 2.5);
  EXPECT_NE(boxes.find("<title>The Title</title>"), std::string::npos) << boxes;
}

TEST_F(GeneratePDF, CannotBeSentElsewhereByTheOptions) {
  const fs::path elsewhere = fs::temp_directory_path() / "elsewhere.pdf";
  const Value options = printInfo();
  const auto info = static_cast<NSPrintInfo*>(calls::handleOf(options));
  {
    const AutoreleasePool pool;
    NSString* const path = __CFStringMakeConstantString("/tmp/elsewhere.pdf");
    NSMutableDictionary::setObject(NSPrintInfo::dictionary(info), NSURL::fileURLWithPath(classOf<NSURL>(), path),
                                   NSPrintJobSavingURL);
  }
  calls::call(options, "setEntry(key as String, text as String)",
              {Value::string("NSJobDisposition"), Value::string("NSPrintSpoolJob")});
  EXPECT_TRUE(generate(calls::text("x"), options).starts_with("%PDF"));
  EXPECT_FALSE(fs::exists(elsewhere));
}

TEST_F(GeneratePDF, RefusesWhatIsNoPrintInfo) {
  for (const Value& options : {Value::string("text"), Value::integer(1), calls::range(0, 1), calls::text("text")}) {
    EXPECT_EQ(generate(calls::text("page"), options), "");
    EXPECT_EQ(raised_, "IllegalCastException: PrintOptions parameter is not from NSPrintInfoZKT class.");
    EXPECT_NE(log_.find("path: file://"), std::string::npos) << log_;
  }
  EXPECT_EQ(generate(calls::make("NSAttributedStringZKT")), "");
  EXPECT_EQ(raised_, "NilObjectException: Attributed String not initialized.");
  EXPECT_EQ(log_, "");
}

TEST_F(GeneratePDF, AnswersNilWhereNoFileCanBeMade) {
  const std::string missing = (folder_ / "missing").string();
  setenv("TMPDIR", missing.c_str(), 1);
  EXPECT_EQ(generate(calls::text("x")), "");
  EXPECT_EQ(raised_, "");
  EXPECT_NE(log_.find("path: (null)"), std::string::npos) << log_;
  EXPECT_EQ(log_.find("tempFileName"), std::string::npos) << log_;
  if (geteuid() == 0) return;  // may write anywhere
  setenv("TMPDIR", folder_.c_str(), 1);
  chmod(folder_.c_str(), 0500);
  EXPECT_EQ(generate(calls::text("x")), "");
  chmod(folder_.c_str(), 0700);
}

NSObject* answerNil(NSObject*, SEL) { return nullptr; }
NSObject* refuseView(Class, SEL, NSView*, NSPrintInfo*) { return nullptr; }
BOOL failToPrint(NSObject*, SEL) { return NO; }
NSObject* raiseException(NSObject*, SEL) {
  NSException::raise(NSException::exceptionWithName(classOf<NSException>(), NSGenericException,
                                                    __CFStringMakeConstantString("no ink"), nullptr));
  return nullptr;
}

TEST_F(GeneratePDF, ReportsWhatThePlatformLacks) {
  const Value text = calls::text("x");
  constexpr const char* noMemory = "OutOfMemoryException: Failed to allocate text storage.";
  {
    const Replaced storage(classOf<NSLayoutManager>(), NSLayoutManager::textStorage.selector(), &answerNil);
    EXPECT_EQ(generate(text), "");
    EXPECT_EQ(raised_, noMemory);
  }
  {
    const Replaced operation(object_getClass(classOf<NSPrintOperation>()),
                             NSPrintOperation::printOperationWithView.selector(), &refuseView);
    EXPECT_EQ(generate(text), "");
    EXPECT_EQ(raised_, noMemory);
    EXPECT_NE(log_.find("printOp: (null)"), std::string::npos) << log_;
  }
  {
    const Replaced printing(classOf<NSPrintOperation>(), NSPrintOperation::runOperation.selector(), &failToPrint);
    EXPECT_EQ(generate(text), "");
    EXPECT_EQ(raised_, "");
  }
  {
    const Replaced printing(classOf<NSPrintOperation>(), NSPrintOperation::runOperation.selector(), &raiseException);
    EXPECT_EQ(generate(text), "");
    EXPECT_EQ(raised_, "NSExceptionZKT: no ink");
  }
  EXPECT_TRUE(generate(text).starts_with("%PDF"));
}

TEST_F(GeneratePDF, FailsForPaperThatHoldsNoText) {
  for (const double margin : {600.0, -1.0, std::numeric_limits<double>::infinity(), std::nan("")}) {
    const Value options = printInfo();
    calls::set(options, "leftMargin", Value::number(margin));
    EXPECT_EQ(generate(calls::text("x"), options), "") << margin;
    EXPECT_EQ(raised_, "");
  }
}

TEST_F(GeneratePDF, GivesBackTheTextOfEveryKindOfDocument) {
  if (!has("pdftotext") || !has("qpdf")) GTEST_SKIP() << "pdftotext or qpdf is not installed";
  std::string pages;
  for (int paragraph = 0; paragraph < 200; ++paragraph) pages += "Paragraph " + std::to_string(paragraph) + " of many.\n";
  for (const std::string& text :
       {std::string(), std::string("x"), std::string(10'000, 'w'), pages, std::string("Grüße 山田 ∑\nend")}) {
    const Value page = text.empty() ? calls::make("NSMutableAttributedStringZKT") : calls::text(text);
    if (text.empty()) calls::call(page, "initWithString(text as string) as boolean", {Value::string("")});
    const std::string pdf = generate(page);
    EXPECT_NE(shownBy("qpdf --check", pdf, "").find("No syntax or stream encoding errors"), std::string::npos)
        << shownBy("qpdf --check", pdf, "");
    std::string shown = shownBy("pdftotext", pdf), wanted = text;
    std::erase_if(shown, [](char c) { return c == '\n' || c == '\f' || c == ' '; });
    std::erase_if(wanted, [](char c) { return c == '\n' || c == ' '; });
    EXPECT_EQ(shown, wanted);
  }
}

}  // namespace
