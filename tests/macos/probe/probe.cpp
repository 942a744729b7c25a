// The functions of the probe.
#include "tests/macos/probe/probe.hpp"

#include <stdexcept>
#include <string>

#include "platform/guard.h"

namespace {

NSRect rectangle(NSValue* value) { return NSValue::rectValue(value); }
NSSize size(NSValue* value) { return NSValue::sizeValue(value); }
NSRange range(NSValue* value) { return NSValue::rangeValue(value); }
double number(NSNumber* value) { return NSNumber::doubleValue(value); }
float single(NSNumber* value) { return NSNumber::floatValue(value); }
BOOL equal(NSObject* left, NSObject* right) { return NSObject::isEqual(left, right) ? YES : NO; }
NSValue* wrapped(NSRect value) { return NSValue::valueWithRect(classOf<NSValue>(), value); }
NSCalendarDate* date(NSInteger year, NSTimeZone* zone) {
  return NSCalendarDate::dateWithYear(classOf<NSCalendarDate>(), year, 2, 3, 4, 5, 6, zone);
}
void log(NSString* format, NSObject* object, double floating, int whole) { NSLog(format, object, floating, whole); }
void logMany(NSString* format, double first) {
  NSLog(format, first, first + 1, first + 2, first + 3, first + 4, first + 5, first + 6, first + 7, first + 8);
}

uint64_t mixed(uint64_t first, uint64_t second, uint64_t third, uint64_t fourth, uint64_t fifth) {
  return first + 3 * second + 5 * third + 7 * fourth + 11 * fifth;
}
struct Leaving {
  int* count;
  ~Leaving() { ++*count; }
};
uint64_t through(void (*body)(), const uint64_t (&values)[5], int* left) {
  const Leaving leaving{left};
  const uint64_t first = values[0], second = values[1], third = values[2], fourth = values[3], fifth = values[4];
  body();
  return mixed(first, second, third, fourth, fifth);
}
uint64_t after(void (*body)(), const uint64_t (&values)[5]) {
  const uint64_t first = values[0], second = values[1], third = values[2], fourth = values[3], fifth = values[4];
  try {
    body();
    return 0;
  } catch (...) {
    return mixed(first, second, third, fourth, fifth);
  }
}
bool catchesLibraryExceptions() {
  try {
    std::string().insert(1, "x", 1);
  } catch (const std::out_of_range& thrown) {
    return *thrown.what() != 0;
  }
  return false;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) const Probe probe = {
    rectangle,
    size,
    range,
    number,
    single,
    equal,
    wrapped,
    date,
    log,
    logMany,
    platform_catchException,
    through,
    after,
    catchesLibraryExceptions,
};
