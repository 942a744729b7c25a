// PDF generation: what it refuses, and that its temporary file is gone whatever happens.
#include <filesystem>

#include "tests/library/member_calls.hpp"

namespace {

using calls::Value;

class GeneratePDF : public calls::MemberTest {};

constexpr const char* declaration = "GeneratePDF(PrintOptions as variant = nil) as MemoryBlock";

int temporaryFiles() {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(NSString::UTF8String(NSTemporaryDirectory()))) {
    if (entry.path().filename().string().starts_with("ZKT.tempfile.")) ++count;
  }
  return count;
}

TEST_F(GeneratePDF, NeedsAString) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(calls::raisedBy([] { calls::call(calls::make("NSAttributedStringZKT"), declaration, {Value()}); }),
            "NilObjectException: Attributed String not initialized.");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// A platform that lays nothing out yet refuses the view, as this one does then.
NSObject* refuseFrame(NSObject* view, SEL, NSRect) {
  const Owned<NSObject> refused = adopt(view);
  NSException::raise(NSException::exceptionWithName(classOf<NSException>(), NSGenericException, nullptr, nullptr));
  return nullptr;
}

TEST_F(GeneratePDF, LeavesNoFileBehind) {
  const AutoreleasePool pool;
  class_addMethod(classOf<NSTextView>(), NSTextView::initWithFrame.selector(), reinterpret_cast<IMP>(&refuseFrame), "@@:{}");
  const int before = temporaryFiles();
  for (const Value& options : {Value(), Value::string("text"), Value::integer(1), calls::range(0, 1)}) {
    testing::internal::CaptureStderr();
    const std::string raised = calls::raisedBy([&] { calls::call(calls::text("page"), declaration, {options}); });
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(options.isNil() || !raised.empty());
    for (const char* line : {"tempFileTemplate: ", "tempFileName: ", "path: file://"}) {
      EXPECT_NE(log.find(line), std::string::npos) << line << log;
    }
    EXPECT_EQ(log.find("remove item error"), std::string::npos) << log;
    EXPECT_EQ(temporaryFiles(), before);
  }
}

}  // namespace
