// The words of page, view, properties and times, as rows.
#include "standin/formats/rtf/information.hpp"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "standin/formats/rtf/characters.hpp"

namespace standin::formats::rtf {
namespace {

struct LengthRow {
  const char* word;
  std::optional<double> PageSetup::*member;
};
constexpr LengthRow lengthRows[] = {
    {"\\paperw", &PageSetup::paperWidth}, {"\\paperh", &PageSetup::paperHeight}, {"\\margl", &PageSetup::leftMargin},
    {"\\margr", &PageSetup::rightMargin}, {"\\margt", &PageSetup::topMargin},    {"\\margb", &PageSetup::bottomMargin},
};

struct RealRow {
  const char* word;
  std::optional<double> DocumentInformation::*member;
  double scale;
};
constexpr RealRow realRows[] = {
    {"\\deftab", &DocumentInformation::defaultTabInterval, 20},
    {"\\vieww", &DocumentInformation::viewWidth, 20},
    {"\\viewh", &DocumentInformation::viewHeight, 20},
    {"\\hyphauto1\\hyphfactor", &DocumentInformation::hyphenationFactor, 100},
};

struct IntegerRow {
  const char* word;
  std::optional<int> DocumentInformation::*member;
};
constexpr IntegerRow integerRows[] = {
    {"\\viewkind", &DocumentInformation::viewMode},
    {"\\viewscale", &DocumentInformation::viewZoom},
    {"\\readonlydoc", &DocumentInformation::readOnly},
    {"\\cocoartf", &DocumentInformation::rtfVersion},
};

struct TextRow {
  const char* opening;
  std::u16string Properties::*member;
};
constexpr TextRow textRows[] = {
    {"{\\title ", &Properties::title},        {"{\\subject ", &Properties::subject},
    {"{\\author ", &Properties::author},      {"{\\*\\manager ", &Properties::manager},
    {"{\\*\\company ", &Properties::company}, {"{\\*\\category ", &Properties::category},
    {"{\\keywords ", &Properties::keywords},  {"{\\doccomm ", &Properties::comment},
    {"{\\operator ", &Properties::editor},    {"{\\*\\copyright ", &Properties::copyright},
};

struct TimeRow {
  const char* word;
  std::optional<CalendarTime> Properties::*member;
};
constexpr TimeRow timeRows[] = {{"\\creatim", &Properties::created}, {"\\revtim", &Properties::modified}};

void appendNumber(std::string& out, const char* word, long value) { (out += word) += std::to_string(value); }

// Within what readers take; no number is 0.
void appendScaled(std::string& out, const char* word, double value, double scale) {
  constexpr double most = 1e6;
  appendNumber(out, word, std::isfinite(value) ? std::lrint(std::clamp(value, -most, most) * scale) : 0);
}

void appendTime(std::string& out, const char* word, const CalendarTime& time) {
  (out += '{') += word;
  appendNumber(out, "\\yr", time.year);
  appendNumber(out, "\\mo", time.month);
  appendNumber(out, "\\dy", time.day);
  appendNumber(out, "\\hr", time.hour);
  appendNumber(out, "\\min", time.minute);
  appendNumber(out, "\\sec", time.second);
  out += '}';
}

void appendProperties(std::string& out, const Properties& properties) {
  for (const TextRow& row : textRows) {
    const std::u16string& text = properties.*row.member;
    if (text.empty()) continue;
    out += row.opening;
    appendCharacters(out, text::Text::utf16(text), 0, static_cast<uint32_t>(text.size()));
    out += '}';
  }
  for (const TimeRow& row : timeRows) {
    if (const auto& time = properties.*row.member) appendTime(out, row.word, *time);
  }
}

// The fill of a shape behind the pages, and the word that shows it.
void appendBackground(std::string& out, const text::Color& color) {
  long fill = 0;
  const auto rgb = convert(color, text::ColorSpace::deviceRGB).components;
  for (const size_t component : {2u, 1u, 0u}) fill = fill << 8 | std::lrint(std::clamp(rgb[component], 0.0, 1.0) * 255);
  out += "{\\*\\background{\\shp{\\*\\shpinst{\\sp{\\sn shapeType}{\\sv 1}}{\\sp{\\sn fillColor}{\\sv ";
  out += std::to_string(fill);
  out += "}}}}}\\viewbksp1\n";
}

}  // namespace

void appendInformation(std::string& out, const DocumentInformation& information) {
  const size_t start = out.size();
  out += "{\\info";
  const size_t opened = out.size();
  appendProperties(out, information.properties);
  out.size() == opened ? out.resize(start) : void(out += "}\n");
  if (information.background) appendBackground(out, *information.background);
  const size_t words = out.size();
  for (const LengthRow& row : lengthRows) {
    if (const auto& length = information.page.*row.member) appendScaled(out, row.word, *length, 20);
  }
  for (const RealRow& row : realRows) {
    if (const auto& real = information.*row.member) appendScaled(out, row.word, *real, row.scale);
  }
  for (const IntegerRow& row : integerRows) {
    if (const auto& integer = information.*row.member) appendNumber(out, row.word, *integer);
  }
  if (out.size() != words) out += '\n';
}

}  // namespace standin::formats::rtf
