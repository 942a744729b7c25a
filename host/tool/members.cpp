// Looking members up in the classes' records.
#include "host/tool/members.hpp"

#include <stdexcept>

#include "host/runtime/string.hpp"

namespace tool {
namespace {

const host::HostClass& classOf(const Value& object) {
  if (object.asObject() == nullptr) throw std::logic_error("a member of nil");
  return *object.asObject()->type;
}

const host::Property& propertyOf(const Value& object, std::string_view name) {
  const host::Property* found = classOf(object).findProperty(name);
  if (found == nullptr) throw std::logic_error("no property " + std::string(name));
  return *found;
}

}  // namespace

Value make(std::string_view className) { return Value::object(host::Runtime::shared().newInstance(className)); }

Value call(const Value& object, std::string_view declaration, std::vector<Value>& arguments) {
  for (const host::Method* method : classOf(object).findMethods(declaration.substr(0, declaration.find_first_of("( ")))) {
    if (method->text == declaration) return method->invoke(object.asObject(), arguments);
  }
  throw std::logic_error("no member " + std::string(declaration));
}

Value call(const Value& object, std::string_view declaration, std::vector<Value>&& arguments) {
  return call(object, declaration, arguments);
}

Value get(const Value& object, std::string_view property) { return propertyOf(object, property).read(object.asObject()); }

void set(const Value& object, std::string_view property, const Value& value) {
  propertyOf(object, property).write(object.asObject(), value);
}

std::string_view classNameOf(const Value& object) {
  return object.asObject() == nullptr ? std::string_view() : classOf(object).name();
}

std::string utf8(const Value& string) { return string.isString() ? host::utf8Of(string.asString()) : ""; }

}  // namespace tool
