// Services that read and write properties by name. They answer whether they could.
#include <type_traits>

#include "host/runtime/classes/classes.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/runtime.hpp"
#include "host/runtime/service.hpp"
#include "host/runtime/variant.hpp"

namespace host {
namespace {

// The properties of Variant read every object.
const Property* findProperty(const HostObject* object, const char* name) {
  if (object == nullptr || name == nullptr) return nullptr;
  const Property* own = object->type->findProperty(name);
  return own != nullptr ? own : builtinClass<variantClass>().findProperty(name);
}

bool store(const Value& value, int64_t* result) {
  if (!value.isNumber() && value.kind() != Kind::Boolean) return false;
  *result = toInteger(value);
  return true;
}

template <class Number>
requires std::is_floating_point_v<Number>
bool store(const Value& value, Number* result) {
  if (!value.isNumber()) return false;
  *result = static_cast<Number>(toDouble(value));
  return true;
}

bool store(const Value& value, HostString** result) {
  if (!value.isString() && !value.isText()) return false;
  *result = toString(value).detach();
  return true;
}

bool store(const Value& value, HostObject** result) {
  if (!value.isObject() && !value.isNil()) return false;
  *result = boxed(value).detach();
  return true;
}

// A getter that throws leaves the property unread. An exception that was pending before stays so.
template <class Result>
bool getProperty(HostObject* object, const char* name, Result* result) {
  const Property* property = findProperty(object, name);
  if (property == nullptr) return false;
  const PendingExceptionAside before;
  try {
    return store(property->read(object), result);
  } catch (const HostException&) {
    return false;
  }
}

bool setProperty(HostObject* object, const char* name, const Value& value) {
  const Property* property = findProperty(object, name);
  if (property == nullptr || property->isReadOnly()) return false;
  const PendingExceptionAside before;
  property->write(object, value);
  return true;
}

bool setString(HostObject* object, const char* name, HostString* value) {
  return setProperty(object, name, Value::string(retain(value)));
}

bool setInteger(HostObject* object, const char* name, int64_t value) {
  return setProperty(object, name, Value::integer(value));
}

// Two services read integers; each counts its own calls.
bool getInt64(HostObject* object, const char* name, int64_t* result) { return getProperty(object, name, result); }

}  // namespace

std::span<const Service> propertyServices() {
  static const Service list[] = {
      service<setString>("REALSetPropValueString"),
      service<setInteger>("REALSetPropValueInteger"),
      service<getProperty<HostString*>>("REALGetPropValueString"),
      service<getProperty<int64_t>>("REALGetPropValueInteger"),
      service<getInt64>("REALGetPropValueInt64"),
      service<getProperty<float>>("REALGetPropValueSingle"),
      service<getProperty<double>>("REALGetPropValueDouble"),
      service<getProperty<HostObject*>>("REALGetPropValueObject"),
  };
  return list;
}

}  // namespace host
