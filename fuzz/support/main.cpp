// Runs a fuzzer without libFuzzer: replays the files it is given, and with --seconds=N goes on to random changes of them.
//   FUZZER [--seconds=N] [--seed=N] FILE|FOLDER...
// An input that ends the process, or takes more than five seconds, is kept in the file "crash-input".
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fuzz/support/fuzzer.hpp"

// The mutator that a fuzzer may lack.
extern "C" __attribute__((weak)) size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t room, unsigned seed);

namespace {

using Input = std::vector<uint8_t>;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds mostTime{5};
constexpr size_t mostGrowth = 4096;

std::mt19937 random_engine;
Input current;
// Absolute: fuzzers may change the folder.
const std::string keptInput = std::filesystem::absolute("crash-input");

size_t below(size_t limit) { return limit == 0 ? 0 : random_engine() % limit; }

// Only what signal handlers may call.
void keepInput(int signal) {
  const int file = ::open(keptInput.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (file >= 0 && ::write(file, current.data(), current.size()) >= 0) ::close(file);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void run(Input input) {
  current = std::move(input);
  const Clock::time_point start = Clock::now();
  LLVMFuzzerTestOneInput(current.data(), current.size());
  fuzz::require(Clock::now() - start < mostTime, "it took more than five seconds");
}

Input contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return Input(std::istreambuf_iterator<char>(file), {});
}

void collect(const std::filesystem::path& path, std::vector<Input>& inputs) {
  if (!std::filesystem::is_directory(path)) return inputs.push_back(contentsOf(path));
  for (const auto& entry : std::filesystem::directory_iterator(path)) inputs.push_back(contentsOf(entry.path()));
}

Input mutated(Input input) {
  size_t size = input.size();
  const size_t room = size + mostGrowth;
  input.resize(room);
  for (size_t changes = 1 + below(4); changes > 0; --changes) {
    size = LLVMFuzzerCustomMutator != nullptr
               ? LLVMFuzzerCustomMutator(input.data(), size, room, static_cast<unsigned>(random_engine()))
               : LLVMFuzzerMutate(input.data(), size, room);
  }
  input.resize(size);
  return input;
}

// On a stack of its own, for inputs that use up the other one.
void keepInputsThatEndTheProcess() {
  static std::array<char, 1 << 16> memory;
  const stack_t stack{.ss_sp = memory.data(), .ss_flags = 0, .ss_size = memory.size()};
  sigaltstack(&stack, nullptr);
  struct sigaction action {};
  action.sa_handler = keepInput;
  action.sa_flags = SA_ONSTACK;
  for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL}) sigaction(signal, &action, nullptr);
}

long numberAfter(std::string_view argument) { return std::stol(std::string(argument.substr(argument.find('=') + 1))); }

}  // namespace

extern "C" size_t LLVMFuzzerMutate(uint8_t* bytes, size_t size, size_t room) {
  constexpr uint8_t telling[] = {0, 1, 0x7F, 0x80, 0xFF, '"', '<', '{', '\\', '-', '9'};
  const size_t at = below(size), count = std::min(1 + below(16), size - at);
  switch (below(4)) {
    case 0:
      if (size > 0) bytes[at] = telling[below(std::size(telling))];
      return size;
    case 1:
      if (size > 0) bytes[at] = static_cast<uint8_t>(bytes[at] ^ (1U << below(8)));
      return size;
    case 2:
      std::copy(bytes + at + count, bytes + size, bytes + at);
      return size - count;
    default:
      if (size + count > room) return size;
      std::copy_backward(bytes + at, bytes + size, bytes + size + count);
      return size + count;
  }
}

int main(int count, char** arguments) {
  std::vector<Input> inputs{{}};
  std::chrono::seconds duration{0};
  for (const std::string_view argument : std::vector<std::string_view>(arguments + 1, arguments + count)) {
    if (argument.starts_with("--seconds=")) {
      duration = std::chrono::seconds(numberAfter(argument));
    } else if (argument.starts_with("--seed=")) {
      random_engine.seed(static_cast<unsigned>(numberAfter(argument)));
    } else {
      collect(argument, inputs);
    }
  }
  keepInputsThatEndTheProcess();
  for (const Input& input : inputs) run(input);
  size_t changed = 0;
  for (const Clock::time_point end = Clock::now() + duration; Clock::now() < end; ++changed) {
    run(mutated(inputs[below(inputs.size())]));
  }
  std::printf("%zu inputs, %zu changes of them\n", inputs.size(), changed);
}
