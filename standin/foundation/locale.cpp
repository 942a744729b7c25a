// NSLocale: the name of a language and region.
#include <cstdlib>
#include <string>

#include "standin/foundation/checks.hpp"
#include "standin/foundation/immortal.hpp"
#include "standin/foundation/string.hpp"

namespace standin::foundation {
namespace {

struct Locale : Object {
  std::string identifier;
};

const ClassDefinition localeClass = defineClass<Locale>("NSLocale", "NSObject");

// "de_DE" out of "de_DE.UTF-8@euro"; the C locale is the language of the program's own texts.
std::string systemIdentifier() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value == nullptr || *value == 0) continue;
    const std::string name = std::string(value).substr(0, std::string(value).find_first_of(".@"));
    return name == "C" || name == "POSIX" ? "en_US" : name;
  }
  return "en_US";
}

NSObject* currentLocale(Class) {
  static NSObject* const locale = [] {
    Locale& state = *new Locale;
    state.identifier = systemIdentifier();
    return makeImmortal(state, localeClass);
  }();
  return locale;
}

NSObject* initWithIdentifier(NSObject* self, NSString* identifier) {
  Owned<NSObject> locale = adopt(self);
  requireArgument(self, "initWithLocaleIdentifier:", identifier);
  stateOf<Locale>(self).identifier = utf8Of(identifier);
  return locale.detach();
}

NSObject* localeWithIdentifier(Class self, NSString* identifier) {
  return adopt(initWithIdentifier(NSObject::alloc(self), identifier)).autorelease();
}

NSObject* localeIdentifier(Locale& self) { return newString(std::string_view(self.identifier)).autorelease(); }
BOOL isEqual(Locale& self, NSObject* other) {
  return isKindOf(other, localeClass.object()) && self.identifier == stateOf<Locale>(other).identifier;
}
NSUInteger hash(Locale& self) { return std::hash<std::string>()(self.identifier); }
NSObject* copy(NSObject* self, void*) { return retainObject(self); }

[[maybe_unused]] const ClassDefinition completed = ClassDefinition(localeClass)
                                                       .classMethod<currentLocale>("currentLocale")
                                                       .classMethod<localeWithIdentifier>("localeWithLocaleIdentifier:")
                                                       .method<initWithIdentifier>("initWithLocaleIdentifier:")
                                                       .method<localeIdentifier>("localeIdentifier")
                                                       .method<isEqual>("isEqual:")
                                                       .method<hash>("hash")
                                                       .method<copy>("copyWithZone:");

}  // namespace
}  // namespace standin::foundation
