// The faces of the platform's standard font families: one table, from which fonts are found by family or by face name.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "standin/text/style.hpp"

namespace standin::text {

// The face whose PostScript name (capitals do not count) it is.
std::optional<Font> fontNamed(std::string_view name, double size);

// The face of the family (capitals do not count) with just these bold and italic traits, the one nearest in weight if
// there are several. Nothing when the family is unknown or lacks such a face. Other trait bits must be among the face's.
std::optional<Font> fontInFamily(std::string_view family, uint64_t traits, int weight, double size);

// The family whose faces documents mean by this name: a family or a face name.
std::optional<std::string_view> familyNamed(std::string_view name);

// The face that is meant by a family or a face name and the bold and italic traits beside it. A family that the table lacks
// keeps its name, and has every face.
Font fontMeant(std::string_view name, uint64_t traits, double size);

std::vector<std::string_view> familyNames();

}  // namespace standin::text
