// Messages that make strings: from UTF-8, units, bytes in an encoding, other strings and formats.
#include <cstring>
#include <string>

#include "standin/foundation/data.hpp"
#include "standin/foundation/encodings.hpp"
#include "standin/foundation/log.hpp"
#include "standin/foundation/string_classes.hpp"
#include "standin/foundation/string_encodings.hpp"

namespace standin::foundation {
namespace {

using text::Text;

// Fills a new object in place with what read() answers, or gives it back for nil when that is nothing.
template <class Read>
NSString* filled(NSString* self, Read&& read) {
  const Owned<NSString> owned = adopt(self);
  std::optional<Text> text = read();
  if (!text) return nullptr;
  stateOf<String>(self).text = *std::move(text);
  return retain(self).detach();
}

// An autoreleased instance of the class: mutable when the class is.
NSString* made(Class cls, std::optional<Text> text) {
  if (!text) return nullptr;
  const Owned<NSObject> string = adopt(NSObject::alloc(cls));
  stateOf<String>(string).text = *std::move(text);
  return static_cast<NSString*>(retain(string.get()).autorelease());
}

std::optional<Text> readUtf8(NSObject* receiver, const char* selector, const char* utf8) {
  requireArgument(receiver, selector, utf8);
  return decodeUtf8(utf8);
}

std::optional<Text> readUnits(NSObject* receiver, const char* selector, const unichar* units, NSUInteger count) {
  if (count != 0) requireArgument(receiver, selector, units);
  return textOfUnits({units, count});
}

std::optional<Text> readString(NSObject* receiver, const char* selector, NSString* string) {
  requireArgument(receiver, selector, string);
  return textOf(string);
}

std::optional<Text> readBytes(std::span<const uint8_t> bytes, NSUInteger stringEncoding) {
  return decode(bytes, toCFStringEncoding(stringEncoding), true);
}

std::optional<Text> readCString(NSObject* receiver, const char* selector, const char* bytes, NSUInteger encoding) {
  requireArgument(receiver, selector, bytes);
  return readBytes({reinterpret_cast<const uint8_t*>(bytes), std::strlen(bytes)}, encoding);
}

NSString* string(Class self) { return made(self, Text()); }
NSString* stringWithUTF8String(Class self, const char* utf8) {
  return made(self, readUtf8(self, "stringWithUTF8String:", utf8));
}
NSString* stringWithCharacters(Class self, const unichar* units, NSUInteger count) {
  return made(self, readUnits(self, "stringWithCharacters:length:", units, count));
}
NSString* stringWithString(Class self, NSString* string) {
  return made(self, readString(self, "stringWithString:", string));
}
NSString* stringWithCString(Class self, const char* bytes, NSUInteger encoding) {
  return made(self, readCString(self, "stringWithCString:encoding:", bytes, encoding));
}

NSString* init(NSString* self) { return self; }
NSString* initWithUTF8String(NSString* self, const char* utf8) {
  return filled(self, [=] { return readUtf8(self, "initWithUTF8String:", utf8); });
}
NSString* initWithCharacters(NSString* self, const unichar* units, NSUInteger count) {
  return filled(self, [=] { return readUnits(self, "initWithCharacters:length:", units, count); });
}
NSString* initWithString(NSString* self, NSString* string) {
  return filled(self, [=] { return readString(self, "initWithString:", string); });
}
NSString* initWithBytes(NSString* self, const void* bytes, NSUInteger count, NSUInteger encoding) {
  return filled(self, [=] {
    if (count != 0) requireArgument(self, "initWithBytes:length:encoding:", bytes);
    return readBytes({static_cast<const uint8_t*>(bytes), count}, encoding);
  });
}
NSString* initWithData(NSString* self, NSData* data, NSUInteger encoding) {
  return filled(self, [=] { return readBytes(bytesOf(data), encoding); });
}
NSString* initWithCString(NSString* self, const char* bytes, NSUInteger encoding) {
  return filled(self, [=] { return readCString(self, "initWithCString:encoding:", bytes, encoding); });
}
NSString* initWithFormat(NSString* self, NSString* format, va_list arguments) {
  return filled(self, [&]() -> std::optional<Text> {
    requireArgument(self, "initWithFormat:arguments:", format);
    return formatText(textOf(format), arguments);
  });
}

[[maybe_unused]] const Category creation = Category("NSString")
                                               .classMethod<string>("string")
                                               .classMethod<stringWithUTF8String>("stringWithUTF8String:")
                                               .classMethod<stringWithCharacters>("stringWithCharacters:length:")
                                               .classMethod<stringWithString>("stringWithString:")
                                               .classMethod<stringWithCString>("stringWithCString:encoding:")
                                               .method<init>("init")
                                               .method<initWithUTF8String>("initWithUTF8String:")
                                               .method<initWithCharacters>("initWithCharacters:length:")
                                               .method<initWithString>("initWithString:")
                                               .method<initWithBytes>("initWithBytes:length:encoding:")
                                               .method<initWithData>("initWithData:encoding:")
                                               .method<initWithCString>("initWithCString:encoding:")
                                               .method<initWithFormat>("initWithFormat:arguments:");

}  // namespace
}  // namespace standin::foundation
