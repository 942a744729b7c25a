// The wrapper classes that offer nothing but the object they wrap: its Handle and description. Other wrapper classes have a
// file of their own.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"

namespace siblings {
namespace {

// In alphabetical order, but for superclasses, which come first.
constexpr struct {
  const char* name;
  const char* superclass = nullptr;
} classes[] = {
    {"DRBurnZKT"},
    {"NSAffineTransformZKT"},
    {"NSAnimationZKT"},
    {"NSAnimationContextZKT"},
    {"NSAppleEventDescriptorZKT"},
    {"NSAppleScriptZKT"},
    {"NSResponderZKT"},
    {"NSApplicationZKT", "NSResponderZKT"},
    {"NSAssertionHandlerZKT"},
    {"NSBezierPathZKT"},
    {"NSViewZKT", "NSResponderZKT"},
    {"NSBoxZKT", "NSViewZKT"},
    {"NSBundleZKT"},
    {"NSCalendarZKT"},
    {"NSCharacterSetZKT"},
    {"NSClipViewZKT", "NSViewZKT"},
    {"NSCoderZKT"},
    {"NSColorListZKT"},
    {"NSColorSpaceZKT"},
    {"NSTextFieldZKT", "NSViewZKT"},
    {"NSComboBoxZKT", "NSTextFieldZKT"},
    {"NSPredicateZKT"},
    {"NSComparisonPredicateZKT", "NSPredicateZKT"},
    {"NSCompoundPredicateZKT", "NSPredicateZKT"},
    {"NSCursorZKT"},
    {"NSDateComponentsZKT"},
    {"NSEnumeratorZKT"},
    {"NSDirectoryEnumeratorZKT", "NSEnumeratorZKT"},
    {"NSNotificationCenterZKT"},
    {"NSDistributedNotificationCenterZKT", "NSNotificationCenterZKT"},
    {"NSDockTileZKT"},
    {"NSDraggingImageComponentZKT"},
    {"NSEventZKT"},
    {"NSExpressionZKT"},
    {"NSFileHandleZKT"},
    {"NSFileManagerZKT"},
    {"NSFontDescriptorZKT"},
    {"NSWindowZKT", "NSResponderZKT"},
    {"NSFontPanelZKT", "NSWindowZKT"},
    {"NSHTTPCookieZKT"},
    {"NSHTTPCookieStorageZKT"},
    {"NSImageRepZKT"},
    {"NSImageViewZKT", "NSViewZKT"},
    {"NSIndexSetZKT"},
    {"NSLayoutManagerZKT"},
    {"NSLocaleZKT"},
    {"NSMenuZKT"},
    {"NSMenuItemZKT"},
    {"NSMetadataItemZKT"},
    {"NSMetadataQueryZKT"},
    {"NSMetadataQueryResultGroupZKT"},
    {"NSNotificationZKT"},
    {"NSOperationZKT"},
    {"NSPasteboardZKT"},
    {"NSPasteboardItemZKT"},
    {"NSPathCellZKT", "NSCellZKT"},
    {"NSTextFieldCellZKT", "NSCellZKT"},
    {"NSPathComponentCellZKT", "NSTextFieldCellZKT"},
    {"NSPathControlZKT", "NSViewZKT"},
    {"NSPipeZKT"},
    {"NSPopUpButtonZKT", "NSViewZKT"},
    {"NSRunLoopZKT"},
    {"NSRunningApplicationZKT"},
    {"NSScreenZKT"},
    {"NSScrollerZKT", "NSViewZKT"},
    {"NSSearchFieldZKT", "NSTextFieldZKT"},
    {"NSSearchFieldCellZKT", "NSTextFieldCellZKT"},
    {"NSSecureTextFieldZKT", "NSTextFieldZKT"},
    {"NSSecureTextFieldCellZKT", "NSTextFieldCellZKT"},
    {"NSSortDescriptorZKT"},
    {"NSSoundZKT"},
    {"NSStepperZKT", "NSViewZKT"},
    {"NSTabViewZKT", "NSViewZKT"},
    {"NSTabViewItemZKT"},
    {"NSTableColumnZKT"},
    {"NSTableHeaderViewZKT", "NSViewZKT"},
    {"NSTableViewZKT", "NSViewZKT"},
    {"NSTaskZKT"},
    {"NSTextZKT", "NSViewZKT"},
    {"NSTextContainerZKT"},
    {"NSTextStorageZKT"},
    {"NSTextViewZKT", "NSTextZKT"},
    {"NSTimeZoneZKT"},
    {"NSTimerZKT"},
    {"NSToolbarZKT"},
    {"NSToolbarItemZKT"},
    {"NSURLCacheZKT"},
    {"NSURLConnectionZKT"},
    {"NSURLDownloadZKT"},
    {"NSURLRequestZKT"},
    {"NSUndoManagerZKT"},
    {"NSUserDefaultsZKT"},
    {"NSUserNotificationZKT"},
    {"NSViewControllerZKT", "NSResponderZKT"},
    {"NSWindowControllerZKT", "NSResponderZKT"},
    {"PDFActionZKT"},
    {"PDFAnnotationZKT"},
    {"QCCompositionZKT"},
    {"QCCompositionRepositoryZKT"},
    {"QuartzFilterZKT"},
    {"WebDownloadDelegateZKT"},
    {"WebFrameLoadDelegateZKT"},
    {"WebPolicyDelegateZKT"},
    {"WebResourceLoadDelegateZKT"},
    {"WebUIDelegateZKT"},
};

ClassBuilder builderOf(const char* name, const char* superclass) {
  ClassBuilder builder(name, superclass);
  if (superclass == nullptr) builder.wrapper();
  return builder;
}

}  // namespace

void registerWrappers() {
  for (const auto& row : classes) ClassBuilder::registerWithHost(builderOf(row.name, row.superclass));
}

}  // namespace siblings
