// The target of a HYPERLINK field.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace standin::formats {

// The address in the instruction of a field, with the place inside it after a number sign; nothing when the field is
// another one.
std::optional<std::u16string> linkTarget(std::u16string_view instruction);

}  // namespace standin::formats
