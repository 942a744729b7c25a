// NSPrintInfo: every setting is an entry of one dictionary, read and written by a table of keys.
#include "standin/appkit/print_info.hpp"

#include <cmath>
#include <utility>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"

using standin::foundation::constantString;

extern "C" {
NSString* const NSPrintSaveJob = constantString("NSPrintSaveJob");
NSString* const NSPrintSpoolJob = constantString("NSPrintSpoolJob");
NSString* const NSPrintJobDisposition = constantString("NSJobDisposition");
NSString* const NSPrintJobSavingURL = constantString("NSJobSavingURL");
NSString* const NSPrintPaperSize = constantString("NSPaperSize");
NSString* const NSPrintOrientation = constantString("NSOrientation");
NSString* const NSPrintLeftMargin = constantString("NSLeftMargin");
NSString* const NSPrintRightMargin = constantString("NSRightMargin");
NSString* const NSPrintTopMargin = constantString("NSTopMargin");
NSString* const NSPrintBottomMargin = constantString("NSBottomMargin");
NSString* const NSPrintHorizontallyCentered = constantString("NSHorizontallyCentered");
NSString* const NSPrintVerticallyCentered = constantString("NSVerticallyCentered");
NSString* const NSPrintHorizontalPagination = constantString("NSHorizontalPagination");
NSString* const NSPrintVerticalPagination = constantString("NSVerticalPagination");
NSString* const NSPrintScalingFactor = constantString("NSScalingFactor");
NSString* const NSPrintAllPages = constantString("NSPrintAllPages");
NSString* const NSPrintFirstPage = constantString("NSFirstPage");
NSString* const NSPrintLastPage = constantString("NSLastPage");
}

namespace standin::appkit {
namespace {

using foundation::find;
using layout::PageGeometry;
using layout::Pagination;

constexpr int64_t landscape = 1;
constexpr NSSize a4 = {595, 842};
constexpr double greatestPaper = 14'400;  // points: what PDF readers show

NSMutableDictionary* settings(NSObject* info) { return stateOf<PrintInfo>(info).settings; }

template <class Number, NSString* const& key>
void setNumber(NSObject* self, Number number) {
  if constexpr (std::is_same_v<Number, BOOL>) {
    foundation::set(settings(self), key, foundation::newNumber(number != NO));
  } else {
    foundation::set(settings(self), key, foundation::newNumber(number));
  }
}

template <class Number, NSString* const& key>
Number number(NSObject* self) {
  if constexpr (std::is_same_v<Number, CGFloat>) return foundation::doubleOf(find(settings(self), key));
  return static_cast<Number>(foundation::integerOf(find(settings(self), key)));
}

NSSize sizeOf(NSDictionary* settings) {
  NSObject* size = find(settings, NSPrintPaperSize);
  return NSObject::isKindOfClass(size, classOf<NSValue>()) ? NSValue::sizeValue(static_cast<NSValue*>(size)) : a4;
}

NSSize paperSize(NSObject* self) { return sizeOf(settings(self)); }

// The orientation follows from the size.
void setPaperSize(NSObject* self, NSSize size) {
  foundation::set(settings(self), NSPrintPaperSize, NSValue::valueWithSize(classOf<NSValue>(), size));
  setNumber<NSInteger, NSPrintOrientation>(self, size.width > size.height ? landscape : 0);
}

// Turning the paper turns its size.
void setOrientation(NSObject* self, NSInteger orientation) {
  NSSize size = paperSize(self);
  if ((orientation == landscape) != (size.width > size.height)) std::swap(size.width, size.height);
  setPaperSize(self, size);
  setNumber<NSInteger, NSPrintOrientation>(self, orientation);
}

NSString* jobDisposition(NSObject* self) { return static_cast<NSString*>(find(settings(self), NSPrintJobDisposition)); }

void setJobDisposition(NSObject* self, NSString* disposition) {
  foundation::set(settings(self), NSPrintJobDisposition, disposition);
}

NSMutableDictionary* dictionary(NSObject* self) { return settings(self); }

NSString* description(NSObject* self) {
  return foundation::newString("<NSPrintInfo " + foundation::describe(settings(self)) + ">").autorelease();
}

NSObject* copyWithZone(NSObject* self, void*) { return newPrintInfo(settings(self)).detach(); }
NSPrintInfo* sharedPrintInfo(Class);

const ClassDefinition printInfos =
    defineClass<PrintInfo>("NSPrintInfo", "NSObject")
        .classMethod<sharedPrintInfo>("sharedPrintInfo")
        .method<dictionary>("dictionary")
        .method<description>("description")
        .method<copyWithZone>("copyWithZone:")
        .method<paperSize>("paperSize")
        .method<setPaperSize>("setPaperSize:")
        .method<number<NSInteger, NSPrintOrientation>>("orientation")
        .method<setOrientation>("setOrientation:")
        .method<jobDisposition>("jobDisposition")
        .method<setJobDisposition>("setJobDisposition:")
        .method<number<CGFloat, NSPrintLeftMargin>>("leftMargin")
        .method<setNumber<CGFloat, NSPrintLeftMargin>>("setLeftMargin:")
        .method<number<CGFloat, NSPrintRightMargin>>("rightMargin")
        .method<setNumber<CGFloat, NSPrintRightMargin>>("setRightMargin:")
        .method<number<CGFloat, NSPrintTopMargin>>("topMargin")
        .method<setNumber<CGFloat, NSPrintTopMargin>>("setTopMargin:")
        .method<number<CGFloat, NSPrintBottomMargin>>("bottomMargin")
        .method<setNumber<CGFloat, NSPrintBottomMargin>>("setBottomMargin:")
        .method<number<CGFloat, NSPrintScalingFactor>>("scalingFactor")
        .method<setNumber<CGFloat, NSPrintScalingFactor>>("setScalingFactor:")
        .method<number<NSUInteger, NSPrintHorizontalPagination>>("horizontalPagination")
        .method<setNumber<NSUInteger, NSPrintHorizontalPagination>>("setHorizontalPagination:")
        .method<number<NSUInteger, NSPrintVerticalPagination>>("verticalPagination")
        .method<setNumber<NSUInteger, NSPrintVerticalPagination>>("setVerticalPagination:")
        .method<number<BOOL, NSPrintHorizontallyCentered>>("isHorizontallyCentered")
        .method<setNumber<BOOL, NSPrintHorizontallyCentered>>("setHorizontallyCentered:")
        .method<number<BOOL, NSPrintVerticallyCentered>>("isVerticallyCentered")
        .method<setNumber<BOOL, NSPrintVerticallyCentered>>("setVerticallyCentered:");

NSPrintInfo* sharedPrintInfo(Class) {
  static NSPrintInfo* const shared = static_cast<NSPrintInfo*>(makeImmortal(newPrintInfo(nullptr).detach()));
  return shared;
}

Pagination paginationOf(NSDictionary* settings, NSString* key) {
  const int64_t mode = foundation::integerOf(find(settings, key));
  return mode == 1 ? Pagination::fit : mode == 2 ? Pagination::clip : Pagination::automatic;
}

// Entries that are no numbers keep what the geometry has.
void readNumber(NSDictionary* settings, NSString* key, double& number) {
  if (NSObject* entry = find(settings, key); foundation::isNumber(entry)) number = foundation::doubleOf(entry);
}

void readPages(NSDictionary* settings, PageGeometry& geometry) {
  NSObject* all = find(settings, NSPrintAllPages);
  if (all == nullptr || foundation::boolOf(all)) return;
  const auto page = [&](NSString* key, int otherwise) {
    const int64_t number = foundation::integerOf(find(settings, key));
    return number > 0 && number < INT_MAX ? static_cast<int>(number) : otherwise;
  };
  geometry.firstPage = page(NSPrintFirstPage, 1);
  geometry.lastPage = page(NSPrintLastPage, INT_MAX);
}

bool isSensible(const PageGeometry& page) {
  const double width = page.paperWidth - page.leftMargin - page.rightMargin;
  const double height = page.paperHeight - page.topMargin - page.bottomMargin;
  for (const double margin : {page.leftMargin, page.rightMargin, page.topMargin, page.bottomMargin}) {
    if (!(margin >= 0)) return false;
  }
  return width >= 1 && height >= 1 && page.paperWidth <= greatestPaper && page.paperHeight <= greatestPaper &&
         page.scale >= 0.01 && page.scale <= 100;
}

}  // namespace

PrintInfo::PrintInfo() : settings(foundation::newMutableDictionary()) {
  NSObject* self = platformObject<NSObject>(*this);
  foundation::set(settings, NSPrintPaperSize, NSValue::valueWithSize(classOf<NSValue>(), a4));
  setNumber<NSInteger, NSPrintOrientation>(self, 0);
  setNumber<CGFloat, NSPrintLeftMargin>(self, 72);
  setNumber<CGFloat, NSPrintRightMargin>(self, 72);
  setNumber<CGFloat, NSPrintTopMargin>(self, 90);
  setNumber<CGFloat, NSPrintBottomMargin>(self, 90);
  setNumber<CGFloat, NSPrintScalingFactor>(self, 1);
  setNumber<NSUInteger, NSPrintHorizontalPagination>(self, static_cast<NSUInteger>(Pagination::clip));
  setNumber<NSUInteger, NSPrintVerticalPagination>(self, static_cast<NSUInteger>(Pagination::automatic));
  setNumber<BOOL, NSPrintHorizontallyCentered>(self, YES);
  setNumber<BOOL, NSPrintVerticallyCentered>(self, YES);
  setNumber<BOOL, NSPrintAllPages>(self, YES);
  setJobDisposition(self, NSPrintSpoolJob);
}

Owned<NSPrintInfo> newPrintInfo(NSDictionary* settings) {
  Owned<NSPrintInfo> info = create<PrintInfo, NSPrintInfo>(printInfos);
  foundation::addEntries(settingsOf(info), settings);
  return info;
}

NSMutableDictionary* settingsOf(NSPrintInfo* info) { return settings(info); }

std::optional<PageGeometry> geometryOf(NSDictionary* settings) {
  PageGeometry page;
  const NSSize paper = sizeOf(settings);
  page.paperWidth = paper.width;
  page.paperHeight = paper.height;
  // An orientation that came without its size turns the page.
  const bool isLandscape = foundation::integerOf(find(settings, NSPrintOrientation)) == landscape;
  if (isLandscape && page.paperWidth < page.paperHeight) std::swap(page.paperWidth, page.paperHeight);
  readNumber(settings, NSPrintLeftMargin, page.leftMargin);
  readNumber(settings, NSPrintRightMargin, page.rightMargin);
  readNumber(settings, NSPrintTopMargin, page.topMargin);
  readNumber(settings, NSPrintBottomMargin, page.bottomMargin);
  readNumber(settings, NSPrintScalingFactor, page.scale);
  page.horizontal = paginationOf(settings, NSPrintHorizontalPagination);
  page.vertical = paginationOf(settings, NSPrintVerticalPagination);
  page.centersHorizontally = foundation::boolOf(find(settings, NSPrintHorizontallyCentered));
  page.centersVertically = foundation::boolOf(find(settings, NSPrintVerticallyCentered));
  readPages(settings, page);
  return isSensible(page) ? std::optional(page) : std::nullopt;
}

}  // namespace standin::appkit
