// RTF read and written, in bytes of RTF a second, on documents with a change of style every few words.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "platform/appkit.h"
#include "platform/owned.h"

namespace {

// A paragraph in two fonts, with bold and coloured words, a link, and characters by number.
std::string sample(size_t size) {
  std::string rtf =
      "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 Times;}{\\f1 Helvetica;}}{\\colortbl;\\red255\\green0\\blue0;}\n";
  for (size_t number = 0; rtf.size() < size; ++number) {
    rtf += "\\pard\\li" + std::to_string(number % 5 * 200) + "\\f0\\fs24 Paragraph " + std::to_string(number) +
           " has {\\b bold words} and \\cf1 red ones\\cf0 , a caf\\'e9 and a\\u160?space, {\\field{\\*\\fldinst{HYPERLINK "
           "\"http://example.org/\"}}{\\fldrslt a link}} and \\f1 a good number of words that are not styled at all, as "
           "most words in documents are, so that their characters count as well.\\f0\\par\n";
  }
  return rtf + "}";
}

NSData* dataOf(const std::string& bytes) { return NSData::dataWithBytes(classOf<NSData>(), bytes.data(), bytes.size()); }

Owned<NSAttributedString> readFrom(NSData* data) {
  return adopt(NSAttributedString::initWithRTF(alloc<NSAttributedString>(), data, nullptr));
}

NSData* writtenFrom(NSAttributedString* string) {
  return NSAttributedString::RTFFromRange(string, {0, NSAttributedString::length(string)}, nullptr);
}

void readRTF(benchmark::State& state) {
  const AutoreleasePool pool;
  NSData* data = dataOf(sample(static_cast<size_t>(state.range(0)) << 20));
  for (auto _ : state) {
    const AutoreleasePool inner;
    benchmark::DoNotOptimize(readFrom(data).get());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(NSData::length(data)));
}

void writeRTF(benchmark::State& state) {
  const AutoreleasePool pool;
  const Owned<NSAttributedString> string = readFrom(dataOf(sample(static_cast<size_t>(state.range(0)) << 20)));
  const size_t size = NSData::length(writtenFrom(string));
  if (!NSAttributedString::isEqualToAttributedString(readFrom(writtenFrom(string)), string)) {
    throw std::logic_error("what was written does not read as what it was written from");
  }
  for (auto _ : state) {
    const AutoreleasePool inner;
    benchmark::DoNotOptimize(writtenFrom(string));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}

BENCHMARK(readRTF)->ArgName("megabytes")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(writeRTF)->ArgName("megabytes")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

}  // namespace
