// One function for each kind of call that the platform's convention treats in a way of its own, compiled for macOS and
// called from here. All of them send the platform's messages as the library does.
#pragma once

#include <cstdint>

#include "platform/foundation.h"

struct Probe {
  // Results: through memory, in two floating registers, in two integer registers, in one of either kind.
  NSRect (*rectangle)(NSValue*);
  NSSize (*size)(NSValue*);
  NSRange (*range)(NSValue*);
  double (*number)(NSNumber*);
  float (*single)(NSNumber*);
  BOOL (*equal)(NSObject*, NSObject*);
  // A structure by value, and seven arguments, the last of which have no register left.
  NSValue* (*wrapped)(NSRect);
  NSCalendarDate* (*date)(NSInteger year, NSTimeZone*);
  // Any number of arguments: an object, a floating and a short one, and more floating ones than there are registers.
  void (*log)(NSString* format, NSObject*, double, int);
  void (*logMany)(NSString* format, double);

  // The guard primitive.
  NSException* (*caught)(void (*body)(void*), void* context);
  // Calls the body with as much in registers as there is room for, and counts on the way out, whatever the way.
  uint64_t (*through)(void (*body)(), const uint64_t (&values)[5], int* left);
  // The same sum when the body has thrown.
  uint64_t (*after)(void (*body)(), const uint64_t (&values)[5]);
  // Whether what the C++ library throws is caught as what it is.
  bool (*catchesLibraryExceptions)();
};

extern "C" const Probe probe;
