// Goes over the elements of a document and hands what they show to the paragraphs.
#pragma once

#include "standin/formats/html/element_styles.hpp"
#include "standin/formats/html/resources.hpp"

namespace standin::formats::html {

// The text and its styles; of the information the background alone.
Document flow(const Tree& tree, ElementStyles& styles, Resources& resources, double textSizeMultiplier);

}  // namespace standin::formats::html
