// The steps from bytes to a document.
#include "standin/formats/html/reader.hpp"

#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/encoding.hpp"
#include "standin/formats/html/flow.hpp"
#include "standin/formats/html/information.hpp"

namespace standin::formats::html {
namespace {

constexpr size_t mostBytes = size_t{1} << 30;

bool isStyleSheetLink(const Tree& tree, NodeIndex element) {
  bool isSheet = false, isAlternate = false;
  forEachWord(tree.attribute(element, AttributeName::rel).value_or(""), [&](std::string_view word) {
    isSheet |= equalIgnoringCase(word, "stylesheet");
    isAlternate |= equalIgnoringCase(word, "alternate");
  });
  return isSheet && !isAlternate;
}

// Gives each sheet that is imported once.
css::StyleSheet::Import importFrom(Resources& resources, int& importsLeft) {
  return [&](std::string_view url) {
    if (url.empty() || importsLeft-- <= 0) return std::string();
    return decodeSheet(resources.load(url).value_or(""));
  };
}

css::StyleSheet sheetOf(const Tree& tree, Resources& resources) {
  int importsLeft = 100;
  const auto import = importFrom(resources, importsLeft);
  css::StyleSheet sheet;
  tree.forEachElement([&](NodeIndex element) {
    const Tag tag = tree[element].tag;
    if (tag != Tag::style && tag != Tag::link) return;
    if (!css::isForScreens(tree.attribute(element, AttributeName::media).value_or(""))) return;
    if (tag == Tag::style) {
      sheet.add(tree.textOf(element), import);
    } else if (isStyleSheetLink(tree, element)) {
      sheet.add(import(tree.attribute(element, AttributeName::href).value_or("")), import);
    }
  });
  sheet.finish();
  return sheet;
}

css::ComputedStyle rootStyle(const std::optional<text::Style>& standard) {
  css::ComputedStyle style;
  if (!standard) return style;
  style.color = standard->foreground;
  if (!standard->font) return style;
  style.family = standard->font->family;
  style.fontSize = standard->font->size;
  style.weight = standard->font->bold() ? 700 : 400;
  style.italic = standard->font->italic();
  return style;
}

}  // namespace

std::optional<Document> read(std::span<const uint8_t> bytes, const ReadOptions& options) {
  if (bytes.size() > mostBytes) return std::nullopt;
  auto decoded = decodeDocument(bytes, options.encodingName);
  if (!decoded) return std::nullopt;
  const Tree tree(std::move(decoded->text));
  Resources resources(options, bytes.size());
  tree.forEachElement([&](NodeIndex element) {
    if (tree[element].tag == Tag::base) resources.setBase(tree.attribute(element, AttributeName::href).value_or(""));
  });
  const css::StyleSheet sheet = sheetOf(tree, resources);
  ElementStyles styles(tree, sheet, rootStyle(options.defaultStyle));
  Document document = flow(tree, styles, resources, options.textSizeMultiplier);
  document.textEncodingName = decoded->encoding;
  findProperties(tree, document.properties);
  findPage(sheet.page(), document.page);
  return document;
}

}  // namespace standin::formats::html
