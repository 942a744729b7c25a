// NSData and NSMutableData.
#include "standin/foundation/data.hpp"

#include "standin/foundation/checks.hpp"
#include "standin/foundation/data_classes.hpp"
#include "standin/foundation/string.hpp"

namespace standin::foundation {
namespace {

std::string bytesFrom(NSObject* receiver, const char* selector, const void* bytes, NSUInteger count) {
  if (count == 0) return {};
  requireArgument(receiver, selector, bytes);
  return {static_cast<const char*>(bytes), count};
}

// An autoreleased instance of the class: mutable when the class is.
NSData* made(Class cls, std::string bytes) {
  const Owned<NSObject> data = adopt(NSObject::alloc(cls));
  stateOf<Data>(data).bytes = std::move(bytes);
  return static_cast<NSData*>(retain(data.get()).autorelease());
}

bool isMutable(NSData* data) { return isKindOf(data, mutableDataClass().object()); }

NSData* data(Class self) { return made(self, {}); }
NSData* dataWithBytes(Class self, const void* bytes, NSUInteger count) {
  return made(self, bytesFrom(self, "dataWithBytes:length:", bytes, count));
}
NSData* dataWithData(Class self, NSData* other) {
  requireArgument(self, "dataWithData:", other);
  return made(self, stateOf<Data>(other).bytes);
}
// Nil when the file cannot be read.
NSData* dataWithContentsOfFile(Class self, NSString* path) {
  requireArgument(self, "dataWithContentsOfFile:", path);
  std::optional<std::string> bytes = readFile(NSString::fileSystemRepresentation(path));
  return bytes ? made(self, *std::move(bytes)) : nullptr;
}
NSData* initWithBytes(NSData* self, const void* bytes, NSUInteger count) {
  const Owned<NSData> owned = adopt(self);
  stateOf<Data>(self).bytes = bytesFrom(self, "initWithBytes:length:", bytes, count);
  return retain(self).detach();
}
NSData* initWithData(NSData* self, NSData* other) {
  if (other != nullptr) stateOf<Data>(self).bytes = stateOf<Data>(other).bytes;
  return self;
}

const void* bytes(Data& self) { return self.bytes.empty() ? nullptr : self.bytes.data(); }
NSUInteger length(Data& self) { return self.bytes.size(); }

NSData* subdataWithRange(NSData* self, NSRange range) {
  const std::string& bytes = stateOf<Data>(self).bytes;
  requireRange(self, "subdataWithRange:", range, "data", bytes.size());
  return newData(bytes.substr(range.location, range.length)).autorelease();
}
void getBytesInRange(NSData* self, void* buffer, NSRange range) {
  const std::string& bytes = stateOf<Data>(self).bytes;
  requireRange(self, "getBytes:range:", range, "data", bytes.size());
  bytes.copy(static_cast<char*>(buffer), range.length, range.location);
}
// As many of the first `count` as there are.
void getBytes(Data& self, void* buffer, NSUInteger count) { self.bytes.copy(static_cast<char*>(buffer), count); }

BOOL isEqual(Data& self, NSObject* other) { return isData(other) && self.bytes == stateOf<Data>(other).bytes ? YES : NO; }
BOOL isEqualToData(Data& self, NSData* other) { return isEqual(self, other); }
// As on the platform, the first bytes decide.
NSUInteger hash(Data& self) { return std::hash<std::string_view>()(std::string_view(self.bytes).substr(0, 80)); }

// "<48656c6c 6f>"; of long data the beginning and the end.
NSString* description(Data& self) {
  constexpr size_t shown = 1024, kept = 24;
  static constexpr char digits[] = "0123456789abcdef";
  const std::string& bytes = self.bytes;
  std::string text = "<";
  for (size_t at = 0; at < bytes.size(); ++at) {
    if (at != 0 && at % 4 == 0) text += ' ';
    if (bytes.size() > shown && at == kept) {
      text += "... ";
      at = bytes.size() - kept - (bytes.size() - kept) % 4;
    }
    const auto byte = static_cast<uint8_t>(bytes[at]);
    text += {digits[byte >> 4], digits[byte & 15]};
  }
  return newString(text::Text::latin1(text + ">")).autorelease();
}

NSObject* copyWithZone(NSData* self, void*) {
  return isMutable(self) ? newData(stateOf<Data>(self).bytes).detach() : retainObject(self);
}
NSObject* mutableCopyWithZone(Data& self, void*) { return newMutableData(self.bytes).detach(); }

BOOL writeToFile(NSData* self, NSString* path, BOOL atomically) {
  requireArgument(self, "writeToFile:atomically:", path);
  return writeFile(NSString::fileSystemRepresentation(path), bytesOf(self), atomically != NO) ? YES : NO;
}

const ClassDefinition dataClass = defineClass<Data>("NSData", "NSObject")
                                      .classMethod<data>("data")
                                      .classMethod<dataWithBytes>("dataWithBytes:length:")
                                      .classMethod<dataWithData>("dataWithData:")
                                      .classMethod<dataWithContentsOfFile>("dataWithContentsOfFile:")
                                      .method<initWithBytes>("initWithBytes:length:")
                                      .method<initWithData>("initWithData:")
                                      .method<bytes>("bytes")
                                      .method<length>("length")
                                      .method<subdataWithRange>("subdataWithRange:")
                                      .method<getBytes>("getBytes:length:")
                                      .method<getBytesInRange>("getBytes:range:")
                                      .method<isEqual>("isEqual:")
                                      .method<isEqualToData>("isEqualToData:")
                                      .method<hash>("hash")
                                      .method<description>("description")
                                      .method<copyWithZone>("copyWithZone:")
                                      .method<mutableCopyWithZone>("mutableCopyWithZone:")
                                      .method<writeToFile>("writeToFile:atomically:")
                                      .allocatesAs(concreteDataClass());

}  // namespace

const ClassDefinition& concreteDataClass() {
  static const ClassDefinition definition = defineClass<Data>("NSConcreteData", "NSData");
  return definition;
}

bool isData(NSObject* object) { return isKindOf(object, dataClass.object()); }

Owned<NSData> newData(std::string bytes) { return create<Data, NSData>(concreteDataClass(), std::move(bytes)); }
Owned<NSData> newData(std::span<const uint8_t> bytes) {
  return newData(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

std::span<const uint8_t> bytesOf(NSData* data) {
  if (data == nullptr) return {};
  const std::string& bytes = stateOf<Data>(data).bytes;
  return {reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()};
}

}  // namespace standin::foundation
