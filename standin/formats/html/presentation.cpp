// A row an attribute: which elements have it, what it means.
#include "standin/formats/html/presentation.hpp"

#include <algorithm>

#include "standin/formats/html/ascii.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::html {
namespace {

std::string asItIs(std::string_view value) { return std::string(trimmed(value)); }

// A colour's number may lack its "#".
std::string colorOf(std::string_view value) {
  const auto isHexadecimal = [](char c) {
    return isASCIIDigit(c) || (asciiLowercase(c) >= 'a' && asciiLowercase(c) <= 'f');
  };
  value = trimmed(value);
  const bool isNumber = value.size() == 6 && std::all_of(value.begin(), value.end(), isHexadecimal);
  return (isNumber ? "#" : "") + std::string(value);
}

// "1" to "7", or a step from the usual 3.
std::string fontSizeOf(std::string_view value) {
  constexpr const char* sizes[] = {"x-small", "small", "medium", "large", "x-large", "xx-large", "xxx-large"};
  value = trimmed(value);
  const bool isStep = value.starts_with('+') || value.starts_with('-');
  if (value.starts_with('+')) value.remove_prefix(1);
  const auto number = numberOf(value);
  if (!number) return {};
  const double size = std::clamp(*number + (isStep ? 3 : 0), 1.0, 7.0);
  return sizes[static_cast<size_t>(size) - 1];
}

std::string markerOf(std::string_view value) {
  constexpr std::pair<std::string_view, const char*> numberings[] = {
      {"1", "decimal"}, {"a", "lower-alpha"}, {"A", "upper-alpha"}, {"i", "lower-roman"}, {"I", "upper-roman"}};
  for (const auto& [type, marker] : numberings) {
    if (value == type) return marker;
  }
  return asciiLowercase(value);
}

// Plain numbers are pixels.
std::string extentOf(std::string_view value) {
  value = trimmed(value);
  const bool isPlain = !value.empty() && isASCIIDigit(value.back());
  return std::string(value) + (isPlain ? "px" : "");
}

bool isText(Tag tag) {
  return tag != Tag::table && tag != Tag::img && tag != Tag::hr && tag != Tag::iframe && tag != Tag::object &&
         tag != Tag::applet && tag != Tag::embed && tag != Tag::input;
}
bool isAny(Tag) { return true; }
bool isBody(Tag tag) { return tag == Tag::body; }
bool isFont(Tag tag) { return tag == Tag::font || tag == Tag::basefont; }
bool isImage(Tag tag) { return tag == Tag::img; }
bool isList(Tag tag) { return tag == Tag::ol || tag == Tag::ul || tag == Tag::li || tag == Tag::menu || tag == Tag::dir; }

struct HintRow {
  AttributeName attribute;
  bool (*isFor)(Tag);
  const char* property;
  std::string (*meaning)(std::string_view);
};
constexpr HintRow hintRows[] = {
    {AttributeName::align, isText, "text-align", asItIs},       {AttributeName::bgcolor, isAny, "background-color", colorOf},
    {AttributeName::color, isFont, "color", colorOf},           {AttributeName::dir, isAny, "direction", asItIs},
    {AttributeName::face, isFont, "font-family", asItIs},       {AttributeName::height, isImage, "height", extentOf},
    {AttributeName::size, isFont, "font-size", fontSizeOf},     {AttributeName::text, isBody, "color", colorOf},
    {AttributeName::type, isList, "list-style-type", markerOf}, {AttributeName::width, isImage, "width", extentOf},
};

}  // namespace

void forEachHint(const Tree& tree, NodeIndex element, const std::function<void(std::string_view, std::string)>& use) {
  const Node& node = tree[element];
  if (node.attributeCount == 0) return;
  for (const HintRow& row : hintRows) {
    if (!row.isFor(node.tag)) continue;
    if (const auto value = tree.attribute(element, row.attribute)) use(row.property, row.meaning(*value));
  }
}

}  // namespace standin::formats::html
