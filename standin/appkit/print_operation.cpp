// NSPrintOperation: a text view printed into a PDF file.
#include <string>

#include "standin/appkit/document_attributes.hpp"
#include "standin/appkit/document_text.hpp"
#include "standin/appkit/print_info.hpp"
#include "standin/appkit/text_view.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/url.hpp"

namespace standin::appkit {
namespace {

struct PrintOperation : Object {
  PrintOperation(Owned<NSView> printed, Owned<NSPrintInfo> settings) : view(std::move(printed)), info(std::move(settings)) {}

  Owned<NSView> view;
  Owned<NSPrintInfo> info;
};

NSPrintOperation* printOperationWithView(Class, NSView* view, NSPrintInfo* info);

NSView* view(PrintOperation& self) { return self.view; }
NSPrintInfo* printInfo(PrintOperation& self) { return self.info; }

// There is nobody to show panels to.
void ignorePanel(PrintOperation&, BOOL) {}

// Where the settings have the job saved; empty for jobs that are to be printed, which nothing here can.
std::string savedPath(NSDictionary* settings) {
  NSObject* disposition = foundation::find(settings, NSPrintJobDisposition);
  NSObject* url = foundation::find(settings, NSPrintJobSavingURL);
  if (!NSObject::isEqual(disposition, NSPrintSaveJob) || !NSObject::isKindOfClass(url, classOf<NSURL>())) return {};
  return foundation::filePath(static_cast<NSURL*>(url)).value_or(std::string());
}

BOOL printTextView(NSView* view, NSDictionary* settings, const std::string& path) {
  std::optional<layout::PageGeometry> geometry = geometryOf(settings);
  if (!geometry) return NO;
  const TextView& state = textViewState(view);
  geometry->viewWidth = state.frame.size.width;
  geometry->linePadding = stateOf<TextContainer>(state.container).linePadding;
  const text::StyledText& styled = styledTextOf(state.storage);
  ExportedRuns runs(styled, {0, styled.length()});
  runs.takeFiles();
  // Entries of document attributes among the settings are the document's title and what else it says of itself.
  const bool isWritten =
      layout::writePDF(runs.runs(), informationOf(settings), *geometry, path, [&](int) { NSView::endPage(view); });
  return isWritten ? YES : NO;
}

BOOL runOperation(PrintOperation& self) {
  NSDictionary* settings = settingsOf(self.info);
  const std::string path = savedPath(settings);
  if (path.empty() || !isTextView(self.view)) return NO;
  return printTextView(self.view, settings, path);
}

const ClassDefinition operations = defineClass<PrintOperation>("NSPrintOperation", "NSObject")
                                       .classMethod<printOperationWithView>("printOperationWithView:printInfo:")
                                       .method<view>("view")
                                       .method<printInfo>("printInfo")
                                       .method<ignorePanel>("setShowsPrintPanel:")
                                       .method<ignorePanel>("setShowsProgressPanel:")
                                       .method<runOperation>("runOperation");

// Later changes of the settings do not change the operation's.
NSPrintOperation* printOperationWithView(Class, NSView* view, NSPrintInfo* info) {
  if (view == nullptr || info == nullptr) return nullptr;
  return create<PrintOperation, NSPrintOperation>(operations, retain(view), newPrintInfo(settingsOf(info))).autorelease();
}

}  // namespace
}  // namespace standin::appkit
