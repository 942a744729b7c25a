// The content of an HTML document's body.
#pragma once

#include <string>
#include <string_view>

#include "standin/formats/html/style_classes.hpp"
#include "standin/formats/html/vocabulary.hpp"
#include "standin/formats/html/writer.hpp"

namespace standin::formats::html {

// Each paragraph on a line of its own behind the indentation, its looks among the classes.
std::string writeBody(const StyledRuns& styled, const Vocabulary& vocabulary, StyleClasses& classes,
                      const PictureAddress& address, std::string_view indentation);

}  // namespace standin::formats::html
