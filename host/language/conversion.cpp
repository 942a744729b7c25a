// Conversions that the language makes by itself.
#include "host/language/conversion.hpp"

#include "host/runtime/array.hpp"
#include "host/runtime/class.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/variant.hpp"

namespace language {
namespace {

Value conformArray(Value value, const Type& type) {
  if (value.isNil()) return value;
  HostObject* const source = value.asObject();
  if (source == nullptr || !host::isArray(source)) throwTypeMismatch("This is no array of " + type.name + ".");
  if (host::elementType(source) == typeOfElements(type)) return value;
  const int64_t last = host::upperBound(source);
  HostOwned<HostObject> copy = host::makeArray(typeOfElements(type), last);
  for (int64_t index = 0; index <= last; ++index) host::setElement(copy, index, host::element(source, index));
  return Value::object(std::move(copy));
}

bool hasText(const HostObject* object) { return host::isBoxed(object) || host::isDate(object); }

}  // namespace

void throwTypeMismatch(const std::string& message) { host::throwException("TypeMismatchException", message); }

Type typeOfElements(Type arrayType) {
  arrayType.array = false;
  return arrayType;
}

Value conform(Value value, const Type& type) {
  if (type.array) return conformArray(std::move(value), type);
  if (value.kind() == type.kind && type.kind != Kind::Object) return value;
  if (type.isVariant()) return value;
  return host::convert(value, type);
}

bool isTrue(const Value& value) {
  if (value.kind() == Kind::Boolean) return value.asBoolean();
  if (!value.isNumber()) throwTypeMismatch("A condition is True or False.");
  return host::toBoolean(value);
}

std::string printed(const Value& value) {
  if (value.isNil()) return "Nil";
  const HostObject* const object = value.asObject();
  return object == nullptr || hasText(object) ? host::toUtf8(value) : object->type->name();
}

}  // namespace language
