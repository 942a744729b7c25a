// The classes that only need to exist. A class leaves this table when it gets behaviour.
#include "standin/foundation/class_rows.hpp"

#include "standin/runtime/class_definition.hpp"

namespace standin::foundation {
namespace {

constexpr ClassRow rows[] = {
    // Views and what responds to events
    {"NSResponder", "NSObject"},
    {"NSApplication", "NSResponder"},
    {"NSViewController", "NSResponder"},
    {"NSWindowController", "NSResponder"},
    {"NSWindow", "NSResponder"},
    {"NSPanel", "NSWindow"},
    {"NSFontPanel", "NSPanel"},
    {"NSView", "NSResponder"},
    {"NSBox", "NSView"},
    {"NSClipView", "NSView"},
    {"NSTabView", "NSView"},
    {"NSTableHeaderView", "NSView"},
    {"NSText", "NSView"},
    {"NSControl", "NSView"},
    {"NSButton", "NSControl"},
    {"NSPopUpButton", "NSButton"},
    {"NSImageView", "NSControl"},
    {"NSPathControl", "NSControl"},
    {"NSScroller", "NSControl"},
    {"NSStepper", "NSControl"},
    {"NSTableView", "NSControl"},
    {"NSTextField", "NSControl"},
    {"NSComboBox", "NSTextField"},
    {"NSSearchField", "NSTextField"},
    {"NSSecureTextField", "NSTextField"},

    // Other parts of the user interface
    {"NSAnimation", "NSObject"},
    {"NSAnimationContext", "NSObject"},
    {"NSBezierPath", "NSObject"},
    {"NSColorList", "NSObject"},
    {"NSColorSpace", "NSObject"},
    {"NSCursor", "NSObject"},
    {"NSDockTile", "NSObject"},
    {"NSDraggingImageComponent", "NSObject"},
    {"NSEvent", "NSObject"},
    {"NSFontDescriptor", "NSObject"},
    {"NSImageRep", "NSObject"},
    {"NSBitmapImageRep", "NSImageRep"},
    {"NSMenu", "NSObject"},
    {"NSMenuItem", "NSObject"},
    {"NSPasteboard", "NSObject"},
    {"NSPasteboardItem", "NSObject"},
    {"NSRunningApplication", "NSObject"},
    {"NSScreen", "NSObject"},
    {"NSSound", "NSObject"},
    {"NSTabViewItem", "NSObject"},
    {"NSTableColumn", "NSObject"},
    {"NSToolbar", "NSObject"},
    {"NSToolbarItem", "NSObject"},

    // Text

    // Foundation
    {"NSAffineTransform", "NSObject"},
    {"NSAppleEventDescriptor", "NSObject"},
    {"NSAppleScript", "NSObject"},
    {"NSAssertionHandler", "NSObject"},
    {"NSCalendar", "NSObject"},
    {"NSCoder", "NSObject"},
    {"NSDateComponents", "NSObject"},
    {"NSExpression", "NSObject"},
    {"NSFileHandle", "NSObject"},
    {"NSHTTPCookie", "NSObject"},
    {"NSHTTPCookieStorage", "NSObject"},
    {"NSIndexSet", "NSObject"},
    {"NSMutableIndexSet", "NSIndexSet"},
    {"NSMetadataItem", "NSObject"},
    {"NSMetadataQuery", "NSObject"},
    {"NSMetadataQueryResultGroup", "NSObject"},
    {"NSNotification", "NSObject"},
    {"NSNotificationCenter", "NSObject"},
    {"NSDistributedNotificationCenter", "NSNotificationCenter"},
    {"NSOperation", "NSObject"},
    {"NSPipe", "NSObject"},
    {"NSPredicate", "NSObject"},
    {"NSComparisonPredicate", "NSPredicate"},
    {"NSCompoundPredicate", "NSPredicate"},
    {"NSRunLoop", "NSObject"},
    {"NSSortDescriptor", "NSObject"},
    {"NSTask", "NSObject"},
    {"NSTimer", "NSObject"},
    {"NSUndoManager", "NSObject"},
    {"NSURLCache", "NSObject"},
    {"NSURLConnection", "NSObject"},
    {"NSURLDownload", "NSObject"},
    {"NSURLRequest", "NSObject"},
    {"NSUserDefaults", "NSObject"},
    {"NSUserNotification", "NSObject"},
};

[[maybe_unused]] const bool areDefined = [] {
  for (const ClassRow& row : rows) defineClass(row.name, row.superclass);
  return true;
}();

}  // namespace

std::span<const ClassRow> classRows() { return rows; }

}  // namespace standin::foundation
