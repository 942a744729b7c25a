// HTML and web archives read and written, in bytes a second, on documents with a change of style every few words.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "platform/appkit.h"
#include "platform/owned.h"

namespace {

// Paragraphs in two fonts, with bold and coloured words, a link, and characters by name.
std::string sample(size_t size) {
  std::string html =
      "<html><head><title>T</title><style>p { margin: 0 0 10px 0; font: 12px Times } .red { color: #c00000 "
      "}</style></head>\n";
  for (size_t number = 0; html.size() < size; ++number) {
    html +=
        "<p style=\"margin-left: " + std::to_string(number % 5 * 10) + "px\">Paragraph " + std::to_string(number) +
        " has <b>bold words</b> and <span class=\"red\">red ones</span>, a caf&eacute; and a&nbsp;space, <a href=\"http://"
        "example.org/?n=" +
        std::to_string(number % 100) +
        "\">a link</a> and <font face=\"Helvetica\">a good number of words that are not styled at all, as most words in "
        "documents are, so that their characters count as well.</font></p>\n";
  }
  return html;
}

NSData* dataOf(const std::string& bytes) { return NSData::dataWithBytes(classOf<NSData>(), bytes.data(), bytes.size()); }

NSDictionary* typed(NSString* type) {
  NSObject *const values[] = {type}, *const keys[] = {NSDocumentTypeDocumentAttribute};
  return NSDictionary::dictionaryWithObjects(classOf<NSDictionary>(), values, keys, 1);
}

Owned<NSAttributedString> readFrom(NSData* data) {
  using Init = NSAttributedString*(NSData*, NSDictionary*, NSDictionary**, NSError**);
  static const Message<Init> initWithData("initWithData:options:documentAttributes:error:");
  return adopt(initWithData(alloc<NSAttributedString>(), data, nullptr, nullptr, nullptr));
}

NSData* writtenFrom(NSAttributedString* string, NSString* type) {
  return NSAttributedString::dataFromRange(string, {0, NSAttributedString::length(string)}, typed(type), nullptr);
}

void read(benchmark::State& state, NSData* data) {
  for (auto _ : state) {
    const AutoreleasePool inner;
    benchmark::DoNotOptimize(readFrom(data).get());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(NSData::length(data)));
}

void write(benchmark::State& state, NSAttributedString* string, NSString* type) {
  const AutoreleasePool pool;
  NSData* written = writtenFrom(string, type);
  if (!NSAttributedString::isEqualToAttributedString(readFrom(written), string)) {
    throw std::logic_error("what was written does not read as what it was written from");
  }
  for (auto _ : state) {
    const AutoreleasePool inner;
    benchmark::DoNotOptimize(writtenFrom(string, type));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(NSData::length(written)));
}

std::string sampleOf(const benchmark::State& state) { return sample(static_cast<size_t>(state.range(0)) << 20); }

void readHTML(benchmark::State& state) {
  const AutoreleasePool pool;
  read(state, dataOf(sampleOf(state)));
}

void readWebArchive(benchmark::State& state) {
  const AutoreleasePool pool;
  read(state, writtenFrom(readFrom(dataOf(sampleOf(state))), NSWebArchiveTextDocumentType));
}

void writeHTML(benchmark::State& state) {
  const AutoreleasePool pool;
  write(state, readFrom(dataOf(sampleOf(state))), NSHTMLTextDocumentType);
}

void writeWebArchive(benchmark::State& state) {
  const AutoreleasePool pool;
  write(state, readFrom(dataOf(sampleOf(state))), NSWebArchiveTextDocumentType);
}

BENCHMARK(readHTML)->ArgName("megabytes")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(writeHTML)->ArgName("megabytes")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(readWebArchive)->ArgName("megabytes")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(writeWebArchive)->ArgName("megabytes")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

}  // namespace
