// What a message costs, beside a call through a function pointer and an allocation.
#include <benchmark/benchmark.h>

#include "platform/foundation.h"
#include "platform/owned.h"
#include "standin/runtime/class_definition.hpp"

namespace {

struct Probe : standin::Object {
  NSUInteger value = 7;
};
NSUInteger probeValue(Probe& self) { return self.value; }
const standin::ClassDefinition probes =
    standin::defineClass<Probe>("MessageBenchProbe", "NSObject").method<probeValue>("probeValue");

const Message<NSUInteger()> value{"probeValue"};

void sendMessage(benchmark::State& state) {
  const Owned<NSObject> object = standin::create<Probe>(probes);
  for (auto _ : state) benchmark::DoNotOptimize(value(object));
}
BENCHMARK(sendMessage);

void sendToNil(benchmark::State& state) {
  NSObject* nothing = nullptr;
  for (auto _ : state) {
    benchmark::DoNotOptimize(nothing);
    benchmark::DoNotOptimize(value(nothing));
  }
}
BENCHMARK(sendToNil);

void callThroughPointer(benchmark::State& state) {
  const Owned<NSObject> object = standin::create<Probe>(probes);
  NSUInteger (*volatile function)(Probe&) = probeValue;
  for (auto _ : state) benchmark::DoNotOptimize(function(standin::stateOf<Probe>(object)));
}
BENCHMARK(callThroughPointer);

void retainAndRelease(benchmark::State& state) {
  const Owned<NSObject> object = standin::create<Probe>(probes);
  for (auto _ : state) {
    NSObject::retain(object);
    NSObject::release(object);
  }
}
BENCHMARK(retainAndRelease);

void allocateAndRelease(benchmark::State& state) {
  const Class cls = probes.platformClass();
  for (auto _ : state) NSObject::release(NSObject::init(NSObject::alloc(cls)));
}
BENCHMARK(allocateAndRelease);

}  // namespace
