// CoreFoundation objects inside host wrapper objects, by their type identifier.
#include <string_view>

#include "bridge/variant_rules.hpp"
#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "plugin/instance_data.hpp"

namespace bridge {
namespace {

// Answers a CoreFoundation object's type identifier; platform objects of other kinds answer 0 or not at all.
constinit Message<CFTypeID()> typeIdentifier{"_cfTypeID"};

// A wrapper class of CoreFoundation objects puts this into the third word of every instance that it makes. An instance
// without it has another layout and must not be written to.
constexpr uint64_t tag = 0x52424346;
constexpr std::size_t tagWord = 2;

struct Row {
  CFTypeID (*identifier)();
  const char* hostClass;
};

// Every type has a wrapper class of its own name but data, whose name the host has in use.
constexpr const char* hostClassOf(const char* type) {
  return std::string_view(type) == "CFDataZKT" ? "CFBinaryDataZKT" : type;
}

#define BRIDGE_TYPE_ROW(Type) {&Type##GetTypeID, hostClassOf(#Type "ZKT")},
constexpr Row rows[] = {PLATFORM_TYPE_IDENTIFIERS(BRIDGE_TYPE_ROW)};
#undef BRIDGE_TYPE_ROW

HostVariant newSpecificWrapper(NSObject* object) {
  const CFTypeID identifier = CFGetTypeID(object);
  for (const Row& row : rows) {
    if (row.identifier() == identifier) return plugin::newInstance(row.hostClass);
  }
  return nullptr;
}

HostVariant newWrapper(NSObject* object) {
  if (HostVariant wrapper = newSpecificWrapper(object)) return wrapper;
  return plugin::newInstance("CFObjectZKT");
}

HostVariant wrap(NSObject* object) {
  HostVariant wrapper = newWrapper(object);
  if (!wrapper || plugin::readInstanceData<uint64_t>(wrapper, tagWord) != tag) return nullptr;
  plugin::writeInstanceData(wrapper.get(), tag, tagWord);
  plugin::setPlatformObject(wrapper, CFRetain(object));
  return wrapper;
}

bool isCoreFoundationObject(NSObject* object) { return static_cast<int32_t>(typeIdentifier(object)) > 0; }

}  // namespace

std::optional<HostVariant> wrapCoreFoundationObject(NSObject* object) {
  if (!respondsTo(object, typeIdentifier)) return std::nullopt;
  std::optional<HostVariant> wrapper;
  const NSException* const exception = catchException([&] {
    if (isCoreFoundationObject(object)) wrapper = wrap(object);
  });
  if (exception != nullptr) return std::nullopt;
  return wrapper;
}

}  // namespace bridge
