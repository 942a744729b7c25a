// The data classes: the private ones behind NSData, and NSMutableData.
#pragma once

#include "standin/foundation/data.hpp"

namespace standin::foundation {

const ClassDefinition& concreteDataClass();
const ClassDefinition& mutableDataClass();

}  // namespace standin::foundation
