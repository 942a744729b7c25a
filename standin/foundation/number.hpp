// Numbers for C++ code: making them and reading them without messages.
#pragma once

#include "platform/foundation.h"
#include "standin/runtime/object.hpp"

namespace standin::foundation {

// How a number holds its value; each is named after the type encoding that `objCType` answers.
enum class NumberKind : uint8_t { boolean, c, C, s, S, i, I, q, Q, f, d };

// The state of numbers. Signed kinds hold `integer`, unsigned ones (and booleans) `natural`, the others `real`.
struct Number : Object {
  constexpr Number() : kind(NumberKind::i), integer(0) {}
  NumberKind kind;
  union {
    int64_t integer;
    uint64_t natural;
    double real;
  };
};

// A new number of the value, its kind following the C++ type; bool answers the shared true or false.
Owned<NSNumber> newNumber(bool value);
Owned<NSNumber> newNumber(int value);
Owned<NSNumber> newNumber(long value);
Owned<NSNumber> newNumber(long long value);
Owned<NSNumber> newNumber(unsigned int value);
Owned<NSNumber> newNumber(unsigned long value);
Owned<NSNumber> newNumber(float value);
Owned<NSNumber> newNumber(double value);

bool isNumber(NSObject* object);

// The value converted: integers wrap to the width asked for, reals are cut towards zero and stop at the limits of 64 bits.
// Anything but a number, nil included, answers 0.
int64_t integerOf(NSObject* number);
double doubleOf(NSObject* number);
bool boolOf(NSObject* number);

}  // namespace standin::foundation
