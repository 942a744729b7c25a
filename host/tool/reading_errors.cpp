// Asks the platform itself: the library's classes answer no more than that a document could not be read.
#include "host/tool/reading_errors.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "host/tool/documents.hpp"
#include "platform/appkit.h"
#include "platform/guard.h"
#include "platform/owned.h"

namespace tool {
namespace {

constexpr Message<NSAttributedString*(NSURL*, NSDictionary*, NSDictionary**, NSError**)> initWithURLOptions{
    "initWithURL:options:documentAttributes:error:"};

struct Answer {
  std::string type;   // of the document, where it can be read
  std::string error;  // otherwise
};

std::string textOf(NSObject* string) {
  if (string == nullptr) return "";
  const char* utf8 = NSString::UTF8String(string);
  return utf8 != nullptr ? utf8 : "";
}

Answer read(const std::string& path) {
  const AutoreleasePool pool;
  Answer answer;
  catchException([&] {
    NSString* absolute = NSString::stringWithUTF8String(classOf<NSString>(), std::filesystem::absolute(path).c_str());
    NSURL* url = NSURL::fileURLWithPath(classOf<NSURL>(), absolute);
    NSDictionary* attributes = nullptr;
    NSError* error = nullptr;
    const auto text = adopt(initWithURLOptions(alloc<NSAttributedString>(), url, nullptr, &attributes, &error));
    if (text) answer.type = textOf(NSDictionary::objectForKey(attributes, NSDocumentTypeDocumentAttribute));
    answer.error = textOf(NSError::localizedDescription(error));
  });
  return answer;
}

// The text with the platform's names of document types in the words of this program.
std::string withFormatNames(std::string text) {
  for (size_t at = text.find("NS"); at != std::string::npos; at = text.find("NS", at + 1)) {
    const auto end = std::find_if(text.begin() + static_cast<ptrdiff_t>(at), text.end(),
                                  [](unsigned char c) { return std::isalnum(c) == 0; });
    const size_t length = static_cast<size_t>(end - text.begin()) - at;
    const std::string format = formatOfType(text.substr(at, length));
    if (!format.empty()) text.replace(at, length, format);
  }
  return text;
}

}  // namespace

std::string whyUnreadable(const std::string& path, const std::string& format) {
  const Answer answer = read(path);
  const std::string found = formatOfType(answer.type);
  if (!found.empty()) return "it is no " + format + " document, but can be read as " + found;
  if (answer.error.empty()) return "it cannot be read as a document of any known format";
  std::string message = withFormatNames(answer.error);
  const bool namesFormat = message != answer.error;
  if (message.ends_with('.')) message.pop_back();
  if (namesFormat) message += "; it may be damaged, or of another format than it seems, which --from can name";
  return message;
}

}  // namespace tool
