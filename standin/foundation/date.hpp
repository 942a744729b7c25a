// Dates for C++ code, and the state that all dates share.
#pragma once

#include "platform/foundation.h"
#include "standin/runtime/object.hpp"

namespace standin::foundation {

struct Date : Object {
  double interval = 0;  // seconds since the reference date
};

Owned<NSDate> newDate(double secondsSinceReference);

// "2014-03-05 06:07:08 +0100" in the zone; nil is Greenwich.
NSString* describeDate(const Date& date, NSTimeZone* zone);

}  // namespace standin::foundation
