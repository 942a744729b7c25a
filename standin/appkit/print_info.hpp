// Print settings: the dictionary behind every NSPrintInfo, and the page that its entries describe.
#pragma once

#include <optional>

#include "platform/appkit.h"
#include "standin/layout/pdf.hpp"
#include "standin/runtime/class_definition.hpp"

extern "C" {
extern NSString* const NSPrintSpoolJob;
extern NSString* const NSPrintJobDisposition;
extern NSString* const NSPrintPaperSize;
extern NSString* const NSPrintOrientation;
extern NSString* const NSPrintLeftMargin;
extern NSString* const NSPrintRightMargin;
extern NSString* const NSPrintTopMargin;
extern NSString* const NSPrintBottomMargin;
extern NSString* const NSPrintHorizontallyCentered;
extern NSString* const NSPrintVerticallyCentered;
extern NSString* const NSPrintHorizontalPagination;
extern NSString* const NSPrintVerticalPagination;
extern NSString* const NSPrintScalingFactor;
extern NSString* const NSPrintAllPages;
extern NSString* const NSPrintFirstPage;
extern NSString* const NSPrintLastPage;
}

namespace standin::appkit {

struct PrintInfo : Object {
  PrintInfo();

  Owned<NSMutableDictionary> settings;  // what the setters set and `dictionary` hands out
};

Owned<NSPrintInfo> newPrintInfo(NSDictionary* settings);
NSMutableDictionary* settingsOf(NSPrintInfo* info);

// The page and its margins; `viewWidth` and `linePadding` are the view's to fill. Nothing when no text fits between the
// margins, or a number is none that paper could have.
std::optional<layout::PageGeometry> geometryOf(NSDictionary* settings);

}  // namespace standin::appkit
