// What documents define beside their text, as the elements that both editions share.
#pragma once

#include <set>

#include "standin/formats/document.hpp"
#include "standin/formats/word_xml/edition.hpp"

namespace standin::formats::word_xml {

// <name>text</name>; nothing for an empty text.
void appendElement(std::string& out, std::string_view name, std::u16string_view text);

// The style of plain paragraphs, and those of headings, which say no more than that they are headings.
std::string styleElements(const Edition& edition);
// Names are escaped already.
std::string fontElements(const std::set<std::string>& fonts);
std::string settingElements(const Edition& edition, const DocumentInformation& information);

}  // namespace standin::formats::word_xml
