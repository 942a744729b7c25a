// Control words applied to formatting, and to what the document says of itself.
#pragma once

#include <optional>

#include "standin/formats/document.hpp"
#include "standin/formats/rtf/control_words.hpp"
#include "standin/formats/rtf/state.hpp"

namespace standin::formats::rtf {

inline constexpr double twipsInPoint = 20;

// These take any word of their kind; those that need more than the formatting (fonts, paragraph ends) change nothing.
void formatCharacters(CharacterFormat& format, const ControlWord& word, std::optional<int> parameter);
void formatParagraph(GroupState& state, const ControlWord& word, std::optional<int> parameter);
// From the width of the paper on, to the version of the writing platform.
void takeInformation(DocumentInformation& document, Action action, int number);

}  // namespace standin::formats::rtf
