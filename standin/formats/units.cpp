// Numbers and units of lengths.
#include "standin/formats/units.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "standin/text/ascii.hpp"

namespace standin::formats {
namespace {

struct Unit {
  std::string_view name;
  double points;
};
constexpr Unit units[] = {{"pt", 1},
                          {"in", pointsPerInch},
                          {"inch", pointsPerInch},
                          {"cm", pointsPerInch / 2.54},
                          {"mm", pointsPerInch / 25.4},
                          {"pc", 12},
                          {"pi", 12},
                          {"px", pointsPerPixel}};

}  // namespace

std::optional<double> numberOf(std::string_view text, std::string_view* rest) {
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  double number = 0;
  // An exponent would take the e of "em".
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  if (fault != std::errc() || !std::isfinite(number)) return std::nullopt;
  if (rest != nullptr) *rest = text.substr(static_cast<size_t>(end - text.data()));
  return number;
}

std::optional<double> pointsOf(std::string_view length) {
  std::string_view name;
  const auto number = numberOf(length, &name);
  if (!number) return std::nullopt;
  for (const Unit& unit : units) {
    if (text::equalIgnoringCase(name, unit.name)) return *number * unit.points;
  }
  return std::nullopt;
}

std::string textOf(double number, int decimals) {
  if (!std::isfinite(number)) return "0";
  char buffer[512];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed, decimals).ptr;
  std::string text(buffer, end);
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

long wholeParts(double points, double partsPerPoint, double limit) {
  return std::isfinite(points) ? std::lrint(std::clamp(points * partsPerPoint, -limit, limit)) : 0;
}

}  // namespace standin::formats
