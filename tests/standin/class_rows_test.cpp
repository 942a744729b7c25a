// The classes that only exist, the relations between classes, and CoreFoundation's type identifiers.
#include "standin/foundation/class_rows.hpp"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/date.hpp"
#include "standin/foundation/error.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/type_identifiers.hpp"
#include "standin/foundation/url.hpp"
#include "tests/standin/foundation_support.hpp"

namespace {

using namespace foundation_support;

TEST(ClassRows, InstancesExistAndAreRecognised) {
  for (const ClassRow& row : classRows()) {
    const Class cls = objc_getClass(row.name);
    ASSERT_NE(cls, nullptr) << row.name;
    EXPECT_STREQ(class_getName(class_getSuperclass(cls)), row.superclass) << row.name;
    const Owned<NSObject> instance = adopt(NSObject::init(NSObject::alloc(cls)));
    EXPECT_STREQ(object_getClassName(instance), row.name);
    EXPECT_TRUE(NSObject::isKindOfClass(instance, objc_getClass(row.superclass))) << row.name;
    const AutoreleasePool pool;
    const Message<void()> unknown{"messageThatNoClassAnswers"};
    EXPECT_NE(raised([&] { unknown(instance); }).find(row.name), std::string::npos);
  }
}

TEST(ClassRelations, AreThePlatforms) {
  struct Case {
    const char *cls, *ancestor;
    bool expected;
  };
  for (const Case& row : {Case{"NSSearchField", "NSResponder", true},
                          {"NSSearchField", "NSTextField", true},
                          {"NSSecureTextField", "NSControl", true},
                          {"NSTextView", "NSText", true},
                          {"NSTextView", "NSControl", false},
                          {"NSTableHeaderView", "NSView", true},
                          {"NSScroller", "NSControl", true},
                          {"NSWindow", "NSView", false},
                          {"NSFontPanel", "NSWindow", true},
                          {"NSTextFieldCell", "NSCell", true},
                          {"NSPathComponentCell", "NSTextFieldCell", true},
                          {"NSSecureTextFieldCell", "NSActionCell", true},
                          {"NSCompoundPredicate", "NSPredicate", true},
                          {"NSDirectoryEnumerator", "NSEnumerator", true},
                          {"NSDistributedNotificationCenter", "NSNotificationCenter", true},
                          {"NSCalendarDate", "NSDate", true},
                          {"NSNumber", "NSValue", true},
                          {"__NSCFBoolean", "NSNumber", true},
                          {"NSMutableArray", "NSArray", true},
                          {"__NSCFDictionary", "NSMutableDictionary", true}}) {
    const Class cls = objc_getClass(row.cls);
    ASSERT_NE(cls, nullptr) << row.cls;
    EXPECT_EQ(send<BOOL>(cls, "isSubclassOfClass:", objc_getClass(row.ancestor)) != NO, row.expected) << row.cls;
  }
}

// The classes by which values on their way to a host are told apart: each must be in the process.
TEST(ClassRelations, EveryBridgedClassExists) {
  std::istringstream names(
      "NSPathComponentCell NSPathCell NSPathControl NSPipe NSTask NSFileHandle NSClipView NSAnimation NSCoder "
      "NSTimeZone NSDateComponents NSAnimationContext NSTimer NSBox NSComboBox NSImageView NSPopUpButton NSTextField "
      "NSSearchFieldCell NSSecureTextField NSSecureTextFieldCell NSApplication NSSearchField NSTabView NSTabViewItem "
      "NSStepper NSURLRequest NSURLDownload NSURLConnection NSFontPanel NSFontManager NSImage NSImageRep NSShadow "
      "NSAffineTransform NSFont NSToolbarItem NSToolbar NSScreen NSCharacterSet NSTextStorage NSColor "
      "NSAttributedString NSAssertionHandler NSMenu NSFontDescriptor NSMenuItem NSError NSViewController "
      "NSWindowController NSHTTPCookie NSHTTPCookieStorage NSPasteboard NSBundle NSEnumerator NSDirectoryEnumerator "
      "NSRunningApplication NSURLCache NSCell NSFileManager NSSound NSBezierPath NSCursor NSEvent NSIndexSet "
      "NSCalendar NSView NSWindow NSColorList NSColorSpace NSTableColumn NSUndoManager NSScroller NSResponder "
      "NSTextFieldCell NSText NSTableHeaderView NSOperation NSNotification NSNotificationCenter "
      "NSDistributedNotificationCenter NSUserDefaults NSDockTile NSLocale NSAppleEventDescriptor NSAppleScript "
      "NSTableView NSLayoutManager NSTextContainer NSTextView NSTextTab NSParagraphStyle NSPasteboardItem NSRunLoop "
      "NSMetadataQuery NSMetadataItem NSPredicate NSCompoundPredicate NSSortDescriptor NSMetadataQueryResultGroup "
      "NSComparisonPredicate NSFileWrapper NSTextAttachment NSExpression NSUserNotification NSDraggingImageComponent ");
  for (std::string name; names >> name;) EXPECT_NE(objc_getClass(name.c_str()), nullptr) << name;
}

// Nothing has filled them in, and every message finds something to work on.
TEST(BareInstances, AreHarmless) {
  for (const char* name :
       {"NSArray", "NSMutableArray", "NSBundle", "NSCalendarDate", "NSDate", "NSDictionary", "NSDirectoryEnumerator",
        "NSEnumerator", "NSError", "NSFileManager", "NSLocale", "NSMutableDictionary", "NSMutableSet", "NSNull", "NSNumber",
        "NSSet", "NSTimeZone", "NSURL", "NSValue"}) {
    const AutoreleasePool pool;
    const Owned<NSObject> instance = adopt(NSObject::init(NSObject::alloc(objc_getClass(name))));
    const Owned<NSObject> other = adopt(NSObject::init(NSObject::alloc(objc_getClass(name))));
    EXPECT_TRUE(NSObject::isKindOfClass(instance, objc_getClass(name))) << name;
    EXPECT_TRUE(NSObject::isEqual(instance, instance)) << name;
    EXPECT_NE(NSObject::description(instance), nullptr) << name;
    if (NSObject::isEqual(instance, other)) {
      EXPECT_EQ(NSObject::hash(instance), NSObject::hash(other)) << name;
    }
  }
}

TEST(TypeIdentifiers, OfBridgedObjects) {
  const AutoreleasePool pool;
  struct Case {
    const char* name;
    NSObject* object;
    CFTypeID type;
  };
  const Case cases[] = {
      {"url", newURL(ns("a")).autorelease(), CFURLGetTypeID()},
      {"dictionary", newDictionary({}).autorelease(), CFDictionaryGetTypeID()},
      {"bare pointers", adopt(CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr)).autorelease(),
       CFDictionaryGetTypeID()},
      {"string", ns("a"), CFStringGetTypeID()},
      {"number", newNumber(1).autorelease(), CFNumberGetTypeID()},
      {"array", newMutableArray().autorelease(), CFArrayGetTypeID()},
      {"boolean", kCFBooleanFalse, CFBooleanGetTypeID()},
      {"data", NSData::dataWithBytes(classOf<NSData>(), "", 0), CFDataGetTypeID()},
      {"set", newSet({}).autorelease(), CFSetGetTypeID()},
      {"zone", NSTimeZone::localTimeZone(classOf<NSTimeZone>()), CFTimeZoneGetTypeID()},
      {"date", newDate(0).autorelease(), CFDateGetTypeID()},
      {"error", newError(NSPOSIXErrorDomain, 1, "").autorelease(), CFErrorGetTypeID()},
      {"line", newCoreObject(CTLineGetTypeID()).autorelease(), CTLineGetTypeID()},
      {"plain object", adopt(NSObject::init(alloc<NSObject>())).autorelease(), 0},
  };
  for (const Case& row : cases) EXPECT_EQ(CFGetTypeID(row.object), row.type) << row.name;
}

TEST(TypeIdentifiers, AreDistinctAndPositive) {
  std::set<CFTypeID> seen;
#define COLLECT(Type)                                    \
  EXPECT_GT(static_cast<int32_t>(Type##GetTypeID()), 0); \
  EXPECT_TRUE(seen.insert(Type##GetTypeID()).second) << #Type;
  PLATFORM_TYPE_IDENTIFIERS(COLLECT)
#undef COLLECT
}

TEST(CoreFoundation, RetainsAndReleases) {
  const AutoreleasePool pool;
  const Owned<NSNumber> number = newNumber(123456);
  EXPECT_EQ(CFRetain(number), number.get());
  EXPECT_EQ(NSObject::retainCount(number), 2u);
  CFRelease(number);
  EXPECT_EQ(NSObject::retainCount(number), 1u);
  EXPECT_NE(raised([] { CFRelease(nullptr); }), "");
}

}  // namespace
