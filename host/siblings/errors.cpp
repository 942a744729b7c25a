// Errors.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"

namespace siblings {
namespace {

constexpr char errorClass[] = "NSErrorZKT";

NSError* errorIn(HostObject* self) { return wrapped<NSError>(self); }

HostString* domain(HostObject* self, int64_t) { return hostString(NSError::domain(errorIn(self))); }
int64_t code(HostObject* self, int64_t) { return NSError::code(errorIn(self)); }
HostString* localizedDescription(HostObject* self, int64_t) {
  return guarded([self] { return hostString(NSError::localizedDescription(errorIn(self))); });
}

HostObject* errorWithDomain(HostString* domain, int64_t code) {
  return guarded(
      [=] { return wrap(NSError::errorWithDomain(classOf<NSError>(), platformString(domain), code, nullptr), errorClass); });
}

}  // namespace

void registerErrors() {
  ClassBuilder::registerWithHost(
      ClassBuilder(errorClass)
          .wrapper()
          .property("domain", "String", domain)
          .property("code", "Integer", code)
          .property("localizedDescription", "String", localizedDescription)
          .shared("errorWithDomain(domain as String, code as Integer) as NSErrorZKT", errorWithDomain));
}

}  // namespace siblings
