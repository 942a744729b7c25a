// What crossing the boundary costs the host: properties, methods, services, variants, dictionaries.
#include <benchmark/benchmark.h>

#include "host/runtime/date.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/runtime.hpp"
#include "host/runtime/variant.hpp"

namespace {

using namespace host;

void readProperty(benchmark::State& state) {
  const HostOwned<HostObject> date = makeDate({2014, 3, 5, 6, 7, 8});
  const Property* year = date->type->findProperty("Year");
  for (auto _ : state) benchmark::DoNotOptimize(year->read(date));
}
BENCHMARK(readProperty);

void callMethod(benchmark::State& state) {
  const HostOwned<HostObject> dictionary = makeDictionary();
  setDictionaryValue(dictionary, Value::integer(1), Value::integer(2));
  const Method* hasKey = dictionary->type->findMethods("HasKey").front();
  for (auto _ : state) {
    Value arguments[] = {Value::integer(1)};
    benchmark::DoNotOptimize(hasKey->invoke(dictionary, arguments));
  }
}
BENCHMARK(callMethod);

void callService(benchmark::State& state) {
  const HostOwned<HostObject> date = makeDate({2014, 3, 5, 6, 7, 8});
  const auto lock = reinterpret_cast<void (*)(HostObject*)>(Runtime::resolve("REALLockObject"));
  const auto unlock = reinterpret_cast<void (*)(HostObject*)>(Runtime::resolve("REALUnlockObject"));
  for (auto _ : state) lock(date), unlock(date);
}
BENCHMARK(callService);

void lookUpMethod(benchmark::State& state) {
  const HostOwned<HostObject> dictionary = makeDictionary();
  const auto load = reinterpret_cast<void* (*)(HostObject*, const char*)>(Runtime::resolve("REALLoadObjectMethod"));
  for (auto _ : state) benchmark::DoNotOptimize(load(dictionary, "Key(index As Integer) As Variant"));
}
BENCHMARK(lookUpMethod);

void boxAndUnbox(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(unboxed(boxed(Value::integer(5))));
}
BENCHMARK(boxAndUnbox);

// A key removed at the front and one added at the end: what each costs must not grow with the entries.
void turnOverDictionary(benchmark::State& state) {
  const HostOwned<HostObject> dictionary = makeDictionary();
  int64_t next = 0;
  for (; next < state.range(0); ++next) setDictionaryValue(dictionary, Value::integer(next), Value());
  for (auto _ : state) {
    removeDictionaryKey(dictionary, dictionaryKey(dictionary, 0));
    setDictionaryValue(dictionary, Value::integer(next++), Value());
  }
}
BENCHMARK(turnOverDictionary)->RangeMultiplier(100)->Range(10, 100'000);

}  // namespace
