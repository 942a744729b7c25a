// Functions that answer the paths of the user's folders.
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "standin/foundation/string_classes.hpp"

namespace {

NSString* fromEnvironment(const char* variable, const char* otherwise) {
  using namespace standin::foundation;
  const char* value = std::getenv(variable);
  const Owned<NSString> path = newString(std::string_view(value != nullptr && *value != 0 ? value : otherwise));
  return path ? retain(path.get()).autorelease() : constantString(otherwise);
}

}  // namespace

extern "C" {

// With a slash at the end, as the platform answers it.
NSString* NSTemporaryDirectory() {
  NSString* const path = fromEnvironment("TMPDIR", "/tmp");
  NSString* const slash = standin::foundation::constantString("/");
  return NSString::hasSuffix(path, slash) ? path : NSString::stringByAppendingString(path, slash);
}

NSString* NSHomeDirectory() {
  const passwd* const user = ::getpwuid(::getuid());
  return fromEnvironment("HOME", user != nullptr ? user->pw_dir : "/");
}

NSString* NSUserName() {
  const passwd* const user = ::getpwuid(::getuid());
  return fromEnvironment("USER", user != nullptr ? user->pw_name : "");
}
}
