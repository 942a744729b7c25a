// Lengths of document formats, in points.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace standin::formats {

inline constexpr double twipsPerPoint = 20;
inline constexpr double halfPointsPerPoint = 2;
inline constexpr double eighthsPerPoint = 8;
inline constexpr double emusPerPoint = 12700;
inline constexpr double pointsPerInch = 72;
inline constexpr double pointsPerPixel = 0.75;

// "12pt", "1.5in", "-2cm", "3mm", "1pc", "4px", with no space between; nothing for other units, for none, and for what is no
// number. A unit may be in capitals.
std::optional<double> pointsOf(std::string_view length);

// A number in the C locale, at the start of the text; `rest` is what follows it. Nothing when there is none.
std::optional<double> numberOf(std::string_view text, std::string_view* rest = nullptr);

// The shortest text of the number with at most so many decimals: "12", "0.5".
std::string textOf(double number, int decimals = 3);

// Rounded to a whole number of parts, held within ±limit; 0 for what is not finite.
long wholeParts(double points, double partsPerPoint, double limit = 1e6);

}  // namespace standin::formats
