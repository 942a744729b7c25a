// Reading and writing a folder of 10,000 files as a file wrapper, beside `cp -r` on the same folder. The copies must be
// equal before anything is timed. "ratio" is the time in those of one `cp -r` measured in the same run.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "platform/appkit.h"
#include "platform/owned.h"
#include "standin/foundation/data.hpp"
#include "standin/foundation/url.hpp"

namespace {

using namespace standin::foundation;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// A hundred folders of a hundred files of up to 8 KB, gone at the end.
class Tree {
 public:
  Tree() {
    char name[] = "/tmp/file-wrapper-bench-XXXXXX";
    path_ = mkdtemp(name);
    for (int folder = 0; folder < 100; ++folder) {
      const fs::path place = path_ / "tree" / std::to_string(folder);
      fs::create_directories(place);
      for (int file = 0; file < 100; ++file) {
        std::ofstream(place / std::to_string(file)) << std::string(static_cast<size_t>(folder * file) % 8192, 'x');
      }
    }
    AutoreleasePool pool;
    const std::string first = write(read(1), 0);
    if (std::system(("diff -r " + source() + " " + first).c_str()) != 0) throw std::runtime_error("the copies differ");
    copySeconds_ = 1e9;
    for (int times = 0; times < 5; ++times) {
      const std::string command = "cp -r " + source() + " " + newCopy();
      const auto start = Clock::now();
      if (std::system(command.c_str()) != 0) throw std::runtime_error("cp failed");
      copySeconds_ = std::min(copySeconds_, std::chrono::duration<double>(Clock::now() - start).count());
    }
  }
  ~Tree() { fs::remove_all(path_); }

  NSFileWrapper* read(NSUInteger options) const {
    NSURL* url = newFileURL(source(), true).autorelease();
    return adopt(NSFileWrapper::initWithURL(alloc<NSFileWrapper>(), url, options, nullptr)).autorelease();
  }
  // Where it was written. No copy goes before all do: some file systems are slow to make files where many were just deleted.
  std::string write(NSFileWrapper* wrapper, NSUInteger options, NSURL* originals = nullptr) const {
    const std::string target = newCopy();
    NSURL* url = newFileURL(target, true).autorelease();
    if (!NSFileWrapper::writeToURL(wrapper, url, options, originals, nullptr)) throw std::runtime_error("not written");
    return target;
  }
  std::string source() const { return path_ / "tree"; }
  double copySeconds() const { return copySeconds_; }

 private:
  std::string newCopy() const { return path_ / ("copy" + std::to_string(copies_++)); }

  fs::path path_;
  double copySeconds_;
  mutable int copies_ = 0;
};

const Tree& tree() {
  static const Tree made;
  return made;
}

template <class Body>
void measure(benchmark::State& state, Body&& body) {
  const double copySeconds = tree().copySeconds();
  double total = 0;
  for (auto _ : state) {
    AutoreleasePool pool;
    const auto start = Clock::now();
    body();
    total += std::chrono::duration<double>(Clock::now() - start).count();
  }
  state.counters["ratio"] = total / static_cast<double>(state.iterations()) / copySeconds;
}

void readTree(benchmark::State& state) {
  measure(state, [] { benchmark::DoNotOptimize(tree().read(1)); });
}
BENCHMARK(readTree)->Iterations(5)->Unit(benchmark::kMillisecond);

void writeTree(benchmark::State& state) {
  AutoreleasePool pool;
  NSFileWrapper* wrapper = tree().read(1);
  measure(state, [&] { tree().write(wrapper, static_cast<NSUInteger>(state.range(0))); });
}
BENCHMARK(writeTree)->ArgName("atomic")->Arg(0)->Arg(1)->Iterations(5)->Unit(benchmark::kMillisecond);

void readAndWriteTree(benchmark::State& state) {
  measure(state, [] { tree().write(tree().read(0), 0); });
}
BENCHMARK(readAndWriteTree)->Iterations(5)->Unit(benchmark::kMillisecond);

// Nothing changed since it was read: files are linked.
void writeUnchangedTree(benchmark::State& state) {
  AutoreleasePool pool;
  NSFileWrapper* wrapper = tree().read(1);
  NSURL* originals = newFileURL(tree().source(), true).autorelease();
  measure(state, [&] { tree().write(wrapper, 1, originals); });
}
BENCHMARK(writeUnchangedTree)->Iterations(5)->Unit(benchmark::kMillisecond);

void serializeTree(benchmark::State& state) {
  AutoreleasePool pool;
  NSFileWrapper* wrapper = tree().read(1);
  measure(state, [&] {
    NSData* archive = NSFileWrapper::serializedRepresentation(wrapper);
    adopt(NSFileWrapper::initWithSerializedRepresentation(alloc<NSFileWrapper>(), archive)).autorelease();
  });
}
BENCHMARK(serializeTree)->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
