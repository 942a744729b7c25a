// The host's language: any text is refused with a place inside it, or runs, for a while; nothing it held is left.
#include <algorithm>
#include <cctype>
#include <sstream>

#include "fuzz/support/fuzzer.hpp"
#include "host/language/interpreter.hpp"
#include "host/runtime/runtime.hpp"

namespace {

constexpr uint64_t mostSteps = 20'000;
// Programs may ask for as much memory as they please, and for any file: those that could are left out.
constexpr size_t mostDigits = 4;
constexpr std::string_view outsideWords[] = {"folderitem", "stream", "file"};

bool isHarmless(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  size_t digits = 0;
  for (const char c : text) {
    digits = c >= '0' && c <= '9' ? digits + 1 : 0;
    if (digits > mostDigits) return false;
  }
  return std::none_of(std::begin(outsideWords), std::end(outsideWords),
                      [&](std::string_view word) { return text.find(word) != std::string::npos; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string_view source = fuzz::textOf({bytes, size});
  if (!isHarmless(std::string(source))) return 0;
  host::Runtime& runtime = host::Runtime::shared();
  const host::LiveCounts before = runtime.live();
  std::ostringstream output;
  const auto failure = language::run(runtime, source, {"program", {}, mostSteps}, output);
  const auto lines = static_cast<size_t>(std::count(source.begin(), source.end(), '\n')) + 1;
  fuzz::require(!failure || static_cast<size_t>(failure->position.line) <= lines + 1, "the failure lies behind the text");
  fuzz::require(runtime.live() == before, "it left values behind");
  return 0;
}
