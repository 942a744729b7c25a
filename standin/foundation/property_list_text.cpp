// The text in which collections describe themselves.
#include "standin/foundation/property_list_text.hpp"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_object.hpp"

namespace standin::foundation {
namespace {

using KeyAndValue = std::pair<NSObject*, NSObject*>;

bool isPlain(char16_t unit) {
  return (unit >= '0' && unit <= '9') || (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') || unit == '_';
}

void appendEscaped(std::string& out, char16_t unit) {
  if (unit == '\n') {
    out += "\\n";
  } else if (unit == '"' || unit == '\\') {
    out += '\\';
    out += static_cast<char>(unit);
  } else if (unit < 0x80) {
    out += static_cast<char>(unit);
  } else {
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\U%04x", static_cast<unsigned>(unit));
    out += escape;
  }
}

void appendText(std::string& out, NSString* text) {
  const std::u16string units = text != nullptr ? unitsOf(text) : std::u16string();
  const bool plain = !units.empty() && std::all_of(units.begin(), units.end(), isPlain);
  if (!plain) out += '"';
  for (const char16_t unit : units) appendEscaped(out, unit);
  if (!plain) out += '"';
}

bool isKind(NSObject* object, const char* className) { return isKindOf(object, findClass(className)); }

void appendObject(std::string& out, NSObject* object, size_t indent);

void appendElements(std::string& out, std::span<NSObject* const> elements, size_t indent) {
  out += "(\n";
  for (size_t index = 0; index < elements.size(); ++index) {
    out.append(indent + 4, ' ');
    appendObject(out, elements[index], indent + 4);
    out += index + 1 < elements.size() ? ",\n" : "\n";
  }
  out.append(indent, ' ') += ')';
}

std::vector<KeyAndValue> entriesForReading(NSDictionary* dictionary) {
  std::vector<KeyAndValue> entries;
  forEachEntry(dictionary, [&](NSObject* key, NSObject* value) { entries.emplace_back(key, value); });
  if (std::all_of(entries.begin(), entries.end(), [](const KeyAndValue& entry) { return isString(entry.first); })) {
    std::stable_sort(entries.begin(), entries.end(), [](const KeyAndValue& left, const KeyAndValue& right) {
      return unitsOf(static_cast<NSString*>(left.first)) < unitsOf(static_cast<NSString*>(right.first));
    });
  }
  return entries;
}

void appendEntries(std::string& out, NSDictionary* dictionary, size_t indent) {
  out += "{\n";
  for (const auto& [key, value] : entriesForReading(dictionary)) {
    out.append(indent + 4, ' ');
    appendObject(out, key, indent + 4);
    out += " = ";
    appendObject(out, value, indent + 4);
    out += ";\n";
  }
  out.append(indent, ' ') += '}';
}

void appendSet(std::string& out, NSObject* set, size_t indent) {
  std::vector<NSObject*> members;
  stateOf<Dictionary>(set).table.forEach([&](NSObject* member, NSObject*) { members.push_back(member); });
  out += '{';
  appendElements(out, members, indent);
  out += '}';
}

void appendObject(std::string& out, NSObject* object, size_t indent) {
  if (isString(object)) {
    appendText(out, static_cast<NSString*>(object));
  } else if (isKind(object, "NSDictionary") && stateOf<Dictionary>(object).table.holdsObjects()) {
    appendEntries(out, static_cast<NSDictionary*>(object), indent);
  } else if (isKind(object, "NSArray")) {
    appendElements(out, arraySpan(static_cast<NSArray*>(object)), indent);
  } else if (isKind(object, "NSSet")) {
    appendSet(out, object, indent);
  } else if (isData(object)) {
    out += describe(object);
  } else {
    appendText(out, NSObject::description(object));
  }
}

}  // namespace

std::string propertyListText(NSObject* object) {
  std::string out;
  appendObject(out, object, 0);
  return out;
}

}  // namespace standin::foundation
