// The names of the platform's exceptions that its public declarations here leave out.
#pragma once

#include "platform/foundation.h"

extern "C" {
extern NSString* const NSCharacterConversionException;
}
