// NSValue: a C value in an object, with the encoding of its type.
#include <cstring>
#include <functional>
#include <string>

#include "standin/foundation/string.hpp"
#include "standin/foundation/type_encoding.hpp"
#include "standin/runtime/class_object.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::foundation {
namespace {

struct Value : Object {
  Value() = default;
  Value(const void* content, size_t size, std::string encoding)
      : type(std::move(encoding)), bytes(static_cast<const char*>(content), size) {}
  std::string type;
  std::string bytes;
};

// The structures that have messages of their own.
template <class Structure>
constexpr const char* encodingOf = nullptr;
template <>
constexpr const char* encodingOf<NSRange> = "{_NSRange=QQ}";
template <>
constexpr const char* encodingOf<NSPoint> = "{CGPoint=dd}";
template <>
constexpr const char* encodingOf<NSSize> = "{CGSize=dd}";
template <>
constexpr const char* encodingOf<NSRect> = "{CGRect={CGPoint=dd}{CGSize=dd}}";
template <>
constexpr const char* encodingOf<void*> = "^v";

extern const ClassDefinition concreteClass;

template <class Structure>
NSObject* valueWith(Class, Structure structure) {
  return create<Value>(concreteClass, &structure, sizeof structure, encodingOf<Structure>).autorelease();
}

template <class Structure>
Structure read(NSObject* self) {
  const Value& value = stateOf<Value>(self);
  if (value.type != encodingOf<Structure>)
    raise(NSInvalidArgumentException, "The value is of type " + value.type + " and not of type " + encodingOf<Structure>);
  Structure structure;
  std::memcpy(&structure, value.bytes.data(), sizeof structure);
  return structure;
}

void fill(NSObject* value, const void* bytes, const char* type, const char* selector) {
  const std::optional<size_t> size = type != nullptr ? encodedSize(type) : std::nullopt;
  if (!size || bytes == nullptr) {
    raise(NSInvalidArgumentException,
          describeMethod(value, selector) + (bytes == nullptr ? ": nil bytes" : ": no complete type encoding"));
  }
  stateOf<Value>(value).type = type;
  stateOf<Value>(value).bytes.assign(static_cast<const char*>(bytes), *size);
}

NSObject* initWithBytes(NSObject* self, const void* bytes, const char* type) {
  Owned<NSObject> value = adopt(self);
  fill(value, bytes, type, "initWithBytes:objCType:");
  return value.detach();
}
NSObject* valueWithBytes(Class self, const void* bytes, const char* type) {
  return adopt(initWithBytes(NSObject::alloc(self), bytes, type)).autorelease();
}

const char* objCType(Value& self) { return self.type.c_str(); }
void getValue(Value& self, void* destination) { std::memcpy(destination, self.bytes.data(), self.bytes.size()); }

BOOL isEqual(Value& self, NSObject* other) {
  if (!isKindOf(other, concreteClass.object())) return NO;
  return self.type == stateOf<Value>(other).type && self.bytes == stateOf<Value>(other).bytes;
}

NSUInteger hash(Value& self) { return std::hash<std::string>()(self.bytes); }

NSString* description(Value& self) {
  static constexpr char digits[] = "0123456789abcdef";
  std::string text = self.type + " <";
  for (const char byte : self.bytes) {
    text += digits[static_cast<unsigned char>(byte) >> 4];
    text += digits[byte & 15];
  }
  return newString(text + ">").autorelease();
}

NSObject* copy(NSObject* self, void*) { return retainObject(self); }

const ClassDefinition concreteClass = defineClass<Value>("NSConcreteValue", "NSValue")
                                          .method<initWithBytes>("initWithBytes:objCType:")
                                          .method<objCType>("objCType")
                                          .method<getValue>("getValue:")
                                          .method<read<NSRange>>("rangeValue")
                                          .method<read<NSPoint>>("pointValue")
                                          .method<read<NSSize>>("sizeValue")
                                          .method<read<NSRect>>("rectValue")
                                          .method<read<void*>>("pointerValue")
                                          .method<isEqual>("isEqual:")
                                          .method<hash>("hash")
                                          .method<description>("description")
                                          .method<copy>("copyWithZone:");

const ClassDefinition valueClass = defineClass("NSValue", "NSObject")
                                       .allocatesAs(concreteClass)
                                       .classMethod<valueWith<NSRange>>("valueWithRange:")
                                       .classMethod<valueWith<NSPoint>>("valueWithPoint:")
                                       .classMethod<valueWith<NSSize>>("valueWithSize:")
                                       .classMethod<valueWith<NSRect>>("valueWithRect:")
                                       .classMethod<valueWith<void*>>("valueWithPointer:")
                                       .classMethod<valueWithBytes>("valueWithBytes:objCType:");

}  // namespace
}  // namespace standin::foundation
