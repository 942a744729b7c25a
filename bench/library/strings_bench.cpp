// Host strings to the platform and back, and the cost of one host service. Bytes are those of the text in UTF-8, which the
// floor copies.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "bridge/strings.hpp"
#include "host/runtime/runtime.hpp"
#include "host/runtime/string.hpp"
#include "plugin/host_owned.hpp"

namespace {

using namespace plugin;
using HeldString = HostOwned<REALstringStruct>;

struct Script {
  const char* name;
  std::u16string_view piece;
};
constexpr Script scripts[] = {{"ascii", u"quick brown fox "},
                              {"latin", u"d\u00E9j\u00E0 vu \u00FCber "},
                              {"cjk", u"\u4E2D\u6587\u5B57\u7B26"},
                              {"emoji", u"\U0001F600\U0001F680"}};
constexpr int64_t lengths[] = {20, 10'000'000};

std::u16string unitsOf(const Script& script, benchmark::State& state) {
  const auto length = static_cast<std::size_t>(state.range(0));
  std::u16string units;
  while (units.size() < length) units += script.piece;
  units.resize(length);
  return units;
}

void useHost(double version) {
  gResolver = &host::Runtime::resolve;
  hostVersion = version;
}

HeldString hostString(const std::string& utf8) {
  return adoptHost(reinterpret_cast<REALstring>(host::HostString::make(utf8).detach()));
}

void toPlatform(benchmark::State& state, const Script& script) {
  useHost(2019.01);
  const std::string utf8 = host::utf8Of(unitsOf(script, state));
  const HeldString text = hostString(utf8);
  for (auto _ : state) benchmark::DoNotOptimize(bridge::ownedString(text).get());
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(utf8.size()));
}

// The bytes read in place, as from a host that gives no platform strings.
void toPlatformByBytes(benchmark::State& state, const Script& script) {
  useHost(2019.01);
  host::Runtime::shared().faults().switchOff("REALGetStringCFString");
  pCopyStringCFString = pGetStringCFString = nullptr;
  const std::string utf8 = host::utf8Of(unitsOf(script, state));
  const HeldString text = hostString(utf8);
  for (auto _ : state) benchmark::DoNotOptimize(bridge::ownedString(text).get());
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(utf8.size()));
  host::Runtime::shared().faults().clear();
}

void toHost(benchmark::State& state, const Script& script) {
  useHost(2019.01);
  const std::u16string units = unitsOf(script, state);
  const auto text =
      adopt(CFStringCreateWithCharacters(kCFAllocatorDefault, units.data(), static_cast<CFIndex>(units.size())));
  for (auto _ : state) benchmark::DoNotOptimize(adoptHost(bridge::CFString2RBString(text)).get());
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(host::utf8Of(units).size()));
}

void copyBytes(benchmark::State& state, const Script& script) {
  const std::string utf8 = host::utf8Of(unitsOf(script, state));
  std::string copy(utf8.size(), '\0');
  for (auto _ : state) {
    std::memcpy(copy.data(), utf8.data(), utf8.size());
    benchmark::DoNotOptimize(copy.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(utf8.size()));
}

void callService(benchmark::State& state) {
  useHost(2019.01);
  const HeldString text = hostString("text");
  for (auto _ : state) benchmark::DoNotOptimize(REALGetStringEncoding(text));
}
BENCHMARK(callService);

void callMissingService(benchmark::State& state) {
  useHost(2019.01);
  gResolver = [](const char*) -> void* { return nullptr; };
  pGetStringEncoding = nullptr;
  for (auto _ : state) benchmark::DoNotOptimize(REALGetStringEncoding(nullptr));
  gResolver = &host::Runtime::resolve;
}
BENCHMARK(callMissingService);

template <class Function>
void add(const std::string& name, Function function) {
  for (const Script& script : scripts) {
    auto* added = benchmark::RegisterBenchmark((name + "/" + script.name).c_str(), function, script);
    for (const int64_t length : lengths) added->Arg(length);
  }
}

[[maybe_unused]] const bool registered = [] {
  add("to_platform", toPlatform);
  add("to_platform_bytes", toPlatformByBytes);
  add("to_host", toHost);
  add("memcpy", copyBytes);
  return true;
}();

}  // namespace
