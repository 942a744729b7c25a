// Platform objects inside host wrapper objects, by the tables of classes and by class name.
#include <algorithm>

#include "bridge/platform_classes.hpp"
#include "bridge/sibling_messages.hpp"
#include "bridge/variant_rules.hpp"
#include "plugin/wrappers.hpp"

namespace bridge {
namespace {

using plugin::REALobject;

// The platform classes of a table, all looked up when the table is first reached and kept, nil included.
template <auto& table>
const auto& classesOf() {
  static const auto classes = [] {
    std::array<Class, std::size(table)> found{};
    std::transform(std::begin(table), std::end(table), found.begin(),
                   [](const WrappedClass& row) { return objc_getClass(row.name.platformClass()); });
    return found;
  }();
  return classes;
}

REALobject wrapView(NSObject* view, Class viewClass) {
  const Class values = classOf<NSValue>();
  if (respondsTo(values, ValueExtensions::NewQTKitNSViewZKT)) {
    if (const REALobject wrapper = ValueExtensions::NewQTKitNSViewZKT(values, view)) return wrapper;
  }
  return plugin::NewNSObjectZKT(view, viewClass);
}

REALobject wrap(NSObject* object, Class platformClass, const WrappedClass& row) {
  switch (row.wrapping) {
    case Wrapping::plain:
      return plugin::wrapRegistered(object, row.name.hostClass());
    case Wrapping::nearest:
      return plugin::NewNSObjectZKT(object, platformClass);
    case Wrapping::view:
      return wrapView(object, platformClass);
  }
  return nullptr;
}

template <auto& table>
std::optional<HostVariant> wrapByTable(NSObject* object) {
  const auto& classes = classesOf<table>();
  for (std::size_t row = 0; row < classes.size(); ++row) {
    if (NSObject::isKindOfClass(object, classes[row])) return plugin::adoptHost(wrap(object, classes[row], table[row]));
  }
  return std::nullopt;
}

}  // namespace

std::optional<HostVariant> wrapKnownClass(NSObject* object) {
  if (auto wrapper = wrapByTable<wrappedClasses>(object)) return wrapper;
  return wrapByTable<optionalClasses>(object);
}

HostVariant wrapByClassName(NSObject* object) {
  return plugin::adoptHost(plugin::NewNSObjectZKT(object, NSObject::class_(object)));
}

}  // namespace bridge
