// The HTML reader, writer and escaper at 1 MB and 10 MB. Bytes are those of the source text at one byte a character; the
// floor copies as many bytes as the result has in UTF-16.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "html/escape.hpp"
#include "html/messages.hpp"
#include "html/text.hpp"
#include "platform/owned.h"

namespace {

using html::newString;

constexpr int64_t sizes[] = {1'000'000, 10'000'000};

constexpr std::u16string_view plainText = u"The quick brown fox jumps over the lazy dog, and nobody minds it at all. ";
constexpr std::u16string_view tagged =
    u"Plain <b>bold</b> and <i>italic</i>, <font size=5>large</font> <a href=\"u\">a link</a><br>";
constexpr std::u16string_view markup = u"a < b & c > \"d\"\n";
constexpr std::u16string_view accented = u"d\u00E9j\u00E0 vu, \u4E2D\u6587 ";

std::u16string repeated(std::u16string_view piece, benchmark::State& state) {
  const auto size = static_cast<std::size_t>(state.range(0));
  std::u16string text;
  while (text.size() < size) text += piece;
  return text;
}

Owned<NSAttributedString> read(NSString* source) {
  return adopt(html::initWithHTML_ZKT(alloc<NSAttributedString>(), source));
}

void readSource(benchmark::State& state, std::u16string_view piece) {
  const auto source = newString(repeated(piece, state));
  for (auto _ : state) {
    AutoreleasePool pool;
    benchmark::DoNotOptimize(read(source).get());
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void writeDocument(benchmark::State& state, std::u16string_view piece) {
  AutoreleasePool outer;
  const auto document = read(newString(repeated(piece, state)));
  for (auto _ : state) {
    AutoreleasePool pool;
    benchmark::DoNotOptimize(html::htmlString_ZKT(document));
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void escapeString(benchmark::State& state, std::u16string_view piece) {
  const auto source = newString(repeated(piece, state));
  for (auto _ : state) {
    AutoreleasePool pool;
    benchmark::DoNotOptimize(html::htmlString_ZKT(source));
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void escapeUnits(benchmark::State& state, std::u16string_view piece) {
  const std::u16string source = repeated(piece, state);
  std::u16string output;
  for (auto _ : state) {
    output.clear();
    html::appendEscaped(source, output);
    benchmark::DoNotOptimize(output.data());
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

// Copies the units that escaping the text gives.
void copyEscaped(benchmark::State& state, std::u16string_view piece) {
  std::u16string output;
  html::appendEscaped(repeated(piece, state), output);
  std::u16string copy(output.size(), u'\0');
  for (auto _ : state) {
    std::memcpy(copy.data(), output.data(), output.size() * sizeof(char16_t));
    benchmark::DoNotOptimize(copy.data());
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

template <class Function>
void add(const char* name, Function function, std::u16string_view piece) {
  auto* added = benchmark::RegisterBenchmark(name, function, piece);
  for (const int64_t size : sizes) added->Arg(size);
  added->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] const bool registered = [] {
  add("read/plain", readSource, plainText);
  add("read/tagged", readSource, tagged);
  add("read/angles", readSource, u"<");
  add("read/ampersands", readSource, u"& ");
  add("write/plain", writeDocument, plainText);
  add("write/tagged", writeDocument, tagged);
  add("escape/plain", escapeString, plainText);
  add("escape/markup", escapeString, markup);
  add("escape/accented", escapeString, accented);
  add("escape_units/plain", escapeUnits, plainText);
  add("escape_units/markup", escapeUnits, markup);
  add("memcpy/plain", copyEscaped, plainText);
  add("memcpy/markup", copyEscaped, markup);
  return true;
}();

}  // namespace
