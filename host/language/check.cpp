// Reads a program with a diagnosis.
#include "host/language/check.hpp"

#include "host/language/diagnosis.hpp"
#include "host/language/files.hpp"
#include "host/language/parser.hpp"

namespace language {

std::vector<Failure> check(host::Runtime& runtime, std::string_view source) {
  registerStreams(runtime);
  Diagnosis diagnosis(runtime);
  Parser(source, namesOf(runtime), &diagnosis).run();
  std::vector<Failure> failures;
  for (const auto& [line, error] : diagnosis.errors()) failures.push_back({error.position, error.what()});
  return failures;
}

}  // namespace language
