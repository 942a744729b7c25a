// Names of properties and of lengths, as rows.
#include "standin/formats/html/information.hpp"

#include "standin/formats/calendar_times.hpp"
#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/css/style_sheet.hpp"
#include "standin/formats/html/css/values.hpp"
#include "standin/formats/html/property_names.hpp"
#include "standin/formats/utf8.hpp"

namespace standin::formats::html {
namespace {

struct MarginRow {
  std::string_view name;
  std::optional<double> PageSetup::*member;
};
constexpr MarginRow marginRows[] = {
    {"margin-top", &PageSetup::topMargin},
    {"margin-right", &PageSetup::rightMargin},
    {"margin-bottom", &PageSetup::bottomMargin},
    {"margin-left", &PageSetup::leftMargin},
};

struct PaperRow {
  std::string_view name;
  double width, height;  // points
};
constexpr PaperRow papers[] = {{"a3", 842, 1191}, {"a4", 595, 842},     {"a5", 420, 595},
                               {"b5", 499, 709},  {"letter", 612, 792}, {"legal", 612, 1008}};

// Spaces and line ends are one space.
std::u16string lineOf(std::string_view text) {
  std::string line;
  forEachWord(text, [&](std::string_view word) { line.append(line.empty() ? "" : " ").append(word); });
  return unitsOf(line);
}

void takeMeta(const Tree& tree, NodeIndex element, Properties& properties) {
  const std::string_view name = tree.attribute(element, AttributeName::name).value_or("");
  const std::string_view content = tree.attribute(element, AttributeName::content).value_or("");
  for (const TextName& row : textNames) {
    if (equalIgnoringCase(row.name, name) && (properties.*row.member).empty()) properties.*row.member = lineOf(content);
  }
  for (const TimeName& row : timeNames) {
    if (equalIgnoringCase(row.name, name) && !(properties.*row.member)) properties.*row.member = calendarTimeOf(content);
  }
}

std::optional<double> pageLength(std::string_view text) {
  const auto length = css::lengthOf(text, {12, 12});
  return length && *length >= 0 && *length <= 100'000 ? length : std::nullopt;
}

// "a4", "letter landscape", "210mm 297mm".
void takePaper(std::string_view value, PageSetup& page) {
  bool isLandscape = false;
  std::vector<double> lengths;
  for (const std::string_view word : css::wordsOf(value)) {
    isLandscape |= equalIgnoringCase(word, "landscape");
    if (const auto length = pageLength(word)) lengths.push_back(*length);
    for (const PaperRow& paper : papers) {
      if (equalIgnoringCase(paper.name, word)) lengths = {paper.width, paper.height};
    }
  }
  if (lengths.empty()) return;
  page.paperWidth = lengths.front();
  page.paperHeight = lengths.back();
  if (isLandscape && *page.paperWidth < *page.paperHeight) std::swap(page.paperWidth, page.paperHeight);
}

void takeMargins(std::string_view value, PageSetup& page) {
  const auto words = css::wordsOf(value);
  if (words.empty() || words.size() > 4) return;
  for (size_t side = 0; side < std::size(marginRows); ++side) {
    const size_t index = side < words.size() ? side : side == 3 && words.size() > 1 ? 1 : 0;
    page.*marginRows[side].member = pageLength(words[index]);
  }
}

}  // namespace

void findProperties(const Tree& tree, Properties& properties) {
  tree.forEachElement([&](NodeIndex element) {
    if (tree[element].tag == Tag::meta) takeMeta(tree, element, properties);
    const bool isTitle = tree[element].tag == Tag::title && tree[tree[element].parent].tag != Tag::svg;
    if (isTitle && properties.title.empty()) properties.title = lineOf(tree.textOf(element));
  });
}

void findPage(std::string_view declarations, PageSetup& page) {
  css::forEachDeclaration(declarations, [&](std::string_view name, std::string_view value) {
    if (equalIgnoringCase(name, "size")) takePaper(value, page);
    if (equalIgnoringCase(name, "margin")) takeMargins(value, page);
    for (const MarginRow& row : marginRows) {
      if (equalIgnoringCase(row.name, name)) page.*row.member = pageLength(value);
    }
  });
}

}  // namespace standin::formats::html
