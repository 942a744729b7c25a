// Declarations: one that is read means the same when its description is read, and so is described the same.
#include "fuzz/support/fuzzer.hpp"
#include "host/runtime/declaration.hpp"

namespace {

template <class Parse>
auto parsed(Parse&& parse, std::string_view text) -> std::optional<decltype(parse(text))> {
  try {
    return parse(text);
  } catch (const host::DeclarationError& error) {
    fuzz::require(error.offset <= text.size(), "the error lies behind the text");
    return std::nullopt;
  }
}

void checkDescription(const host::Declaration& declaration) {
  const std::string description = host::describe(declaration);
  const auto again = parsed(host::parseDeclaration, description);
  fuzz::require(again.has_value(), "its description is no declaration: " + description);
  fuzz::require(host::sameSignature(declaration, *again), "its description declares something else: " + description);
  fuzz::require(host::describe(*again) == description, "its description is described differently: " + description);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string_view text = fuzz::textOf({bytes, size});
  if (const auto declaration = parsed(host::parseDeclaration, text)) checkDescription(*declaration);
  parsed(host::parsePropertyDeclaration, text);
  parsed(host::parseConstant, text);
  return 0;
}
