// HTML documents read, and their styles by what they are of.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "standin/formats/html/reader.hpp"
#include "standin/formats/utf8.hpp"

namespace html_support {

using standin::formats::Document;
using standin::formats::utf8Of;
using standin::formats::html::ReadOptions;
using standin::text::Paragraph;
using standin::text::Style;

inline std::optional<Document> parsed(std::string_view html, const ReadOptions& options = {}) {
  return standin::formats::html::read({reinterpret_cast<const uint8_t*>(html.data()), html.size()}, options);
}

inline Document documentOf(std::string_view html, const ReadOptions& options = {}) {
  return parsed(html, options).value_or(Document());
}

inline std::string textOf(std::string_view html, const ReadOptions& options = {}) {
  return utf8Of(documentOf(html, options).text);
}

inline Style styleAt(const Document& document, size_t position) {
  for (const auto& run : document.runs) {
    if (position < run.length) return document.styles[run.style];
    position -= run.length;
  }
  ADD_FAILURE() << "no character at " << position;
  return {};
}

// Of the first character of the text.
inline Style styleOf(const Document& document, std::u16string_view text) {
  return styleAt(document, document.text.find(text));
}
// Of the "x" in the document.
inline Style styleOfX(std::string_view html, const ReadOptions& options = {}) {
  return styleOf(documentOf(html, options), u"x");
}
inline Paragraph paragraphOfX(std::string_view html) { return styleOfX(html).paragraph; }

// "Times-Bold 24"
inline std::string fontOf(const Style& style) {
  if (!style.font) return "none";
  std::string size = std::to_string(style.font->size);
  size.erase(size.find_last_not_of('0') + 1);
  if (size.ends_with('.')) size.pop_back();
  return style.font->name + " " + size;
}

// "ff0000", with the opacity behind it where it is not whole.
inline std::string colorText(const std::optional<standin::text::Color>& color) {
  if (!color) return "none";
  char text[16];
  const auto byte = [&](size_t component) { return static_cast<unsigned>(color->components[component] * 255 + 0.5); };
  std::snprintf(text, sizeof text, "%02x%02x%02x", byte(0), byte(1), byte(2));
  return text + (color->alpha < 1 ? "/" + std::to_string(static_cast<int>(color->alpha * 100 + 0.5)) : "");
}

}  // namespace html_support
