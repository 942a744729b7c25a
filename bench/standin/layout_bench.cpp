// Styled text laid out and written as PDF, in pages a second, on documents with a change of style every few words.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "standin/layout/pdf.hpp"
#include "standin/text/font_faces.hpp"

namespace {

using standin::formats::StyledRuns;
using standin::text::Style;

// Bold, coloured, underlined, large and plain runs in three families, in this order over and over.
std::vector<Style> styles() {
  std::vector<Style> made(6);
  made[0].font = standin::text::fontNamed("Helvetica-Bold", 12);
  made[1].foreground = standin::text::Color{standin::text::ColorSpace::deviceRGB, {0.5, 0, 0.5}};
  made[2].underline = 1;
  made[3].font = standin::text::fontNamed("Times-Roman", 14);
  made[4].font = standin::text::fontNamed("Courier", 10);
  return made;
}

// About 3,000 characters make a page.
StyledRuns sample(int64_t pages, const std::vector<Style>& styles) {
  constexpr const char16_t* words[] = {u"time ",       u"year ", u"people ", u"caf\u00E9 ",
                                       u"government ", u"of ",   u"the ",    u"point. "};
  std::u16string text;
  StyledRuns styled;
  size_t number = 0;
  while (text.size() < static_cast<size_t>(pages) * 3000) {
    const size_t start = text.size();
    for (int word = 0; word < 6; ++word, number = number * 7 + 3) text += words[number / 8 % std::size(words)];
    if (styled.runs.size() % 20 == 19) text += u'\n';
    styled.runs.push_back({static_cast<uint32_t>(text.size() - start), &styles[styled.runs.size() % styles.size()]});
  }
  styled.text = standin::text::Text::utf16(text);
  return styled;
}

void writePages(benchmark::State& state) {
  const std::vector<Style> used = styles();
  const StyledRuns styled = sample(state.range(0), used);
  const std::string path = std::filesystem::temp_directory_path() / ("layout_bench." + std::to_string(getpid()) + ".pdf");
  int pages = 0;
  for (auto _ : state) {
    if (!standin::layout::writePDF(styled, {}, {}, path, [&](int page) { pages = page; })) {
      throw std::logic_error("the file could not be written");
    }
  }
  std::filesystem::remove(path);
  state.SetItemsProcessed(state.iterations() * pages);
}

BENCHMARK(writePages)->ArgName("pages")->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
