// What tests of collections, values and files share: texts, messages by selector, a folder of their own, a time zone.
#pragma once

#include <stdlib.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "standin/foundation/string.hpp"
#include "tests/standin/string_support.hpp"

namespace foundation_support {

using namespace standin::foundation;
using string_support::raised;

inline NSString* ns(std::string_view utf8) { return newString(utf8).autorelease(); }

// The UTF-8 of a string that a message answered; "(nil)" for nil.
inline std::string utf8(NSObject* string) { return string != nullptr ? utf8Of(static_cast<NSString*>(string)) : "(nil)"; }

// Sends a message that the platform's headers do not declare.
template <class Result = NSObject*, class... Arguments>
Result send(NSObject* receiver, const char* selector, Arguments... arguments) {
  return Message<Result(Arguments...)>(selector)(receiver, arguments...);
}

inline NSObject* classNamed(const char* name) { return objc_getClass(name); }

// A new folder, gone with all that is in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    char name[] = "/tmp/foundation-test-XXXXXX";
    path_ = mkdtemp(name);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
  const std::string& path() const { return path_; }
  // Makes a file and answers its path.
  std::string file(std::string_view name, std::string_view content = "content") const {
    const std::string path = *this / name;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path) << content;
    return path;
  }

 private:
  std::string path_;
};

// Sets TZ for the lifetime of this value.
class LocalZone {
 public:
  explicit LocalZone(const char* name) {
    if (const char* value = getenv("TZ")) before_ = value;
    setenv("TZ", name, 1);
    tzset();
  }
  LocalZone(const LocalZone&) = delete;
  ~LocalZone() {
    before_.empty() ? unsetenv("TZ") : setenv("TZ", before_.c_str(), 1);
    tzset();
  }

 private:
  std::string before_;
};

}  // namespace foundation_support
