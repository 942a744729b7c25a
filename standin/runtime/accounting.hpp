// How many platform objects are alive: the question that every test asks when it ends.
#pragma once

#include <string>

namespace standin {

long liveObjects();
// Empties the autorelease pools first.
long liveObjectsAfterDrain();
// A line a class: its name and how many instances live.
std::string describeLiveObjects();

}  // namespace standin
