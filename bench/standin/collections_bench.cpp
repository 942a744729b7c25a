// Dictionaries on the hot paths: attributes found by their constant keys, larger ones, and the registry of bare pointers,
// beside std::unordered_map, which must give the same answers.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <unordered_map>
#include <vector>

#include "platform/corefoundation.h"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/string.hpp"

namespace {

using namespace standin::foundation;

std::vector<Owned<NSString>> makeKeys(int64_t count) {
  std::vector<Owned<NSString>> keys;
  for (int64_t number = 0; number < count; ++number) keys.push_back(newString("NSKey" + std::to_string(number)));
  return keys;
}

Owned<NSMutableDictionary> filled(const std::vector<Owned<NSString>>& keys) {
  Owned<NSMutableDictionary> dictionary = newMutableDictionary();
  for (const Owned<NSString>& key : keys) set(dictionary, key, key);
  return dictionary;
}

void findByTheSameKey(benchmark::State& state) {
  const auto keys = makeKeys(state.range(0));
  const Owned<NSMutableDictionary> dictionary = filled(keys);
  size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(NSDictionary::objectForKey(dictionary, keys[next]));
    next = next + 1 < keys.size() ? next + 1 : 0;
  }
}
BENCHMARK(findByTheSameKey)->Arg(4)->Arg(1000)->Arg(100'000);

void findByAnEqualKey(benchmark::State& state) {
  const auto keys = makeKeys(state.range(0)), others = makeKeys(state.range(0));
  const Owned<NSMutableDictionary> dictionary = filled(keys);
  size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(NSDictionary::objectForKey(dictionary, others[next]));
    next = next + 1 < keys.size() ? next + 1 : 0;
  }
}
BENCHMARK(findByAnEqualKey)->Arg(4)->Arg(1000)->Arg(100'000);

void fill(benchmark::State& state) {
  const auto keys = makeKeys(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(filled(keys).get());
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(fill)->Arg(4)->Arg(1000)->Arg(100'000);

std::vector<const void*> pointers(int64_t count) {
  std::vector<const void*> made;
  for (int64_t number = 0; number < count; ++number) made.push_back(reinterpret_cast<const void*>(0x10000 + number * 48));
  return made;
}

// A wrapper comes and goes while others live.
void registryEntry(benchmark::State& state) {
  const auto keys = pointers(state.range(0));
  const Owned<NSMutableDictionary> registry = adopt(CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr));
  for (const void* key : keys) CFDictionarySetValue(registry, key, key);
  size_t next = 0;
  for (auto _ : state) {
    const void* const key = keys[next];
    if (CFDictionaryGetValue(registry, key) != key) std::abort();
    CFDictionaryRemoveValue(registry, key);
    CFDictionarySetValue(registry, key, key);
    next = next + 1 < keys.size() ? next + 1 : 0;
  }
}
BENCHMARK(registryEntry)->Arg(100)->Arg(100'000);

void standardMapEntry(benchmark::State& state) {
  const auto keys = pointers(state.range(0));
  std::unordered_map<const void*, const void*> map;
  for (const void* key : keys) map[key] = key;
  size_t next = 0;
  for (auto _ : state) {
    const void* const key = keys[next];
    if (map.find(key)->second != key) std::abort();
    map.erase(key);
    map[key] = key;
    next = next + 1 < keys.size() ? next + 1 : 0;
  }
}
BENCHMARK(standardMapEntry)->Arg(100)->Arg(100'000);

}  // namespace
