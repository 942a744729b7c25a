// NSNumber: numbers of every C type, and the two booleans.
#include "standin/foundation/number.hpp"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "platform/corefoundation.h"
#include "standin/foundation/immortal.hpp"
#include "standin/foundation/string.hpp"

namespace standin::foundation {
namespace {

// By kind: the platform's encoding of a boolean is that of a char.
constexpr const char* encodings[] = {"c", "c", "C", "s", "S", "i", "I", "q", "Q", "f", "d"};
constexpr size_t sizes[] = {1, 1, 1, 2, 2, 4, 4, 8, 8, 4, 8};

constinit Number trueNumber;
constinit Number falseNumber;

enum class Storage { integer, natural, real };

Storage storageOf(NumberKind kind) {
  switch (kind) {
    case NumberKind::f:
    case NumberKind::d:
      return Storage::real;
    case NumberKind::boolean:
    case NumberKind::C:
    case NumberKind::S:
    case NumberKind::I:
    case NumberKind::Q:
      return Storage::natural;
    default:
      return Storage::integer;
  }
}

template <class Value>
void store(Number& number, NumberKind kind, Value value) {
  number.kind = kind;
  if constexpr (std::is_floating_point_v<Value>) {
    number.real = static_cast<double>(value);
  } else if constexpr (std::is_unsigned_v<Value>) {
    number.natural = value;
  } else {
    number.integer = static_cast<long long>(value);
  }
}

// 2^63 and 2^64 are exact as doubles, and no double lies between them and the limits below.
template <class Integer>
Integer truncated(double value) {
  if (std::isnan(value)) return 0;
  if (value < static_cast<double>(std::numeric_limits<Integer>::min())) return std::numeric_limits<Integer>::min();
  if (value >= static_cast<double>(std::numeric_limits<Integer>::max())) return std::numeric_limits<Integer>::max();
  return static_cast<Integer>(value);
}

template <class Value>
Value valueAs(const Number& number) {
  if constexpr (std::is_floating_point_v<Value>) {
    switch (storageOf(number.kind)) {
      case Storage::integer:
        return static_cast<Value>(number.integer);
      case Storage::natural:
        return static_cast<Value>(number.natural);
      case Storage::real:
        return static_cast<Value>(number.real);
    }
  }
  if (storageOf(number.kind) != Storage::real) return static_cast<Value>(number.natural);
  if constexpr (std::is_unsigned_v<Value>) {
    if (number.real >= 0) return static_cast<Value>(truncated<uint64_t>(number.real));
  }
  return static_cast<Value>(truncated<int64_t>(number.real));
}

bool truthOf(const Number& number) {
  return storageOf(number.kind) == Storage::real ? number.real != 0 : number.natural != 0;
}

// Holds every value of 64-bit integers and of doubles exactly.
long double exactValue(const Number& number) { return valueAs<long double>(number); }

NSInteger compareValues(const Number& left, const Number& right) {
  const long double first = exactValue(left);
  const long double second = exactValue(right);
  if (std::isnan(first) || std::isnan(second)) return NSInteger{std::isnan(second)} - NSInteger{std::isnan(first)};
  return first < second ? -1 : first > second ? 1 : 0;
}

const ClassDefinition concreteClass = defineClass<Number>("__NSCFNumber", "NSNumber");

// A number of a C type: what `numberWith…:`, `initWith…:` and `…Value` do.
template <class Value, NumberKind kind>
NSObject* numberWith(Class, Value value) {
  Owned<NSObject> made = create<Number>(concreteClass);
  store(stateOf<Number>(made), kind, value);
  return made.autorelease();
}
template <class Value, NumberKind kind>
NSObject* initWith(NSObject* self, Value value) {
  store(stateOf<Number>(self), kind, value);
  return self;
}
template <class Value>
Value read(Number& self) {
  return valueAs<Value>(self);
}

NSObject* shared(bool value) { return platformObject(value ? trueNumber : falseNumber); }
NSObject* numberWithBool(Class, BOOL value) { return shared(value != NO); }
NSObject* initWithBool(NSObject* self, BOOL value) {
  releaseObject(self);
  return shared(value != NO);
}
BOOL boolValue(Number& self) { return truthOf(self); }

const char* objCType(Number& self) { return encodings[static_cast<size_t>(self.kind)]; }

void getValue(Number& self, void* destination) {
  if (self.kind == NumberKind::f) {
    const float value = static_cast<float>(self.real);
    std::memcpy(destination, &value, sizeof value);
  } else {
    std::memcpy(destination, &self.natural, sizes[static_cast<size_t>(self.kind)]);  // little-endian
  }
}

BOOL isEqual(NSObject* self, NSObject* other) {
  return self == other || (isNumber(other) && compareValues(stateOf<Number>(self), stateOf<Number>(other)) == 0);
}
BOOL isEqualToNumber(NSObject* self, NSNumber* other) { return isEqual(self, other); }

NSInteger compare(Number& self, NSNumber* other) { return compareValues(self, stateOf<Number>(other)); }

// Numbers of the same value have the same hash, whatever their kinds.
NSUInteger hash(Number& self) {
  if (storageOf(self.kind) != Storage::real) return self.natural;
  if (std::trunc(self.real) == self.real && std::fabs(self.real) < 0x1p64) return valueAs<uint64_t>(self);
  NSUInteger bits;
  std::memcpy(&bits, &self.real, sizeof bits);
  return std::isnan(self.real) ? 0 : bits;
}

// Digits: as many as a decimal number always keeps on its way through the type, and one more.
NSString* description(Number& self) {
  char text[40];
  switch (storageOf(self.kind)) {
    case Storage::integer:
      std::snprintf(text, sizeof text, "%lld", static_cast<long long>(self.integer));
      break;
    case Storage::natural:
      std::snprintf(text, sizeof text, "%llu", static_cast<unsigned long long>(self.natural));
      break;
    case Storage::real:
      std::snprintf(text, sizeof text, "%.*g", self.kind == NumberKind::f ? 7 : 16, std::fabs(self.real));
      return newString((std::signbit(self.real) && !std::isnan(self.real) ? "-" : "") + std::string(text)).autorelease();
  }
  return newString(std::string_view(text)).autorelease();
}

NSObject* copy(NSObject* self, void*) { return retainObject(self); }

template <class Value, NumberKind kind>
void bind(ClassDefinition& definition, const char* factory, const char* init, const char* reader) {
  definition.classMethod<numberWith<Value, kind>>(factory).template method<initWith<Value, kind>>(init);
  if (reader != nullptr) definition.method<read<Value>>(reader);
}

ClassDefinition defineNumber() {
  ClassDefinition definition = defineClass<Number>("NSNumber", "NSValue");
  bind<signed char, NumberKind::c>(definition, "numberWithChar:", "initWithChar:", "charValue");
  bind<unsigned char, NumberKind::C>(definition, "numberWithUnsignedChar:", "initWithUnsignedChar:", "unsignedCharValue");
  bind<short, NumberKind::s>(definition, "numberWithShort:", "initWithShort:", "shortValue");
  bind<unsigned short, NumberKind::S>(definition,
                                      "numberWithUnsignedShort:", "initWithUnsignedShort:", "unsignedShortValue");
  bind<int, NumberKind::i>(definition, "numberWithInt:", "initWithInt:", "intValue");
  bind<unsigned, NumberKind::I>(definition, "numberWithUnsignedInt:", "initWithUnsignedInt:", "unsignedIntValue");
  bind<long, NumberKind::q>(definition, "numberWithLong:", "initWithLong:", "longValue");
  bind<unsigned long, NumberKind::Q>(definition, "numberWithUnsignedLong:", "initWithUnsignedLong:", "unsignedLongValue");
  bind<long long, NumberKind::q>(definition, "numberWithLongLong:", "initWithLongLong:", "longLongValue");
  bind<unsigned long long, NumberKind::Q>(
      definition, "numberWithUnsignedLongLong:", "initWithUnsignedLongLong:", "unsignedLongLongValue");
  bind<long, NumberKind::q>(definition, "numberWithInteger:", "initWithInteger:", "integerValue");
  bind<unsigned long, NumberKind::Q>(definition,
                                     "numberWithUnsignedInteger:", "initWithUnsignedInteger:", "unsignedIntegerValue");
  bind<float, NumberKind::f>(definition, "numberWithFloat:", "initWithFloat:", "floatValue");
  bind<double, NumberKind::d>(definition, "numberWithDouble:", "initWithDouble:", "doubleValue");
  return definition.allocatesAs(concreteClass)
      .classMethod<numberWithBool>("numberWithBool:")
      .method<initWithBool>("initWithBool:")
      .method<boolValue>("boolValue")
      .method<objCType>("objCType")
      .method<getValue>("getValue:")
      .method<isEqual>("isEqual:")
      .method<isEqualToNumber>("isEqualToNumber:")
      .method<compare>("compare:")
      .method<hash>("hash")
      .method<description>("description")
      .method<description>("stringValue")
      .method<copy>("copyWithZone:");
}

const ClassDefinition numberClass = defineNumber();
const ClassDefinition booleanClass = defineClass<Number>("__NSCFBoolean", "NSNumber");

NSObject* placeBoolean(Number& number, bool value) {
  store(number, NumberKind::boolean, static_cast<uint64_t>(value));
  return makeImmortal(number, booleanClass);
}
[[maybe_unused]] NSObject* const placed[] = {placeBoolean(trueNumber, true), placeBoolean(falseNumber, false)};

template <class Value>
Owned<NSNumber> newNumberOf(NumberKind kind, Value value) {
  Owned<NSNumber> made = create<Number, NSNumber>(concreteClass);
  store(stateOf<Number>(made), kind, value);
  return made;
}

}  // namespace

Owned<NSNumber> newNumber(bool value) { return retain(static_cast<NSNumber*>(shared(value))); }
Owned<NSNumber> newNumber(int value) { return newNumberOf(NumberKind::i, value); }
Owned<NSNumber> newNumber(long value) { return newNumberOf(NumberKind::q, value); }
Owned<NSNumber> newNumber(long long value) { return newNumberOf(NumberKind::q, value); }
Owned<NSNumber> newNumber(unsigned int value) { return newNumberOf(NumberKind::I, value); }
Owned<NSNumber> newNumber(unsigned long value) { return newNumberOf(NumberKind::Q, value); }
Owned<NSNumber> newNumber(float value) { return newNumberOf(NumberKind::f, value); }
Owned<NSNumber> newNumber(double value) { return newNumberOf(NumberKind::d, value); }

bool isNumber(NSObject* object) { return isKindOf(object, numberClass.object()); }

int64_t integerOf(NSObject* number) { return isNumber(number) ? valueAs<int64_t>(stateOf<Number>(number)) : 0; }
double doubleOf(NSObject* number) { return isNumber(number) ? valueAs<double>(stateOf<Number>(number)) : 0; }
bool boolOf(NSObject* number) { return isNumber(number) && truthOf(stateOf<Number>(number)); }

}  // namespace standin::foundation

extern "C" {
const CFBooleanRef kCFBooleanTrue = reinterpret_cast<CFBooleanRef>(&standin::foundation::trueNumber);
const CFBooleanRef kCFBooleanFalse = reinterpret_cast<CFBooleanRef>(&standin::foundation::falseNumber);
}
