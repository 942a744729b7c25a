// Members of plug-in classes, called by their declarations.
#pragma once

#include <string_view>
#include <vector>

#include "host/runtime/runtime.hpp"

namespace tool {

using host::Value;

// A new instance, of a class that the plug-ins have.
Value make(std::string_view className);
// The member of exactly that declaration. Arguments by reference are replaced by what they got. Throws host::HostException.
Value call(const Value& object, std::string_view declaration, std::vector<Value>& arguments);
Value call(const Value& object, std::string_view declaration, std::vector<Value>&& arguments = {});
Value get(const Value& object, std::string_view property);
// REQUIRES a value of the property's type.
void set(const Value& object, std::string_view property, const Value& value);

// "" when the value is no object.
std::string_view classNameOf(const Value& object);
// The text of a string, "" for none.
std::string utf8(const Value& string);

}  // namespace tool
