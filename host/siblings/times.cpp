// Media times: host structures, and the methods on NSValue that convert them both ways.
#include <cstring>

#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"

namespace siblings {
namespace {

struct QTTime {
  int64_t value, scale, flags;
};
struct CMTime {
  int64_t value;
  int32_t scale;
  uint32_t flags;
  int64_t epoch;
};
static_assert(sizeof(QTTime) == 24 && sizeof(CMTime) == 24);

// A host structure whose instance data are the bytes of a platform value of that encoding.
struct TimeClass {
  const char* name;
  const char* encoding;
  size_t size;
  const char* fromHost;  // class method of NSValue
  const char* toHost;    // instance method of NSValue
};

constexpr TimeClass timeClasses[] = {
    {"QTKitTimeZKT", "{?=qqq}", sizeof(QTTime), "valueWithQTTimeZKT:", "QTTimeValueZKT"},
    {"QTKitTimeRangeZKT", "{?={?=qqq}{?=qqq}}", 2 * sizeof(QTTime), "valueWithQTTimeRangeZKT:", "QTTimeRangeValueZKT"},
    {"CMTimeZKT", "{?=qiIq}", sizeof(CMTime), "valueWithCMTimeZKT:", "CMTimeValueZKT"},
    {"CMTimeRangeZKT", "{?={?=qiIq}{?=qiIq}}", 2 * sizeof(CMTime), "valueWithCMTimeRangeZKT:", "CMTimeRangeValueZKT"},
    {"CMTimeMappingZKT", "{?={?={?=qiIq}{?=qiIq}}{?={?=qiIq}{?=qiIq}}}", 4 * sizeof(CMTime),
     "valueWithCMTimeMappingZKT:", "CMTimeMappingValueZKT"},
};

// The NSValue of the host structure, autoreleased; nil for nil.
template <size_t row>
NSValue* valueFromHost(Class self, SEL, HostObject* structure) {
  if (structure == nullptr) return nullptr;
  return NSValue::valueWithBytes(self, structure->data(), timeClasses[row].encoding);
}

// A new host structure that the caller owns.
template <size_t row>
HostObject* hostFromValue(NSValue* self, SEL) {
  HostObject* structure = newInstance(timeClasses[row].name);
  if (structure != nullptr) NSValue::getValue(self, structure->data());
  return structure;
}

template <size_t row>
void addMethods() {
  const Class valueClass = classOf<NSValue>();
  class_addMethod(object_getClass(valueClass), sel_registerName(timeClasses[row].fromHost),
                  reinterpret_cast<IMP>(&valueFromHost<row>), "@@:^v");
  class_addMethod(valueClass, sel_registerName(timeClasses[row].toHost), reinterpret_cast<IMP>(&hostFromValue<row>), "^v@:");
}

void constructQTTime(HostObject* self, int64_t value, int64_t scale, int64_t flags) {
  self->word<QTTime>() = {value, scale, flags};
}

void constructCMTime(HostObject* self, int64_t value, int64_t scale, int64_t flags, int64_t epoch) {
  self->word<CMTime>() = {value, static_cast<int32_t>(scale), static_cast<uint32_t>(flags), epoch};
}

// A compound of two equal halves, each of the size of one time structure.
template <size_t half>
void constructHalves(HostObject* self, HostObject* first, HostObject* second) {
  if (first != nullptr) std::memcpy(self->data(), first->data(), half);
  if (second != nullptr) std::memcpy(self->data() + half, second->data(), half);
}

template <size_t row, size_t index>
HostObject* half(HostObject* self, int64_t) {
  HostObject* part = newInstance(timeClasses[row].name);
  const size_t size = timeClasses[row].size;
  if (part != nullptr) std::memcpy(part->data(), self->data() + index * size, size);
  return part;
}

void construct(HostObject*) {}

enum Row : size_t { qtTime, qtTimeRange, cmTime, cmTimeRange, cmTimeMapping };

ClassBuilder builderOf(Row row) {
  ClassBuilder builder(timeClasses[row].name);
  builder.data(timeClasses[row].size).method("Constructor", construct);
  return builder;
}

}  // namespace

void registerTimes() {
  addMethods<qtTime>();
  addMethods<qtTimeRange>();
  addMethods<cmTime>();
  addMethods<cmTimeRange>();
  addMethods<cmTimeMapping>();
  ClassBuilder::registerWithHost(
      builderOf(qtTime)
          .field("timeValue", "Integer", offsetof(QTTime, value))
          .field("timeScale", "Integer", offsetof(QTTime, scale))
          .field("flags", "Integer", offsetof(QTTime, flags))
          .method("Constructor(timeValue as Integer, timeScale as Integer, flags as Integer = 0)", constructQTTime));
  ClassBuilder::registerWithHost(
      builderOf(qtTimeRange)
          .property("time", "QTKitTimeZKT", half<qtTime, 0>)
          .property("duration", "QTKitTimeZKT", half<qtTime, 1>)
          .method("Constructor(time as QTKitTimeZKT, duration as QTKitTimeZKT)", constructHalves<sizeof(QTTime)>));
  ClassBuilder::registerWithHost(
      builderOf(cmTime)
          .field("Value", "Integer", offsetof(CMTime, value))
          .field("TimeScale", "Int32", offsetof(CMTime, scale))
          .field("Flags", "UInt32", offsetof(CMTime, flags))
          .field("Epoch", "Integer", offsetof(CMTime, epoch))
          .method("Constructor(value as Integer, timeScale as Integer, flags as Integer = 1, epoch as Integer = 0)",
                  constructCMTime));
  ClassBuilder::registerWithHost(
      builderOf(cmTimeRange)
          .property("start", "CMTimeZKT", half<cmTime, 0>)
          .property("duration", "CMTimeZKT", half<cmTime, 1>)
          .method("Constructor(start as CMTimeZKT, duration as CMTimeZKT)", constructHalves<sizeof(CMTime)>));
  ClassBuilder::registerWithHost(
      builderOf(cmTimeMapping)
          .property("source", "CMTimeRangeZKT", half<cmTimeRange, 0>)
          .property("target", "CMTimeRangeZKT", half<cmTimeRange, 1>)
          .method("Constructor(source as CMTimeRangeZKT, target as CMTimeRangeZKT)", constructHalves<2 * sizeof(CMTime)>));
}

}  // namespace siblings
