// Which properties tell what objects are, as rows; and the two ways to write it all down.
#include "host/tool/description.hpp"

#include <cmath>

#include "host/runtime/array.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/tool/members.hpp"

namespace tool {
namespace {

struct UsualNumber {
  const char* property;
  double usual;  // what nobody set, and so is not shown
};

// The properties of a class that are shown.
struct ObjectRow {
  std::string_view className;
  std::initializer_list<const char*> always;
  std::initializer_list<UsualNumber> unlessUsual;
};
constexpr ObjectRow objectRows[] = {
    {"NSFontZKT", {"fontName", "pointSize"}, {}},
    {"NSSizeZKT", {"width", "height"}, {}},
    {"NSRangeZKT", {"location", "length"}, {}},
    {"NSTextTabZKT", {"location", "tabStopType"}, {}},
    {"NSShadowZKT", {"shadowOffset", "shadowBlurRadius", "shadowColor"}, {}},
    {"NSParagraphStyleZKT",
     {"alignment"},
     {{"baseWritingDirection", -1},
      {"firstLineHeadIndent", 0},
      {"headIndent", 0},
      {"tailIndent", 0},
      {"lineSpacing", 0},
      {"paragraphSpacing", 0},
      {"paragraphSpacingBefore", 0},
      {"minimumLineHeight", 0},
      {"maximumLineHeight", 0},
      {"lineHeightMultiple", 0},
      {"headerLevel", 0}}},
};

Fields propertiesOf(const Value& object, const ObjectRow& row) {
  Fields fields;
  for (const char* name : row.always) fields.push_back({name, describeValue(get(object, name))});
  for (const UsualNumber& number : row.unlessUsual) {
    const double value = host::toDouble(get(object, number.property));
    if (value != number.usual) fields.push_back({number.property, describeValue(Value::number(value))});
  }
  return fields;
}

// "#RRGGBB", with two digits more when it is not opaque.
std::string colorText(const Value& color) {
  const Value rgb =
      call(color, "colorUsingColorSpaceName(name as String) as NSColorZKT", {Value::string("NSDeviceRGBColorSpace")});
  if (rgb.isNil()) return utf8(get(color, "description"));
  constexpr char digits[] = "0123456789ABCDEF";
  std::string text = "#";
  for (const char* component : {"redComponent", "greenComponent", "blueComponent", "alphaComponent"}) {
    const auto byte = static_cast<unsigned>(std::lround(host::toDouble(get(rgb, component)) * 255)) & 255;
    (text += digits[byte >> 4]) += digits[byte & 15];
  }
  if (text.ends_with("FF")) text.resize(text.size() - 2);
  return text;
}

// The bytes of a file, and of all files in a folder.
uint64_t sizeOf(const Value& file) {
  if (get(file, "RegularFile").asBoolean()) {
    const Value contents = get(file, "regularFileContents");
    return contents.isNil() ? 0 : host::memoryOf(contents.asObject()).size();
  }
  if (!get(file, "Directory").asBoolean()) return 0;
  const Value children = get(file, "fileWrappers");
  uint64_t size = 0;
  for (int64_t index = 0; !children.isNil() && index < host::dictionaryCount(children.asObject()); ++index) {
    const Value key = host::dictionaryKey(children.asObject(), index);
    size += sizeOf(host::dictionaryValue(children.asObject(), key));
  }
  return size;
}

// Name, type and size of an attachment's file; of one that has only a cell, the size of its picture in points.
Description describeAttachment(const Value& attachment) {
  const Value file = get(attachment, "fileWrapper");
  const Value cell = file.isNil() ? get(attachment, "attachmentCell") : Value();
  const Value image = classNameOf(cell) == "NSCellZKT" ? get(cell, "image") : Value();
  if (!image.isNil()) return {Fields{{"type", {std::string("image")}}, {"size", describeValue(get(image, "size"))}}};
  if (file.isNil()) return {};
  Fields fields{{"name", describeValue(get(file, "preferredFilename"))}};
  const std::string name = utf8(get(file, "preferredFilename"));
  const size_t dot = name.rfind('.');
  if (dot != std::string::npos) fields.push_back({"type", describeValue(Value::string(name.substr(dot + 1)))});
  fields.push_back({"size", describeValue(Value::unsignedInteger(sizeOf(file)))});
  return {std::move(fields)};
}

Description describeObject(const Value& object) {
  const std::string_view className = classNameOf(object);
  if (className == "NSColorZKT") return {colorText(object)};
  if (className == "NSTextAttachmentZKT") return describeAttachment(object);
  for (const ObjectRow& row : objectRows) {
    if (row.className == className) return {propertiesOf(object, row)};
  }
  return {std::string(className)};
}

Description describeDictionary(const host::HostObject* dictionary) {
  Fields fields;
  for (int64_t index = 0; index < host::dictionaryCount(dictionary); ++index) {
    const Value key = host::dictionaryKey(const_cast<host::HostObject*>(dictionary), index);
    fields.push_back({host::toUtf8(key), describeValue(host::dictionaryValue(dictionary, key))});
  }
  return {std::move(fields)};
}

Description describeArray(const host::HostObject* array) {
  Items items;
  for (int64_t index = 0; index <= host::upperBound(array); ++index)
    items.push_back(describeValue(host::element(array, index)));
  return {std::move(items)};
}

template <class Elements, class Write>
std::string joined(const Elements& elements, const char* separator, Write&& write) {
  std::string text;
  for (const auto& element : elements) {
    if (!text.empty()) text += separator;
    text += write(element);
  }
  return text;
}

bool isSimple(const Description& description) { return description.value.index() < 4; }

std::string nestedText(const Description& description) {
  return isSimple(description) ? asText(description) : "(" + asText(description) + ")";
}

struct JsonWriter {
  std::string operator()(std::monostate) const { return "null"; }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(double value) const { return host::numberText(value); }
  std::string operator()(const std::string& value) const { return quotedJson(value); }
  std::string operator()(const Fields& fields) const {
    return "{" +
           joined(fields, ", ", [](const auto& field) { return quotedJson(field.name) + ": " + asJson(field.value); }) + "}";
  }
  std::string operator()(const Items& items) const { return "[" + joined(items, ", ", asJson) + "]"; }
};

struct TextWriter {
  std::string operator()(std::monostate) const { return "none"; }
  std::string operator()(bool value) const { return value ? "yes" : "no"; }
  std::string operator()(double value) const { return host::numberText(value); }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const Fields& fields) const {
    return joined(fields, ", ", [](const auto& field) { return field.name + " " + nestedText(field.value); });
  }
  std::string operator()(const Items& items) const { return joined(items, ", ", nestedText); }
};

}  // namespace

Description describeValue(const Value& value) {
  if (value.isNil()) return {};
  if (value.kind() == host::Kind::Boolean) return {value.asBoolean()};
  if (value.isNumber()) return {host::toDouble(value)};
  if (!value.isObject()) return {host::toUtf8(value)};
  if (host::isDictionary(value.asObject())) return describeDictionary(value.asObject());
  if (host::isArray(value.asObject())) return describeArray(value.asObject());
  if (classNameOf(value) == "Date") return {utf8(get(value, "SQLDateTime"))};
  return describeObject(value);
}

std::string quotedJson(const std::string& utf8) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text = "\"";
  for (const char c : utf8) {
    if (c == '"' || c == '\\') {
      (text += '\\') += c;
    } else if (c == '\n' || c == '\t') {
      (text += '\\') += c == '\n' ? 'n' : 't';
    } else if (static_cast<unsigned char>(c) < 0x20) {
      ((text += "\\u00") += digits[c >> 4]) += digits[c & 15];
    } else {
      text += c;
    }
  }
  return text + '"';
}

std::string asJson(const Description& description) { return std::visit(JsonWriter(), description.value); }
std::string asText(const Description& description) { return std::visit(TextWriter(), description.value); }

}  // namespace tool
