// Conversions between bytes and strings, in bytes a second of UTF-8, beside a plain copy of as many bytes.
#include <benchmark/benchmark.h>

#include <cstring>
#include <stdexcept>
#include <string>

#include "platform/corefoundation.h"
#include "platform/owned.h"

namespace {

struct Script {
  const char* name;
  const char* sentence;
};

constexpr Script scripts[] = {
    {"ascii", "The quick brown fox jumps over the lazy dog. "},
    {"latin", "Voix ambiguë d’un cœur qui, au zéphyr, préfère les jattes de kiwis. "},
    {"cjk", "天地玄黃，宇宙洪荒。日月盈昃，辰宿列張。"},
    {"emoji", "😀😃😄 ok 🎉🎊 "},
};

std::string sample(const Script& script, size_t size) {
  std::string text;
  while (text.size() + std::strlen(script.sentence) <= size || text.empty()) text += script.sentence;
  return text;
}

Owned<NSString> decoded(const std::string& bytes, CFStringEncoding encoding) {
  return adopt(CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const uint8_t*>(bytes.data()),
                                       static_cast<CFIndex>(bytes.size()), encoding, 1));
}

void requireSame(bool same) {
  if (!same) throw std::logic_error("the conversion does not give back what it was given");
}

void finish(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
  state.SetLabel(scripts[state.range(0)].name);
}

void copy(benchmark::State& state) {
  const std::string text = sample(scripts[state.range(0)], static_cast<size_t>(state.range(1)));
  for (auto _ : state) {
    char* const copied = new char[text.size()];
    std::memcpy(copied, text.data(), text.size());
    benchmark::DoNotOptimize(copied);
    benchmark::ClobberMemory();
    delete[] copied;
  }
  finish(state, text);
}

void stringFromBytes(benchmark::State& state) {
  const std::string text = sample(scripts[state.range(0)], static_cast<size_t>(state.range(1)));
  for (auto _ : state) benchmark::DoNotOptimize(decoded(text, kCFStringEncodingUTF8).get());
  finish(state, text);
}

void bytesFromString(benchmark::State& state) {
  const std::string text = sample(scripts[state.range(0)], static_cast<size_t>(state.range(1)));
  const Owned<NSString> string = decoded(text, kCFStringEncodingUTF8);
  std::string buffer(static_cast<size_t>(CFStringGetLength(string)) * 6 + 1, '\0');
  for (auto _ : state) {
    CFStringGetCString(string, buffer.data(), static_cast<CFIndex>(buffer.size()), kCFStringEncodingUTF8);
    benchmark::ClobberMemory();
  }
  requireSame(buffer.c_str() == text);
  finish(state, text);
}

void stringFromUnits(benchmark::State& state) {
  const std::string text = sample(scripts[state.range(0)], static_cast<size_t>(state.range(1)));
  const Owned<NSString> string = decoded(text, kCFStringEncodingUTF8);
  std::u16string units(static_cast<size_t>(CFStringGetLength(string)), 0);
  CFStringGetCharacters(string, {0, CFStringGetLength(string)}, units.data());
  for (auto _ : state) {
    const Owned<NSString> made =
        adopt(CFStringCreateWithCharacters(kCFAllocatorDefault, units.data(), static_cast<CFIndex>(units.size())));
    benchmark::DoNotOptimize(made.get());
  }
  finish(state, text);
}

void macRomanBytes(benchmark::State& state) {
  const std::string text = sample(scripts[state.range(0)], static_cast<size_t>(state.range(1)));
  requireSame(decoded(text, kCFStringEncodingMacRoman));
  for (auto _ : state) benchmark::DoNotOptimize(decoded(text, kCFStringEncodingMacRoman).get());
  finish(state, text);
}

constexpr int64_t shortText = 20, longText = 10'000'000;

void everyScript(benchmark::internal::Benchmark* bench) {
  for (int64_t script = 0; script < static_cast<int64_t>(std::size(scripts)); ++script) {
    for (const int64_t size : {shortText, longText}) bench->Args({script, size});
  }
}

BENCHMARK(copy)->Args({0, shortText})->Args({0, longText});
BENCHMARK(stringFromBytes)->Apply(everyScript);
BENCHMARK(bytesFromString)->Apply(everyScript);
BENCHMARK(stringFromUnits)->Apply(everyScript);
BENCHMARK(macRomanBytes)->Args({0, longText})->Args({1, longText});

}  // namespace
