// What a document defines before its text begins.
#pragma once

#include "standin/formats/memory_allowance.hpp"
#include "standin/formats/word_xml/settings.hpp"
#include "standin/formats/word_xml/styles.hpp"

namespace standin::formats::word_xml {

struct Definitions {
  explicit Definitions(size_t documentBytes) : allowance(documentBytes) {}

  MemoryAllowance allowance;  // for them and the text
  Theme theme;
  Numbering numbering;
  Styles styles;
  Settings settings;
};

}  // namespace standin::formats::word_xml
