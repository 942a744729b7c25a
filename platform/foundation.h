// Foundation, as far as the library and its siblings use it: the messages of each class, C functions and constants.
#pragma once

#include "platform/runtime.h"

struct NSArray;
struct NSData;
struct NSDate;
struct NSDictionary;
struct NSEnumerator;
struct NSError;
struct NSException;
struct NSFileManager;
struct NSMutableArray;
struct NSMutableDictionary;
struct NSMutableString;
struct NSNull;
struct NSNumber;
struct NSSet;
struct NSTimeZone;
struct NSURL;
struct NSValue;

struct NSString : NSObject {
  static constexpr char className_[] = "NSString";
  static inline constinit Message<NSString*()> string{"string"};
  static inline constinit Message<NSString*(const char*)> stringWithUTF8String{"stringWithUTF8String:"};
  static inline constinit Message<NSString*(const unichar*, NSUInteger)> stringWithCharacters{
      "stringWithCharacters:length:"};
  static inline constinit Message<NSString*(NSString*)> stringWithString{"stringWithString:"};
  static inline constinit Message<NSUInteger()> length{"length"};
  static inline constinit Message<unichar(NSUInteger)> characterAtIndex{"characterAtIndex:"};
  static inline constinit Message<void(unichar*)> getCharacters{"getCharacters:"};
  static inline constinit Message<void(unichar*, NSRange)> getCharactersInRange{"getCharacters:range:"};
  static inline constinit Message<const char*()> UTF8String{"UTF8String"};
  static inline constinit Message<BOOL(NSString*)> isEqualToString{"isEqualToString:"};
  static inline constinit Message<BOOL(NSString*)> hasPrefix{"hasPrefix:"};
  static inline constinit Message<BOOL(NSString*)> hasSuffix{"hasSuffix:"};
  static inline constinit Message<NSString*(NSRange)> substringWithRange{"substringWithRange:"};
  static inline constinit Message<NSString*(NSUInteger)> substringFromIndex{"substringFromIndex:"};
  static inline constinit Message<NSString*(NSUInteger)> substringToIndex{"substringToIndex:"};
  static inline constinit Message<NSRange(NSString*)> rangeOfString{"rangeOfString:"};
  static inline constinit Message<NSString*(NSString*)> stringByAppendingString{"stringByAppendingString:"};
  static inline constinit Message<NSString*(NSString*)> stringByAppendingPathComponent{"stringByAppendingPathComponent:"};
  static inline constinit Message<const char*()> fileSystemRepresentation{"fileSystemRepresentation"};
};

struct NSMutableString : NSString {
  static constexpr char className_[] = "NSMutableString";
  static inline constinit Message<NSMutableString*(NSUInteger)> stringWithCapacity{"stringWithCapacity:"};
  static inline constinit Message<void(NSString*)> appendString{"appendString:"};
};

struct NSCharacterSet : NSObject {
  static constexpr char className_[] = "NSCharacterSet";
  static inline constinit Message<NSCharacterSet*()> whitespaceAndNewlineCharacterSet{"whitespaceAndNewlineCharacterSet"};
  static inline constinit Message<BOOL(unichar)> characterIsMember{"characterIsMember:"};
};

struct NSData : NSObject {
  static constexpr char className_[] = "NSData";
  static inline constinit Message<NSData*(const void*, NSUInteger)> dataWithBytes{"dataWithBytes:length:"};
  static inline constinit Message<NSData*(NSURL*)> dataWithContentsOfURL{"dataWithContentsOfURL:"};
  static inline constinit Message<const void*()> bytes{"bytes"};
  static inline constinit Message<NSUInteger()> length{"length"};
};

struct NSArray : NSObject {
  static constexpr char className_[] = "NSArray";
  static inline constinit Message<NSArray*()> array{"array"};
  static inline constinit Message<NSArray*(NSObject* const*, NSUInteger)> arrayWithObjects{"arrayWithObjects:count:"};
  static inline constinit Message<NSUInteger()> count{"count"};
  static inline constinit Message<NSObject*(NSUInteger)> objectAtIndex{"objectAtIndex:"};
  static inline constinit Message<NSEnumerator*()> objectEnumerator{"objectEnumerator"};
};

struct NSMutableArray : NSArray {
  static constexpr char className_[] = "NSMutableArray";
  static inline constinit Message<NSMutableArray*()> array{"array"};
  static inline constinit Message<void(NSObject*)> addObject{"addObject:"};
  static inline constinit Message<void()> removeLastObject{"removeLastObject"};
  static inline constinit Message<void()> removeAllObjects{"removeAllObjects"};
};

struct NSEnumerator : NSObject {
  static constexpr char className_[] = "NSEnumerator";
  static inline constinit Message<NSObject*()> nextObject{"nextObject"};
};

struct NSSet : NSObject {
  static constexpr char className_[] = "NSSet";
  static inline constinit Message<NSSet*(NSArray*)> setWithArray{"setWithArray:"};
  static inline constinit Message<NSArray*()> allObjects{"allObjects"};
  static inline constinit Message<NSUInteger()> count{"count"};
};

struct NSDictionary : NSObject {
  static constexpr char className_[] = "NSDictionary";
  static inline constinit Message<NSDictionary*()> dictionary{"dictionary"};
  static inline constinit Message<NSDictionary*(NSObject* const*, NSObject* const*, NSUInteger)> dictionaryWithObjects{
      "dictionaryWithObjects:forKeys:count:"};
  static inline constinit Message<NSUInteger()> count{"count"};
  static inline constinit Message<NSArray*()> allKeys{"allKeys"};
  static inline constinit Message<NSObject*(NSObject*)> objectForKey{"objectForKey:"};
  static inline constinit Message<BOOL(NSDictionary*)> isEqualToDictionary{"isEqualToDictionary:"};
};

struct NSMutableDictionary : NSDictionary {
  static constexpr char className_[] = "NSMutableDictionary";
  static inline constinit Message<NSMutableDictionary*(NSUInteger)> dictionaryWithCapacity{"dictionaryWithCapacity:"};
  static inline constinit Message<void(NSObject*, NSObject*)> setObject{"setObject:forKey:"};
  static inline constinit Message<void(NSObject*)> removeObject{"removeObjectForKey:"};
  static inline constinit Message<void(NSDictionary*)> addEntries{"addEntriesFromDictionary:"};
};

struct NSNull : NSObject {
  static constexpr char className_[] = "NSNull";
  static inline constinit Message<NSNull*()> null{"null"};
};

struct NSValue : NSObject {
  static constexpr char className_[] = "NSValue";
  static inline constinit Message<NSValue*(NSRange)> valueWithRange{"valueWithRange:"};
  static inline constinit Message<NSValue*(NSPoint)> valueWithPoint{"valueWithPoint:"};
  static inline constinit Message<NSValue*(NSSize)> valueWithSize{"valueWithSize:"};
  static inline constinit Message<NSValue*(NSRect)> valueWithRect{"valueWithRect:"};
  static inline constinit Message<NSValue*(const void*, const char*)> valueWithBytes{"valueWithBytes:objCType:"};
  static inline constinit Message<const char*()> objCType{"objCType"};
  static inline constinit Message<void(void*)> getValue{"getValue:"};
  static inline constinit Message<NSRange()> rangeValue{"rangeValue"};
  static inline constinit Message<NSPoint()> pointValue{"pointValue"};
  static inline constinit Message<NSSize()> sizeValue{"sizeValue"};
  static inline constinit Message<NSRect()> rectValue{"rectValue"};
};

struct NSNumber : NSValue {
  static constexpr char className_[] = "NSNumber";
  static inline constinit Message<NSNumber*(BOOL)> numberWithBool{"numberWithBool:"};
  static inline constinit Message<NSNumber*(char)> numberWithChar{"numberWithChar:"};
  static inline constinit Message<NSNumber*(int)> numberWithInt{"numberWithInt:"};
  static inline constinit Message<NSNumber*(long)> numberWithLong{"numberWithLong:"};
  static inline constinit Message<NSNumber*(long long)> numberWithLongLong{"numberWithLongLong:"};
  static inline constinit Message<NSNumber*(unsigned long)> numberWithUnsignedLong{"numberWithUnsignedLong:"};
  static inline constinit Message<NSNumber*(float)> numberWithFloat{"numberWithFloat:"};
  static inline constinit Message<NSNumber*(double)> numberWithDouble{"numberWithDouble:"};
  static inline constinit Message<BOOL()> boolValue{"boolValue"};
  static inline constinit Message<char()> charValue{"charValue"};
  static inline constinit Message<unsigned char()> unsignedCharValue{"unsignedCharValue"};
  static inline constinit Message<short()> shortValue{"shortValue"};
  static inline constinit Message<unsigned short()> unsignedShortValue{"unsignedShortValue"};
  static inline constinit Message<int()> intValue{"intValue"};
  static inline constinit Message<unsigned int()> unsignedIntValue{"unsignedIntValue"};
  static inline constinit Message<long()> longValue{"longValue"};
  static inline constinit Message<unsigned long()> unsignedLongValue{"unsignedLongValue"};
  static inline constinit Message<long long()> longLongValue{"longLongValue"};
  static inline constinit Message<float()> floatValue{"floatValue"};
  static inline constinit Message<double()> doubleValue{"doubleValue"};
};

struct NSException : NSObject {
  static constexpr char className_[] = "NSException";
  static inline constinit Message<NSException*(NSString*, NSString*, NSDictionary*)> exceptionWithName{
      "exceptionWithName:reason:userInfo:"};
  static inline constinit Message<void()> raise{"raise"};
  static inline constinit Message<NSString*()> name{"name"};
  static inline constinit Message<NSString*()> reason{"reason"};
  static inline constinit Message<NSDictionary*()> userInfo{"userInfo"};
};

struct NSError : NSObject {
  static constexpr char className_[] = "NSError";
  static inline constinit Message<NSError*(NSString*, NSInteger, NSDictionary*)> errorWithDomain{
      "errorWithDomain:code:userInfo:"};
  static inline constinit Message<NSString*()> domain{"domain"};
  static inline constinit Message<NSInteger()> code{"code"};
  static inline constinit Message<NSDictionary*()> userInfo{"userInfo"};
  static inline constinit Message<NSString*()> localizedDescription{"localizedDescription"};
};

struct NSTimeZone : NSObject {
  static constexpr char className_[] = "NSTimeZone";
  static inline constinit Message<NSTimeZone*()> localTimeZone{"localTimeZone"};
};

struct NSDate : NSObject {
  static constexpr char className_[] = "NSDate";
  static inline constinit Message<NSDate*(NSTimeInterval)> dateWithTimeIntervalSinceReferenceDate{
      "dateWithTimeIntervalSinceReferenceDate:"};
  static inline constinit Message<NSTimeInterval()> timeIntervalSinceReferenceDate{"timeIntervalSinceReferenceDate"};
};

struct NSCalendarDate : NSDate {
  static constexpr char className_[] = "NSCalendarDate";
  static inline constinit Message<NSCalendarDate*(NSInteger, NSUInteger, NSUInteger, NSUInteger, NSUInteger, NSUInteger,
                                                  NSTimeZone*)>
      dateWithYear{"dateWithYear:month:day:hour:minute:second:timeZone:"};
  static inline constinit Message<NSCalendarDate*(NSTimeInterval)> initWithTimeIntervalSinceReferenceDate{
      "initWithTimeIntervalSinceReferenceDate:"};
  static inline constinit Message<NSInteger()> yearOfCommonEra{"yearOfCommonEra"};
  static inline constinit Message<NSInteger()> monthOfYear{"monthOfYear"};
  static inline constinit Message<NSInteger()> dayOfMonth{"dayOfMonth"};
  static inline constinit Message<NSInteger()> hourOfDay{"hourOfDay"};
  static inline constinit Message<NSInteger()> minuteOfHour{"minuteOfHour"};
  static inline constinit Message<NSInteger()> secondOfMinute{"secondOfMinute"};
};

struct NSURL : NSObject {
  static constexpr char className_[] = "NSURL";
  static inline constinit Message<NSURL*(NSString*)> URLWithString{"URLWithString:"};
  static inline constinit Message<NSURL*(NSString*)> fileURLWithPath{"fileURLWithPath:"};
  static inline constinit Message<NSString*()> absoluteString{"absoluteString"};
};

struct NSFileManager : NSObject {
  static constexpr char className_[] = "NSFileManager";
  static inline constinit Message<NSFileManager*()> defaultManager{"defaultManager"};
  static inline constinit Message<NSString*(const char*, NSUInteger)> stringWithFileSystemRepresentation{
      "stringWithFileSystemRepresentation:length:"};
  static inline constinit Message<BOOL(NSURL*, NSError**)> removeItemAtURL{"removeItemAtURL:error:"};
};

// The sibling class that carries a host object through the platform.
struct ZKTREALobjectWrapper : NSObject {
  static constexpr char className_[] = "ZKTREALobjectWrapper";
};

extern "C" {
// Writes the formatted line to the system log. The format takes %@ for objects beside the numeric conversions.
void NSLog(NSString* format, ...);
NSString* NSTemporaryDirectory();

extern NSString* const NSInvalidArgumentException;
extern NSString* const NSRangeException;
extern NSString* const NSGenericException;
extern NSString* const NSInternalInconsistencyException;
extern NSString* const NSMallocException;
}
