// The platform classes whose instances cross into the host as wrapper objects, in the order in which they are tested.
#pragma once

#include <array>
#include <iterator>
#include <string_view>

namespace bridge {

// A class name and the same name with "ZKT" behind it, the host class of its wrappers.
class WrappedClassName {
 public:
  constexpr explicit WrappedClassName(std::string_view platformClass) {
    append(platformClass, platformClass_.data());
    append("ZKT", append(platformClass, hostClass_.data()));
  }
  constexpr const char* platformClass() const { return platformClass_.data(); }
  constexpr const char* hostClass() const { return hostClass_.data(); }

 private:
  // A name that does not fit does not compile.
  using Text = std::array<char, 40>;
  static constexpr char* append(std::string_view part, char* end) {
    for (const char character : part) *end++ = character;
    return end;
  }

  Text platformClass_{};
  Text hostClass_{};
};

enum class Wrapping {
  plain,    // the registered wrapper, or a new one of the row's host class, which is then registered
  nearest,  // a new wrapper of the most derived class that has one
  view,     // a view: the sibling that knows movie views is asked before `nearest`
};

struct WrappedClass {
  WrappedClassName name;
  Wrapping wrapping;
};

namespace rows {
constexpr WrappedClass plain(std::string_view name) { return {WrappedClassName(name), Wrapping::plain}; }
constexpr WrappedClass nearest(std::string_view name) { return {WrappedClassName(name), Wrapping::nearest}; }
constexpr WrappedClass view(std::string_view name) { return {WrappedClassName(name), Wrapping::view}; }

// A subclass that stands behind its superclass is wrapped as its superclass: the order is part of the behaviour.
inline constexpr WrappedClass wrappedClasses[] = {
    plain("NSPathComponentCell"),
    plain("NSPathCell"),
    plain("NSPathControl"),
    plain("NSPipe"),
    plain("NSTask"),
    plain("NSFileHandle"),
    plain("NSClipView"),
    plain("NSAnimation"),
    plain("NSCoder"),
    plain("NSTimeZone"),
    plain("NSDateComponents"),
    plain("NSAnimationContext"),
    plain("NSTimer"),
    plain("NSBox"),
    plain("NSComboBox"),
    plain("NSImageView"),
    plain("NSPopUpButton"),
    plain("NSTextField"),
    plain("NSSearchFieldCell"),
    plain("NSSecureTextField"),
    plain("NSSecureTextFieldCell"),
    plain("NSApplication"),
    plain("NSSearchField"),
    plain("NSTabView"),
    plain("NSTabViewItem"),
    plain("NSStepper"),
    plain("NSURLRequest"),
    plain("NSURLDownload"),
    plain("NSURLConnection"),
    plain("NSFontPanel"),
    plain("NSFontManager"),
    plain("NSImage"),
    nearest("NSImageRep"),
    plain("NSShadow"),
    plain("NSAffineTransform"),
    plain("NSFont"),
    plain("NSToolbarItem"),
    plain("NSToolbar"),
    plain("NSScreen"),
    plain("NSCharacterSet"),
    plain("NSTextStorage"),
    plain("NSColor"),
    nearest("NSAttributedString"),
    plain("NSAssertionHandler"),
    plain("NSMenu"),
    plain("NSFontDescriptor"),
    plain("NSMenuItem"),
    plain("NSError"),
    plain("NSViewController"),
    plain("NSWindowController"),
    plain("NSHTTPCookie"),
    plain("NSHTTPCookieStorage"),
    plain("NSPasteboard"),
    plain("NSBundle"),
    plain("NSEnumerator"),
    plain("NSDirectoryEnumerator"),
    plain("NSRunningApplication"),
    plain("NSURLCache"),
    nearest("NSCell"),
    plain("NSFileManager"),
    plain("NSSound"),
    plain("NSBezierPath"),
    plain("NSCursor"),
    plain("NSEvent"),
    nearest("NSIndexSet"),
    plain("NSCalendar"),
    view("NSView"),
    nearest("NSWindow"),
    plain("NSColorList"),
    plain("NSColorSpace"),
    plain("NSTableColumn"),
    plain("NSUndoManager"),
    plain("NSScroller"),
    nearest("NSResponder"),
    nearest("NSTextFieldCell"),
    nearest("NSText"),
    plain("NSTableHeaderView"),
    plain("NSOperation"),
    plain("NSNotification"),
    nearest("NSNotificationCenter"),
    plain("NSDistributedNotificationCenter"),
    plain("NSUserDefaults"),
    plain("NSDockTile"),
    plain("NSLocale"),
    plain("NSAppleEventDescriptor"),
    plain("NSAppleScript"),
    plain("NSTableView"),
    plain("NSLayoutManager"),
    plain("NSTextContainer"),
    nearest("NSTextView"),
    plain("NSTextTab"),
    plain("NSParagraphStyle"),
    plain("NSPasteboardItem"),
    plain("NSRunLoop"),
    plain("NSMetadataQuery"),
    plain("NSMetadataItem"),
    plain("NSPredicate"),
    plain("NSCompoundPredicate"),
    plain("NSSortDescriptor"),
    plain("NSMetadataQueryResultGroup"),
    plain("NSComparisonPredicate"),
    plain("NSFileWrapper"),
    plain("NSTextAttachment"),
    plain("NSExpression"),
};
static_assert(std::size(wrappedClasses) == 104);

// Classes of frameworks that need not be in the process.
inline constexpr WrappedClass optionalClasses[] = {
    plain("NSUserNotification"), plain("NSDraggingImageComponent"), plain("QuartzFilter"),
    plain("QCComposition"),      plain("QCCompositionRepository"),
};
}  // namespace rows

using rows::optionalClasses;
using rows::wrappedClasses;

}  // namespace bridge
