// Collects what a reader finds, text by text, into a document whose equal styles are one.
#pragma once

#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "standin/formats/document.hpp"

namespace standin::formats {

class DocumentBuilder {
 public:
  // The index of the style, one for all equal ones; of its link there is one copy in all styles. Readers that meet a format
  // again keep the index.
  uint32_t intern(const text::Style& style);

  // `style` is an index that `intern` gave.
  void append(std::u16string_view text, uint32_t style);
  void append(char16_t unit, uint32_t style);
  // Units that are not UTF-8 become U+FFFD.
  void appendUTF8(std::string_view text, uint32_t style);

  // For units that were put behind the document's text.
  void extend(uint32_t length, uint32_t style);

  // Takes units off the end, as many as there are at most.
  void removeLast(size_t units);

  const std::u16string& text() const { return document.text; }
  const text::Style& style(uint32_t index) const { return document.styles[index]; }

  // Bytes that it takes at most, also while it grows: the text and its runs, and the styles.
  size_t textCost() const;
  size_t styleCost() const { return styleBytes_; }

  // The information is the reader's to fill.
  Document document;

 private:
  text::Link shared(const text::Link& link);

  std::unordered_multimap<size_t, uint32_t> indices_;  // by hash
  std::unordered_set<text::Link, text::LinkHash> links_;
  size_t styleBytes_ = 0;  // of all styles
};

}  // namespace standin::formats
