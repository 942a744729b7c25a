// Faults on purpose.
#include "host/runtime/faults.hpp"

#include "host/runtime/service.hpp"

namespace host {

void Faults::switchOff(std::string_view name) { missingUntil(name, std::numeric_limits<int64_t>::max()); }

void Faults::missingUntil(std::string_view name, int64_t lookup) {
  lookups_.insert_or_assign(std::string(name), Lookup{0, lookup});
}

void Faults::failFromCall(std::string_view name, int64_t call) {
  const Service* service = findService(name);
  if (service != nullptr) *service->counter = {0, call};
}

void Faults::clear() {
  lookups_.clear();
  allOff_ = false;
  for (const Service& service : services()) *service.counter = {};
}

int64_t Faults::lookups(std::string_view name) const {
  const auto found = lookups_.find(name);
  return found != lookups_.end() ? found->second.count : 0;
}

int64_t Faults::calls(std::string_view name) const {
  const Service* service = findService(name);
  return service != nullptr ? service->counter->calls : 0;
}

bool Faults::countLookup(std::string_view name) {
  auto found = lookups_.find(name);
  if (found == lookups_.end()) found = lookups_.emplace(name, Lookup()).first;
  return ++found->second.count >= found->second.missingUntil && !allOff_;
}

}  // namespace host
