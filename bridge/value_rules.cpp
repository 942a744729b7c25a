// Platform values that hold structures as host structures, by their encoding.
#include "bridge/sibling_messages.hpp"
#include "bridge/variant_rules.hpp"
#include "plugin/instance_data.hpp"

namespace bridge {
namespace {

using Time = ValueExtensions;

struct Row {
  std::string_view encoding;
  HostVariant (*make)(NSValue*, const char* hostClass);
  const char* hostClass;  // nil: the sibling's method knows
};

// The host structure has the same fields in the same order.
template <auto& fields>
HostVariant structure(NSValue* value, const char* hostClass) {
  HostVariant result = plugin::newInstance(hostClass);
  if (result) plugin::writeInstanceData(result.get(), fields(value));
  return result;
}

// Only where a sibling library has taught values about such times.
template <auto& time>
HostVariant mediaTime(NSValue* value, const char*) {
  return plugin::adoptHost(respondsTo(value, time) ? time(value) : nullptr);
}

constexpr Row rows[] = {
    {"{CGRect={CGPoint=dd}{CGSize=dd}}", structure<NSValue::rectValue>, "NSRectZKT"},
    {"{CGSize=dd}", structure<NSValue::sizeValue>, "NSSizeZKT"},
    {"{_NSRange=QQ}", structure<NSValue::rangeValue>, "NSRangeZKT"},
    {"{CGPoint=dd}", structure<NSValue::pointValue>, "NSPointZKT"},
    {"{?=qqq}", mediaTime<Time::QTTimeValueZKT>, nullptr},
    {"{?={?=qqq}{?=qqq}}", mediaTime<Time::QTTimeRangeValueZKT>, nullptr},
    {"{?=qiIq}", mediaTime<Time::CMTimeValueZKT>, nullptr},
    {"{?={?=qiIq}{?=qiIq}}", mediaTime<Time::CMTimeRangeValueZKT>, nullptr},
    {"{?={?={?=qiIq}{?=qiIq}}{?={?=qiIq}{?=qiIq}}}", mediaTime<Time::CMTimeMappingValueZKT>, nullptr},
};

}  // namespace

HostVariant variantOfValue(NSValue* value) {
  const std::string_view encoding = encodingOf(value);
  for (const Row& row : rows) {
    if (row.encoding == encoding) return row.make(value, row.hostClass);
  }
  return nullptr;
}

}  // namespace bridge
