// Platform numbers as host variants, by the type that they were made from.
#include "bridge/variant_rules.hpp"

namespace bridge {
namespace {

using plugin::REALobject;

// Reads the number with one message and makes a variant of it with one service, through the type in between.
template <class Between, auto& value, auto& service>
REALobject make(NSNumber* number) {
  return service(static_cast<Between>(value(number)));
}

struct Row {
  std::string_view encoding;
  REALobject (*make)(NSNumber*);
};

// The host has no unsigned 64-bit variant: "Q" keeps its low 32 bits.
constexpr Row rows[] = {
    {"c", make<bool, NSNumber::boolValue, plugin::REALNewVariantBoolean>},
    {"C", make<int64_t, NSNumber::unsignedCharValue, plugin::REALNewVariantInteger>},
    {"s", make<int64_t, NSNumber::shortValue, plugin::REALNewVariantInteger>},
    {"S", make<int64_t, NSNumber::unsignedShortValue, plugin::REALNewVariantInteger>},
    {"i", make<int64_t, NSNumber::intValue, plugin::REALNewVariantInteger>},
    {"I", make<uint32_t, NSNumber::unsignedIntValue, plugin::REALNewVariantUInt32>},
    {"q", make<int64_t, NSNumber::longValue, plugin::REALNewVariantInteger>},
    {"Q", make<uint32_t, NSNumber::unsignedLongValue, plugin::REALNewVariantUInt32>},
    {"f", make<float, NSNumber::floatValue, plugin::REALNewVariantSingle>},
};
constexpr auto makeDouble = make<double, NSNumber::doubleValue, plugin::REALNewVariantDouble>;

}  // namespace

HostVariant variantOfNumber(NSNumber* number) {
  const std::string_view encoding = encodingOf(number);
  for (const Row& row : rows) {
    if (row.encoding == encoding) return plugin::adoptHost(row.make(number));
  }
  return plugin::adoptHost(makeDouble(number));
}

}  // namespace bridge
