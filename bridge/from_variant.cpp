// Host variants as platform objects, by type code.
#include "bridge/from_variant.hpp"

#include "bridge/array_elements.hpp"
#include "bridge/dates.hpp"
#include "bridge/from_object.hpp"
#include "bridge/strings.hpp"
#include "platform/corefoundation.h"
#include "plugin/host_owned.hpp"
#include "plugin/services.hpp"

namespace bridge {
namespace {

using plugin::REALobject;

template <auto read, auto& make>
NSObject* number(REALobject variant) {
  return make(classOf<NSNumber>(), read(variant));
}

NSObject* boolean(REALobject variant) {
  return NSNumber::numberWithBool(classOf<NSNumber>(), static_cast<BOOL>(plugin::GetVariantInt64(variant)));
}

NSObject* date(REALobject variant) {
  REALobject value = nullptr;
  if (!plugin::REALGetPropValueObject(variant, "DateValue", &value)) return nullptr;
  const auto hostDate = plugin::adoptHost(static_cast<plugin::REALdate*>(value));
  return NewNSDate(hostDate);
}

NSObject* string(REALobject variant) {
  const auto text = plugin::adoptHost(plugin::GetVariantString(variant));
  NSString* const converted = autoreleasedString(text);
  return converted == nullptr ? __CFStringMakeConstantString("") : converted;
}

struct Row {
  int64_t typeCode;
  NSObject* (*convert)(REALobject variant);
};

constexpr Row rows[] = {
    {2, number<plugin::GetVariantInt64, NSNumber::numberWithLong>},
    {3, number<plugin::GetVariantInt64, NSNumber::numberWithLongLong>},
    {4, number<plugin::GetVariantSingle, NSNumber::numberWithFloat>},
    {5, number<plugin::GetVariantDouble, NSNumber::numberWithDouble>},
    {6, number<plugin::GetVariantDouble, NSNumber::numberWithDouble>},
    {7, date},
    {8, string},
    {9, GetObjectAsNSObject},
    {11, boolean},
    {16, number<plugin::GetVariantInt64, NSNumber::numberWithLong>},
    {18, string},
    {19, string},
    {20, string},
    {21, string},
    {23, string},
    {37, string},
};

}  // namespace

NSObject* GetVariantAsNSObject(REALobject variant) {
  if (variant == nullptr) return nullptr;
  const int64_t typeCode = plugin::GetVariantType(variant);
  for (const Row& row : rows) {
    if (row.typeCode == typeCode) return row.convert(variant);
  }
  ArrayConversion* const convert = arrayConversion(typeCode);
  return convert == nullptr ? nullptr : convert(variant);
}

}  // namespace bridge
