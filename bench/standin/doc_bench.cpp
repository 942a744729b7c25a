// Word documents read and written, in bytes of the document a second, with a change of style every few words.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "platform/appkit.h"
#include "platform/owned.h"

namespace {

// Paragraphs with bold, coloured and linked words, so many that their text alone has this size.
Owned<NSAttributedString> sample(size_t size) {
  std::string rtf =
      "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 Times;}{\\f1 Helvetica;}}{\\colortbl;\\red255\\green0\\blue0;}\n";
  size_t characters = 0;
  for (size_t number = 0; characters < size; ++number, characters += 250) {
    rtf += "\\pard\\li" + std::to_string(number % 5 * 200) + "\\f0\\fs24 Paragraph " + std::to_string(number) +
           " has {\\b bold words} and \\cf1 red ones\\cf0 , a caf\\'e9, {\\field{\\*\\fldinst{HYPERLINK "
           "\"http://example.org/\"}}{\\fldrslt a link}} and \\f1 a good number of words that are not styled at all, as "
           "most words in documents are, so that their characters count as well.\\f0\\par\n";
  }
  rtf += "}";
  NSData* data = NSData::dataWithBytes(classOf<NSData>(), rtf.data(), rtf.size());
  return adopt(NSAttributedString::initWithRTF(alloc<NSAttributedString>(), data, nullptr));
}

NSData* writtenFrom(NSAttributedString* string) {
  return NSAttributedString::docFormatFromRange(string, {0, NSAttributedString::length(string)}, nullptr);
}

Owned<NSAttributedString> readFrom(NSData* data) {
  return adopt(NSAttributedString::initWithDocFormat(alloc<NSAttributedString>(), data, nullptr));
}

void readDoc(benchmark::State& state) {
  const AutoreleasePool pool;
  NSData* data = writtenFrom(sample(static_cast<size_t>(state.range(0)) << 20));
  for (auto _ : state) {
    const AutoreleasePool inner;
    benchmark::DoNotOptimize(readFrom(data).get());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(NSData::length(data)));
}

void writeDoc(benchmark::State& state) {
  const AutoreleasePool pool;
  const Owned<NSAttributedString> string = sample(static_cast<size_t>(state.range(0)) << 20);
  NSData* data = writtenFrom(string);
  if (!NSString::isEqualToString(NSAttributedString::string(readFrom(data)), NSAttributedString::string(string))) {
    throw std::logic_error("what was written does not read as what it was written from");
  }
  for (auto _ : state) {
    const AutoreleasePool inner;
    benchmark::DoNotOptimize(writtenFrom(string));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(NSData::length(data)));
}

BENCHMARK(readDoc)->ArgName("megabytes")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(writeDoc)->ArgName("megabytes")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

}  // namespace
