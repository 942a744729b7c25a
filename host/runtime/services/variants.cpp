// Services that make and read variants.
#include "host/runtime/conversion.hpp"
#include "host/runtime/service.hpp"
#include "host/runtime/variant.hpp"

namespace host {
namespace {

HostObject* fromString(HostString* value) { return boxed(Value::string(retain(value))).detach(); }
HostObject* fromText(HostText* value) { return boxed(Value::text(retain(value))).detach(); }
HostObject* fromInteger(int64_t value) { return boxed(Value::integer(value)).detach(); }
HostObject* fromUInt32(uint32_t value) { return boxed(Value::integer(value, Kind::UInt32)).detach(); }
HostObject* fromDouble(double value) { return boxed(Value::number(value)).detach(); }
HostObject* fromSingle(float value) { return boxed(Value::single(value)).detach(); }
HostObject* fromBoolean(bool value) { return boxed(Value::boolean(value)).detach(); }

// The string is the caller's.
HostString* toHostString(HostObject* variant) { return toString(unboxed(variant)).detach(); }
int64_t toInt64(HostObject* variant) { return toInteger(unboxed(variant)); }
double toHostDouble(HostObject* variant) { return toDouble(unboxed(variant)); }
float toSingle(HostObject* variant) { return static_cast<float>(toDouble(unboxed(variant))); }

}  // namespace

std::span<const Service> variantServices() {
  static const Service list[] = {
      service<fromString>("StringToVariant"),    service<fromInteger>("IntegerToVariant"),
      service<fromDouble>("DoubleToVariant"),    service<fromBoolean>("BooleanToVariant"),
      service<fromUInt32>("UInt32ToVariant"),    service<fromSingle>("SingleToVariant"),
      service<fromText>("PluginNewVariantText"), service<toHostString>("VariantToString"),
      service<toInt64>("VariantToInt64"),        service<toSingle>("VariantToSingle"),
      service<toHostDouble>("VariantToDouble"),
  };
  return list;
}

}  // namespace host
