// CoreFoundation, CoreText's type identifiers and the Carbon file manager, as far as the library and its siblings use
// them. Toll-free bridged types are the Foundation classes themselves.
#pragma once

#include "platform/foundation.h"

using Boolean = unsigned char;
using UniChar = char16_t;
using CFIndex = long;
using CFTypeID = unsigned long;
using CFStringEncoding = uint32_t;
using CFTypeRef = NSObject*;
using CFStringRef = NSString*;
using CFMutableStringRef = NSMutableString*;
using CFURLRef = NSURL*;
using CFDictionaryRef = NSDictionary*;
using CFMutableDictionaryRef = NSMutableDictionary*;
using CFBooleanRef = NSNumber*;

struct __CFAllocator;
struct __CFBundle : NSObject {};
using CFAllocatorRef = const __CFAllocator*;
using CFBundleRef = __CFBundle*;

struct CFRange {
  CFIndex location, length;
};
struct CFDictionaryKeyCallBacks;
struct CFDictionaryValueCallBacks;

inline constexpr CFStringEncoding kCFStringEncodingMacRoman = 0;
inline constexpr CFStringEncoding kCFStringEncodingUnicode = 0x100;
inline constexpr CFStringEncoding kCFStringEncodingISOLatin1 = 0x201;
inline constexpr CFStringEncoding kCFStringEncodingWindowsLatin1 = 0x500;
inline constexpr CFStringEncoding kCFStringEncodingASCII = 0x600;
inline constexpr CFStringEncoding kCFStringEncodingUTF8 = 0x08000100;
inline constexpr CFStringEncoding kCFStringEncodingUTF32 = 0x0C000100;

inline constexpr CFIndex kCFStringNormalizationFormD = 0;
inline constexpr CFIndex kCFURLPOSIXPathStyle = 0;

// The Carbon file manager's types, in the platform's layout.
using FSVolumeRefNum = int16_t;
using OSErr = int16_t;
using OSStatus = int32_t;
using OSType = uint32_t;
using FSCatalogInfoBitmap = uint32_t;

struct FSRef {
  uint8_t hidden[80];
};
struct HFSUniStr255 {
  uint16_t length;
  UniChar unicode[255];
};
struct FSSpec;

#pragma pack(push, 2)
struct UTCDateTime {
  uint16_t highSeconds;
  uint32_t lowSeconds;
  uint16_t fraction;
};
struct FSCatalogInfo {
  uint16_t nodeFlags;
  FSVolumeRefNum volume;
  uint32_t parentDirID;
  uint32_t nodeID;
  uint8_t sharingFlags, userPrivileges, reserved1, reserved2;
  UTCDateTime createDate, contentModDate, attributeModDate, accessDate, backupDate;
  uint8_t permissions[16];
  uint8_t finderInfo[16], extFinderInfo[16];
  uint64_t dataLogicalSize, dataPhysicalSize, rsrcLogicalSize, rsrcPhysicalSize;
  uint32_t valence;
  uint32_t textEncodingHint;
};
#pragma pack(pop)

static_assert(sizeof(FSRef) == 80 && sizeof(HFSUniStr255) == 512 && sizeof(FSCatalogInfo) == 144);

inline constexpr OSErr noErr = 0;
inline constexpr FSVolumeRefNum kOnAppropriateDisk = -32767;
inline constexpr OSType kFrameworksFolderType = 0x6672616D;
inline constexpr FSCatalogInfoBitmap kFSCatInfoNone = 0;
inline constexpr FSCatalogInfoBitmap kFSCatInfoNodeID = 0x10;

extern "C" {
extern const CFAllocatorRef kCFAllocatorDefault;
extern const CFAllocatorRef kCFAllocatorSystemDefault;
extern const CFBooleanRef kCFBooleanTrue;
extern const CFBooleanRef kCFBooleanFalse;

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);

// An immortal string of the ASCII text, one for each distinct text.
CFStringRef __CFStringMakeConstantString(const char* text);
CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const uint8_t* bytes, CFIndex count, CFStringEncoding,
                                    Boolean externalRepresentation);
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* characters, CFIndex count);
CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex maximumLength, CFStringRef);
CFIndex CFStringGetLength(CFStringRef);
void CFStringGetCharacters(CFStringRef, CFRange, UniChar* buffer);
Boolean CFStringGetCString(CFStringRef, char* buffer, CFIndex capacity, CFStringEncoding);
// The bytes of the range in the encoding; answers the number of units converted, stores the number of bytes.
CFIndex CFStringGetBytes(CFStringRef, CFRange, CFStringEncoding, uint8_t lossByte, Boolean externalRepresentation,
                         uint8_t* buffer, CFIndex capacity, CFIndex* used);
void CFStringNormalize(CFMutableStringRef, CFIndex form);

// With nil callbacks, keys and values are bare pointers: compared by identity and not retained.
CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex capacity, const CFDictionaryKeyCallBacks*,
                                                 const CFDictionaryValueCallBacks*);
const void* CFDictionaryGetValue(CFDictionaryRef, const void* key);
void CFDictionarySetValue(CFMutableDictionaryRef, const void* key, const void* value);
void CFDictionaryRemoveValue(CFMutableDictionaryRef, const void* key);
CFIndex CFDictionaryGetCount(CFDictionaryRef);

CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef text, CFURLRef base);
CFURLRef CFURLCreateFromFSRef(CFAllocatorRef, const FSRef*);
Boolean CFURLGetFSRef(CFURLRef, FSRef*);
CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef, CFURLRef, CFStringRef component, Boolean isDirectory);
CFURLRef CFURLCreateCopyDeletingLastPathComponent(CFAllocatorRef, CFURLRef);
CFStringRef CFURLCopyLastPathComponent(CFURLRef);
CFStringRef CFURLCopyFileSystemPath(CFURLRef, CFIndex style);

CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef);
Boolean CFBundleLoadExecutable(CFBundleRef);

OSErr FSFindFolder(FSVolumeRefNum, OSType folder, Boolean create, FSRef* found);
OSErr FSGetCatalogInfo(const FSRef*, FSCatalogInfoBitmap, FSCatalogInfo*, HFSUniStr255* name, FSSpec*, FSRef* parent);
OSStatus FSRefMakePath(const FSRef*, uint8_t* path, uint32_t capacity);
}

// The type identifiers that tell CoreFoundation and CoreText objects apart, in the order in which they are tested.
#define PLATFORM_TYPE_IDENTIFIERS(X) \
  X(CFURL)                           \
  X(CFDictionary)                    \
  X(CFString)                        \
  X(CFNumber)                        \
  X(CFArray)                         \
  X(CFBoolean)                       \
  X(CFData)                          \
  X(CFCharacterSet)                  \
  X(CFBundle)                        \
  X(CFSet)                           \
  X(CFBag)                           \
  X(CFUUID)                          \
  X(CFTimeZone)                      \
  X(CFDate)                          \
  X(CFAttributedString)              \
  X(CFError)                         \
  X(CTFont)                          \
  X(CTFontCollection)                \
  X(CTFrame)                         \
  X(CTFramesetter)                   \
  X(CTGlyphInfo)                     \
  X(CTLine)                          \
  X(CTParagraphStyle)                \
  X(CTRun)                           \
  X(CTTypesetter)                    \
  X(CTRunDelegate)
#define PLATFORM_DECLARE_TYPE_IDENTIFIER(Type) CFTypeID Type##GetTypeID();
extern "C" {
PLATFORM_TYPE_IDENTIFIERS(PLATFORM_DECLARE_TYPE_IDENTIFIER)
}
#undef PLATFORM_DECLARE_TYPE_IDENTIFIER
