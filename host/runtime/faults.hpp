// Faults on purpose: services and methods that are missing, appear late, or stop working.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "host/runtime/declaration.hpp"

namespace host {

// Calls of one service, counted, and the first one that does nothing.
struct CallCounter {
  int64_t calls = 0;
  int64_t failFrom = std::numeric_limits<int64_t>::max();
};

// Keyed by a service's name, or by the declaration by which a plug-in looks up a method.
class Faults {
 public:
  // Never found.
  void switchOff(std::string_view name);
  // Found from the k-th look-up on, the first being 1.
  void missingUntil(std::string_view name, int64_t lookup);
  // The n-th call and all later ones do nothing and answer the empty value. Services only.
  void failFromCall(std::string_view name, int64_t call);
  // Every service is missing.
  void switchOffAll(bool off) { allOff_ = off; }
  // Forgets every fault and count.
  void clear();

  int64_t lookups(std::string_view name) const;
  int64_t calls(std::string_view name) const;

  // Counts the look-up and tells whether it is to find anything.
  bool countLookup(std::string_view name);

 private:
  struct Lookup {
    int64_t count = 0;
    int64_t missingUntil = 0;
  };
  TextMap<Lookup> lookups_;
  bool allOff_ = false;
};

}  // namespace host
