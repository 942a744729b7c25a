// What a document defines before its text begins.
#pragma once

#include "standin/formats/word_xml/settings.hpp"
#include "standin/formats/word_xml/styles.hpp"

namespace standin::formats::word_xml {

struct Definitions {
  Theme theme;
  Numbering numbering;
  Styles styles;
  Settings settings;
};

}  // namespace standin::formats::word_xml
