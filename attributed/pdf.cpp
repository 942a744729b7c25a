// An attributed string laid out on pages: text view, print operation, temporary file, bytes.
#include "attributed/pdf.hpp"

#include <stdlib.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "attributed/host_classes.hpp"
#include "bridge/memory.hpp"
#include "classes/filling.hpp"
#include "plugin/exceptions.hpp"

namespace attributed {
namespace {

using namespace plugin;

// The text area of an A4 page, in points, with a margin of 72 on each side.
constexpr NSRect viewFrame = {{0.0, 0.0}, {451.0, 698.0}};
constexpr CGFloat margin = 72.0;
constexpr NSUInteger automaticPagination = 0;
constexpr const char fileTemplate[] = "ZKT.tempfile.XXXXXXXX";
constexpr const char fileSuffix[] = ".pdf";

NSString* constantString(const char* text) { return __CFStringMakeConstantString(text); }

template <class... Values>
void log(const char* format, Values... values) {
  NSLog(constantString(format), values...);
}

// Runs the clean-up at its end, unless disarmed.
template <class CleanUp>
class CleanUpUnlessDisarmed {
 public:
  explicit CleanUpUnlessDisarmed(CleanUp cleanUp) : cleanUp_(std::move(cleanUp)) {}
  CleanUpUnlessDisarmed(const CleanUpUnlessDisarmed&) = delete;
  CleanUpUnlessDisarmed& operator=(const CleanUpUnlessDisarmed&) = delete;
  ~CleanUpUnlessDisarmed() {
    if (armed_) cleanUp_();
  }
  void disarm() { armed_ = false; }

 private:
  CleanUp cleanUp_;
  bool armed_ = true;
};

// The file that one call prints into. It exists from its creation to the end of this value.
class TemporaryFile {
 public:
  TemporaryFile() : url_(create(templatePath())) {
    CleanUpUnlessDisarmed removeUnlogged([&] { unlinkFile(); });
    log("path: %@\n", url_);
    removeUnlogged.disarm();
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  // Must not throw: what the platform does not remove, or memory is too short for, is removed without either.
  ~TemporaryFile() {
    if (url_ == nullptr) return;
    try {
      if (catchException([&] { remove(); }) != nullptr) unlinkFile();
    } catch (...) {
      unlinkFile();
    }
  }

  // Nil when the file could not be made.
  NSURL* url() const { return url_; }

 private:
  static NSString* templatePath() {
    NSString* path = NSString::stringByAppendingPathComponent(NSTemporaryDirectory(), constantString(fileTemplate));
    path = NSString::stringByAppendingString(path, constantString(fileSuffix));
    log("tempFileTemplate: %@\n", path);
    return path;
  }

  NSURL* create(NSString* templatePath) {
    const char* representation = NSString::fileSystemRepresentation(templatePath);
    const std::size_t length = representation == nullptr ? 0 : std::strlen(representation);
    if (length != 0) path_.reset(new (std::nothrow) char[length + 1]());
    if (path_ == nullptr) return nullptr;
    std::memcpy(path_.get(), representation, length);
    const int descriptor = mkstemps(path_.get(), static_cast<int>(sizeof fileSuffix - 1));
    if (descriptor == -1) return nullptr;
    close(descriptor);
    CleanUpUnlessDisarmed removeUnnamed([&] { unlinkFile(); });
    NSString* name = NSFileManager::stringWithFileSystemRepresentation(
        NSFileManager::defaultManager(classOf<NSFileManager>()), path_.get(), std::strlen(path_.get()));
    log("tempFileName: %@\n", name);
    NSURL* url = NSURL::fileURLWithPath(classOf<NSURL>(), name);
    if (url != nullptr) removeUnnamed.disarm();
    return url;
  }

  void unlinkFile() const {
    if (path_ != nullptr) unlink(path_.get());
  }

  void remove() const {
    NSError* error = nullptr;
    NSFileManager::removeItemAtURL(NSFileManager::defaultManager(classOf<NSFileManager>()), url_, &error);
    if (error != nullptr) log("remove item error: %@\n", error);
  }

  std::unique_ptr<char[]> path_;
  NSURL* url_;
};

// What a call comes to: the PDF, nil when it could not be printed, or the host exception to raise.
struct Outcome {
  NSData* pdf = nullptr;
  const char* exceptionClass = nullptr;
  const char* message = nullptr;
};
constexpr Outcome noMemory{nullptr, "OutOfMemoryException", "Failed to allocate text storage."};
constexpr Outcome wrongOptions{nullptr, "IllegalCastException", "PrintOptions parameter is not from NSPrintInfoZKT class."};

NSTextView* makeView() {
  NSTextView* view = adopt(NSTextView::initWithFrame(alloc<NSTextView>(), viewFrame)).autorelease();
  NSTextView::setRichText(view, YES);
  NSTextView::setImportsGraphics(view, YES);
  NSTextView::setAutomaticQuoteSubstitutionEnabled(view, NO);
  NSTextView::setAutomaticLinkDetectionEnabled(view, NO);
  NSTextView::setAutomaticDataDetectionEnabled(view, NO);
  NSTextView::setAutomaticDashSubstitutionEnabled(view, NO);
  NSTextView::setAutomaticTextReplacementEnabled(view, NO);
  NSTextView::setAutomaticSpellingCorrectionEnabled(view, NO);
  return view;
}

NSTextStorage* storageOf(NSTextView* view) {
  return NSLayoutManager::textStorage(NSTextContainer::layoutManager(NSTextView::textContainer(view)));
}

NSPrintInfo* makePrintInfo() {
  NSPrintInfo* printInfo = classes::makePlatformObject<NSPrintInfo>().autorelease();
  NSPrintInfo::setHorizontalPagination(printInfo, automaticPagination);
  NSPrintInfo::setVerticalPagination(printInfo, automaticPagination);
  NSPrintInfo::setVerticallyCentered(printInfo, NO);
  NSPrintInfo::setHorizontallyCentered(printInfo, NO);
  NSPrintInfo::setLeftMargin(printInfo, margin);
  NSPrintInfo::setTopMargin(printInfo, margin);
  NSPrintInfo::setBottomMargin(printInfo, margin);
  NSPrintInfo::setRightMargin(printInfo, margin);
  return printInfo;
}

// Entries of the options replace what is there. False for options of another class.
bool applyOptions(NSPrintInfo* printInfo, REALobject options) {
  if (options == nullptr) return true;
  if (!isInstanceOf(options, "NSPrintInfoZKT")) return false;
  NSMutableDictionary* entries = NSPrintInfo::dictionary(platformObject<NSPrintInfo>(options));
  if (entries != nullptr) NSMutableDictionary::addEntries(NSPrintInfo::dictionary(printInfo), entries);
  return true;
}

// Comes after the options, so that they cannot send the output elsewhere.
void directTo(NSURL* url, NSPrintInfo* printInfo) {
  NSPrintInfo::setJobDisposition(printInfo, NSPrintSaveJob);
  NSMutableDictionary::setObject(NSPrintInfo::dictionary(printInfo), url, NSPrintJobSavingURL);
  log("printInfo: %@\n", printInfo);
}

BOOL run(NSPrintOperation* operation) {
  NSPrintOperation::setShowsPrintPanel(operation, NO);
  NSPrintOperation::setShowsProgressPanel(operation, NO);
  return NSPrintOperation::runOperation(operation);
}

Outcome print(NSAttributedString* text, REALobject options, NSURL* url) {
  NSTextView* view = makeView();
  NSTextStorage* storage = storageOf(view);
  if (storage == nullptr) return noMemory;
  NSMutableAttributedString::setAttributedString(storage, text);
  NSPrintInfo* printInfo = makePrintInfo();
  if (!applyOptions(printInfo, options)) return wrongOptions;
  directTo(url, printInfo);
  NSPrintOperation* operation = NSPrintOperation::printOperationWithView(classOf<NSPrintOperation>(), view, printInfo);
  log("printOp: %@\n", operation);
  if (operation == nullptr) return noMemory;
  if (run(operation) == NO) return {};
  return {NSData::dataWithContentsOfURL(classOf<NSData>(), url)};
}

// The temporary file is gone when this returns, or an exception passes.
Outcome printThroughFile(NSAttributedString* text, REALobject options) {
  const TemporaryFile file;
  return file.url() == nullptr ? Outcome{} : print(text, options, file.url());
}

}  // namespace

REALmemoryBlock GeneratePDF(REALobject self, REALobject printOptions) {
  const auto text = platformObject<NSAttributedString>(self);
  if (text == nullptr) {
    RaiseException("NilObjectException", "Attributed String not initialized.");
    return nullptr;
  }
  return guarded([&]() -> REALmemoryBlock {
    const Outcome outcome = printThroughFile(text, printOptions);
    if (outcome.exceptionClass != nullptr) RaiseException(outcome.exceptionClass, outcome.message);
    return bridge::NSDataRB(outcome.pdf);
  });
}

}  // namespace attributed
