// The page of a document: paper, margins and what is behind the text.
#pragma once

#include "standin/formats/document.hpp"
#include "standin/formats/word_xml/names.hpp"

namespace standin::formats::word_xml {

struct Page {
  // Takes what the element says; of several sections the first one's page is the document's.
  void startElement(const xml::Element& element);

  PageSetup setup;
  std::optional<text::Color> background;
};

}  // namespace standin::formats::word_xml
