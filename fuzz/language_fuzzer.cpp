// The host's language: any text is refused with a place inside it, or runs, for a while; nothing it held is left. A check
// finds what the text is refused for, and nothing in a program that runs to its end with every line of it.
#include <algorithm>
#include <cctype>
#include <sstream>

#include "fuzz/support/fuzzer.hpp"
#include "host/language/check.hpp"
#include "host/language/program.hpp"
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

// Words of statements and operators that leave something out, or go on behind what went wrong.
constexpr std::string_view skippingWords[] = {"if",   "select", "for",  "while", "do",       "try", "sub", "function",
                                              "exit", "return", "then", "else",  "continue", "and", "or"};

// Whether a run that ends well has run every line.
bool runsEveryLine(const std::string& source) {
  const auto isLetter = [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; };
  for (auto at = source.begin(); at != source.end();) {
    const auto end = std::find_if_not(at, source.end(), isLetter);
    std::string word(at, end);
    std::transform(word.begin(), word.end(), word.begin(), [](unsigned char c) { return std::tolower(c); });
    if (std::find(std::begin(skippingWords), std::end(skippingWords), word) != std::end(skippingWords)) return false;
    at = std::find_if(end == at ? end + 1 : end, source.end(), isLetter);
  }
  return true;
}

// The line of what keeps the program from being read.
std::optional<uint32_t> lineRefused(const host::Runtime& runtime, std::string_view source) {
  try {
    language::parse(source, language::namesOf(runtime));
    return {};
  } catch (const language::SyntaxError& error) {
    return error.position.line;
  }
}

// A member that no value can have is an error of its own when it is reached.
bool isAboutMember(const language::Failure& failure) {
  return failure.message.find("\" of ") != std::string::npos || failure.message.find("has no member") != std::string::npos;
}

void checkAgrees(host::Runtime& runtime, const std::string& source, bool ranWell) {
  const std::vector<language::Failure> found = language::check(runtime, source);
  const auto isOn = [](uint32_t line) {
    return [=](const language::Failure& failure) { return failure.position.line == line; };
  };
  if (const auto line = lineRefused(runtime, source)) {
    return fuzz::require(std::any_of(found.begin(), found.end(), isOn(*line)), "a check does not find what is refused");
  }
  fuzz::require(std::all_of(found.begin(), found.end(), isAboutMember), "a check refuses what can be read");
  fuzz::require(found.empty() || !ranWell || !runsEveryLine(source), "a check refuses what runs");
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
  checkAgrees(runtime, std::string(source), !failure);
  fuzz::require(runtime.live() == before, "it left values behind");
  return 0;
}
