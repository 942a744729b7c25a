// Values of documents, described for people and as JSON.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "host/runtime/value.hpp"

namespace tool {

struct Description;
struct Field;
using Fields = std::vector<Field>;
using Items = std::vector<Description>;

struct Description {
  std::variant<std::monostate, bool, double, std::string, Fields, Items> value;
};

struct Field {
  std::string name;
  Description value;
};

// Numbers, texts, dictionaries, and what is to be known of the objects that attributes are.
Description describeValue(const host::Value& value);

std::string quotedJson(const std::string& utf8);
std::string asJson(const Description& description);
// On one line: "fontName Times-Roman, pointSize 12".
std::string asText(const Description& description);

}  // namespace tool
