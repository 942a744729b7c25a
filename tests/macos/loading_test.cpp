// The binary on systems that lack what it asks for.
#include "host/runtime/record.hpp"
#include "host/runtime/runtime.hpp"
#include "host/runtime/string.hpp"
#include "platform/owned.h"
#include "tests/macos/support.hpp"

namespace macos {
namespace {

using host::ClassRecord;

const ClassRecord* attributedString;

void keepFirst(ClassRecord* record) {
  if (attributedString == nullptr) attributedString = record;
}

// The whole host, but that classes are not declared to it.
void* resolve(const char* service) {
  if (std::string_view(service) == "PluginRegisterClass") return reinterpret_cast<void*>(&keepFirst);
  return host::Runtime::resolve(service);
}

// What the class's shared method gives whose declaration begins so; none for nil.
std::string constantNamed(const std::string& name) {
  for (uint64_t index = 0; index < attributedString->sharedMethodCount; ++index) {
    const host::MethodRecord& row = attributedString->sharedMethods[index];
    if (!std::string_view(row.declaration).starts_with(name + " ")) continue;
    const AutoreleasePool pool;
    const auto text = host::adopt(reinterpret_cast<host::HostString* (*)()>(row.function)());
    return text ? std::string(text->bytes()) : "none";
  }
  return "not declared";
}

class Loading : public BinaryTest {
 protected:
  void start(const Binder& bind) {
    attributedString = nullptr;
    const LoadedImage image(Image(libraryPath), bind);
    image.initialize();
    image.symbol<void(host::Resolver)>("_REALPluginMain")(&resolve);
    ASSERT_NE(attributedString, nullptr);
  }
};

TEST_F(Loading, ConstantsOfNewerSystemsAreThereOrNil) {
  start(addressOfImport);
  EXPECT_NE(constantNamed("NSTextEffectAttributeName"), "none");
  start([](const std::string& symbol) {
    const bool newer = symbol.starts_with("_NSTextEffect") || symbol == "_NSTextAlternativesAttributeName" ||
                       symbol == "_NSDefaultAttributesDocumentAttribute";
    return newer ? nullptr : addressOfImport(symbol);
  });
  for (const char* name : {"NSTextEffectAttributeName", "NSTextAlternativesAttributeName", "NSTextEffectLetterpressStyle",
                           "NSDefaultAttributesDocumentAttribute"}) {
    EXPECT_EQ(constantNamed(name), "none");
  }
  EXPECT_EQ(constantNamed("NSFontAttributeName"), "NSFont");
}

TEST_F(Loading, AnythingElseThatIsMissingIsNamed) {
  const auto without = [](const std::string& symbol) { return symbol == "_NSLog" ? nullptr : addressOfImport(symbol); };
  try {
    const LoadedImage image(Image(libraryPath), without);
    FAIL() << "it was loaded";
  } catch (const ImageError& error) {
    EXPECT_NE(std::string(error.what()).find("_NSLog"), std::string::npos) << error.what();
  }
}

}  // namespace
}  // namespace macos
