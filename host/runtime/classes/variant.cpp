// Variants: values in boxes, and the properties by which plug-ins read them.
#include "host/runtime/variant.hpp"

#include <cstring>

#include "host/runtime/array.hpp"
#include "host/runtime/classes/classes.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/encoding.hpp"
#include "host/runtime/exception.hpp"

namespace host {
namespace {

constexpr int64_t dateCode = 7, objectCode = 9, arrayCode = 4096;

struct Variant {
  Value value;
  int64_t typeCode = 0;
};

int64_t typeCodeOfElements(const Type& type) {
  if (type.kind != Kind::Object) return typeCode(type.kind);
  return equalNames(type.name, dateClass.name) ? dateCode : objectCode;
}

template <class Number>
std::string numberKey(char sort, Number number) {
  std::string key(1 + sizeof(Number), sort);
  std::memcpy(key.data() + 1, &number, sizeof(Number));
  return key;
}

std::string numberKey(const Value& value) {
  if (value.kind() == Kind::UInt64 && value.asInteger() < 0) return numberKey('u', value.asUnsigned());
  if (value.isInteger()) return numberKey('i', value.asInteger());
  const double number = toDouble(value);
  const int64_t whole = toInteger(value);
  const bool isWhole = static_cast<double>(whole) == number && number < 9e18;
  return isWhole ? numberKey('i', whole) : numberKey('d', number);
}

// Any object serves as a variant, so the properties read every object.
int64_t type(HostObject* self, int64_t) { return typeCodeOf(self); }
int64_t integerValue(HostObject* self, int64_t) { return toInteger(unboxed(self)); }
double doubleValue(HostObject* self, int64_t) { return toDouble(unboxed(self)); }
float singleValue(HostObject* self, int64_t) { return static_cast<float>(toDouble(unboxed(self))); }
bool booleanValue(HostObject* self, int64_t) { return toBoolean(unboxed(self)); }
HostString* stringValue(HostObject* self, int64_t) { return toString(unboxed(self)).detach(); }
HostText* textValue(HostObject* self, int64_t) { return HostText::make(toUtf8(unboxed(self))).detach(); }

HostObject* dateValue(HostObject* self, int64_t) {
  if (!isDate(self)) throwException("TypeMismatchException", "The variant holds no Date.");
  return retain(self).detach();
}

HostObject* objectValue(HostObject* self, int64_t) {
  if (isBoxed(self)) throwException("TypeMismatchException", "The variant holds no object.");
  return retain(self).detach();
}

const BuiltinProperty properties[] = {
    {"Type as Integer", native(type)},
    {"BooleanValue as Boolean", native(booleanValue)},
    {"DateValue as Date", native(dateValue)},
    {"DoubleValue as Double", native(doubleValue)},
    {"Int64Value as Integer", native(integerValue)},
    {"IntegerValue as Integer", native(integerValue)},
    {"LongValue as Integer", native(integerValue)},
    {"ObjectValue as Object", native(objectValue)},
    {"SingleValue as Single", native(singleValue)},
    {"StringValue as String", native(stringValue)},
    {"TextValue as Text", native(textValue)},
};

}  // namespace

const BuiltinClass variantClass{.name = "Variant", .state = stateOf<Variant>(), .properties = properties};

HostOwned<HostObject> boxed(const Value& value) {
  if (value.isNil() || value.isObject()) return retain(value.asObject());
  return boxedWithTypeCode(value, typeCode(value.kind()));
}

HostOwned<HostObject> boxedWithTypeCode(const Value& value, int64_t typeCode) {
  HostOwned<HostObject> box = HostObject::make(builtinClass<variantClass>());
  box->stateAs<Variant>() = {value, typeCode};
  return box;
}

bool isBoxed(const HostObject* object) { return isInstanceOf<variantClass>(object); }

Value unboxed(HostObject* variant) {
  return isBoxed(variant) ? variant->stateAs<Variant>().value : Value::object(retain(variant));
}

int64_t typeCodeOf(const HostObject* variant) {
  if (variant == nullptr) return 0;
  if (isBoxed(variant)) return variant->stateAs<Variant>().typeCode;
  if (isArray(variant)) return arrayCode + typeCodeOfElements(elementType(variant));
  return isDate(variant) ? dateCode : objectCode;
}

int64_t typeCodeOf(const Value& value) { return value.isObject() ? typeCodeOf(value.asObject()) : typeCode(value.kind()); }

std::string keyOf(const Value& value) {
  if (value.isNil()) return "";
  if (value.isString() || value.isText()) return "s" + foldedCase(toUtf8(value));
  if (value.kind() == Kind::Boolean) return value.asBoolean() ? "b1" : "b0";
  if (value.isObject()) return numberKey('o', value.asObject());
  return numberKey(value);
}

}  // namespace host
