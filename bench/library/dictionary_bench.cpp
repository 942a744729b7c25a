// Dictionaries of mixed values across the boundary, and what the ordered tests of single objects cost.
#include <benchmark/benchmark.h>

#include <string>

#include "bridge/from_object.hpp"
#include "bridge/host_classes.hpp"
#include "bridge/platform_classes.hpp"
#include "bridge/to_dictionary.hpp"
#include "bridge/to_variant.hpp"
#include "host/runtime/array.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/record.hpp"
#include "host/runtime/runtime.hpp"
#include "platform/owned.h"
#include "plugin/host_owned.hpp"
#include "plugin/instance_data.hpp"

namespace {

using host::Value;

plugin::REALobject forLibrary(host::HostObject* object) { return reinterpret_cast<plugin::REALobject>(object); }

void startLibrary() {
  plugin::gResolver = &host::Runtime::resolve;
  plugin::hostVersion = 2019.01;
}

host::HostOwned<host::HostObject> smallArray(int64_t index) {
  auto array = host::makeArray(host::typeNamed("Variant"), -1);
  host::appendElement(array, Value::integer(index));
  host::appendElement(array, Value::string("element"));
  return array;
}

host::HostOwned<host::HostObject> smallDictionary(int64_t index) {
  auto dictionary = host::makeDictionary();
  host::setDictionaryValue(dictionary, Value::string("index"), Value::integer(index));
  return dictionary;
}

Value mixedValue(int64_t index) {
  switch (index % 7) {
    case 0:
      return Value::string("value " + std::to_string(index));
    case 1:
      return Value::integer(index);
    case 2:
      return Value::number(static_cast<double>(index) / 3);
    case 3:
      return Value::object(host::makeDate({2000 + index % 50, 1 + index % 12, 1 + index % 28, index % 24, 30, 0}));
    case 4:
      return Value::object(smallArray(index));
    case 5:
      return Value::object(smallDictionary(index));
    default:
      return Value::boolean(index % 2 == 1);
  }
}

host::HostOwned<host::HostObject> mixedDictionary(int64_t count) {
  auto dictionary = host::makeDictionary();
  for (int64_t index = 0; index < count; ++index) {
    host::setDictionaryValue(dictionary, Value::string("key " + std::to_string(index)), mixedValue(index));
  }
  return dictionary;
}

void DictionaryToPlatform(benchmark::State& state) {
  startLibrary();
  const auto dictionary = mixedDictionary(state.range(0));
  for (auto _ : state) {
    const AutoreleasePool pool;
    benchmark::DoNotOptimize(bridge::NewNSDictionary(static_cast<plugin::REALdictionary*>(forLibrary(dictionary))));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(DictionaryToPlatform)->Arg(1000)->Arg(10000)->Arg(100000);

void DictionaryToHost(benchmark::State& state) {
  startLibrary();
  const AutoreleasePool outer;
  const auto source = mixedDictionary(state.range(0));
  NSDictionary* const dictionary = bridge::NewNSDictionary(static_cast<plugin::REALdictionary*>(forLibrary(source)));
  for (auto _ : state) {
    const AutoreleasePool pool;
    benchmark::DoNotOptimize(plugin::adoptHost(bridge::NSDictionaryRB(dictionary)).get());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(DictionaryToHost)->Arg(1000)->Arg(10000)->Arg(100000);

// An object of a row's class, or of a class that the table does not know. Wrapper classes are left undefined, so that the
// tests are what is timed.
void ObjectToHost(benchmark::State& state, const char* className) {
  startLibrary();
  const AutoreleasePool outer;
  const Owned<NSObject> object = adopt(NSObject::init(NSObject::alloc(objc_getClass(className))));
  for (auto _ : state) benchmark::DoNotOptimize(bridge::NewVariantFromNSObject(object));
}
BENCHMARK_CAPTURE(ObjectToHost, first_row, bridge::wrappedClasses[0].name.platformClass());
BENCHMARK_CAPTURE(ObjectToHost, last_row, std::end(bridge::wrappedClasses)[-1].name.platformClass());
BENCHMARK_CAPTURE(ObjectToHost, no_row, "NSObject");

void ObjectToPlatform(benchmark::State& state, const char* hostClass) {
  startLibrary();
  static std::vector<std::unique_ptr<host::ClassRecord>> records;
  if (host::Runtime::shared().findClass(hostClass) == nullptr) {
    host::ClassRecord& record = *records.emplace_back(std::make_unique<host::ClassRecord>());
    record.name = hostClass;
    record.instanceSize = 16;
    host::Runtime::shared().registerClass(record);
  }
  const auto object = plugin::newInstance(hostClass);
  for (auto _ : state) {
    const AutoreleasePool pool;
    benchmark::DoNotOptimize(bridge::GetObjectAsNSObject(object));
  }
}
BENCHMARK_CAPTURE(ObjectToPlatform, first_row, bridge::wrapperClasses[0]);
BENCHMARK_CAPTURE(ObjectToPlatform, last_cached_row, std::end(bridge::wrapperClasses)[-1]);
BENCHMARK_CAPTURE(ObjectToPlatform, last_row, std::end(bridge::coreClasses)[-1]);
BENCHMARK_CAPTURE(ObjectToPlatform, no_row, "StrangerZKT");

}  // namespace
