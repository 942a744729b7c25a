// CoreFoundation's type identifiers.
#include "standin/foundation/type_identifiers.hpp"

#include "standin/runtime/class_object.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::foundation {
namespace {

// Numbered from 1, as 0 stands for no type.
enum Identifier : CFTypeID {
  noIdentifier,
#define NUMBER(Type) Type##Identifier,
  PLATFORM_TYPE_IDENTIFIERS(NUMBER)
#undef NUMBER
};

template <CFTypeID type>
CFTypeID answer(NSObject*) {
  return type;
}

// The Foundation and AppKit classes that are CoreFoundation and CoreText types at the same time.
[[maybe_unused]] const Category bridged[] = {
    Category("NSURL").method<answer<CFURLIdentifier>>("_cfTypeID"),
    Category("NSDictionary").method<answer<CFDictionaryIdentifier>>("_cfTypeID"),
    Category("NSString").method<answer<CFStringIdentifier>>("_cfTypeID"),
    Category("NSNumber").method<answer<CFNumberIdentifier>>("_cfTypeID"),
    Category("NSArray").method<answer<CFArrayIdentifier>>("_cfTypeID"),
    Category("__NSCFBoolean").method<answer<CFBooleanIdentifier>>("_cfTypeID"),
    Category("NSData").method<answer<CFDataIdentifier>>("_cfTypeID"),
    Category("NSCharacterSet").method<answer<CFCharacterSetIdentifier>>("_cfTypeID"),
    Category("__CFBundle").method<answer<CFBundleIdentifier>>("_cfTypeID"),
    Category("NSSet").method<answer<CFSetIdentifier>>("_cfTypeID"),
    Category("NSTimeZone").method<answer<CFTimeZoneIdentifier>>("_cfTypeID"),
    Category("NSDate").method<answer<CFDateIdentifier>>("_cfTypeID"),
    Category("NSAttributedString").method<answer<CFAttributedStringIdentifier>>("_cfTypeID"),
    Category("NSError").method<answer<CFErrorIdentifier>>("_cfTypeID"),
    Category("NSFont").method<answer<CTFontIdentifier>>("_cfTypeID"),
};

CFTypeID typeOf(CoreObject& self) { return self.type; }

const ClassDefinition coreObjectClass = defineClass<CoreObject>("__NSCFType", "NSObject").method<typeOf>("_cfTypeID");

}  // namespace

Owned<NSObject> newCoreObject(CFTypeID type) {
  Owned<NSObject> object = create<CoreObject>(coreObjectClass);
  stateOf<CoreObject>(object).type = type;
  return object;
}

}  // namespace standin::foundation

using namespace standin;
using namespace standin::foundation;

extern "C" {

#define ANSWER(Type) \
  CFTypeID Type##GetTypeID() { return Type##Identifier; }
PLATFORM_TYPE_IDENTIFIERS(ANSWER)
#undef ANSWER

// 0 for an object that is no CoreFoundation type.
CFTypeID CFGetTypeID(CFTypeRef object) {
  static const Message<CFTypeID()> typeMessage{"_cfTypeID"};
  return NSObject::respondsToSelector(object, typeMessage.selector()) ? typeMessage(object) : noIdentifier;
}

CFTypeRef CFRetain(CFTypeRef object) {
  if (object == nullptr) raise(NSInvalidArgumentException, "CFRetain: nil argument");
  return NSObject::retain(object);
}

void CFRelease(CFTypeRef object) {
  if (object == nullptr) raise(NSInvalidArgumentException, "CFRelease: nil argument");
  NSObject::release(object);
}

const CFAllocatorRef kCFAllocatorDefault = nullptr;
// A name for the one allocator there is, never looked into.
const CFAllocatorRef kCFAllocatorSystemDefault = nullptr;
}
