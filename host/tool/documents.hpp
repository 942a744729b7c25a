// Documents opened and saved through the library.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/runtime/value.hpp"

namespace tool {

// What went wrong with a document, for people.
struct DocumentError {
  std::string message;
};

struct StyledDocument {
  host::Value text;        // an NSAttributedStringZKT
  host::Value attributes;  // a Dictionary, or nil
};

// Called with the number of each page that is written, by formats that have pages; may be empty.
using PageDone = std::function<void(int page)>;

// The names of the formats that can be opened, and of those that can be saved.
std::vector<std::string> readableFormats();
std::vector<std::string> writableFormats();
// The name of the format that files of this name have, "" when the name does not say.
std::string formatNamed(std::string_view path);
// The name of the format that the platform calls so, "" when there is none.
std::string formatOfType(std::string_view type);
// The ending of the names of such files.
std::string extensionOf(const std::string& format);

// Throw DocumentError. The format is the document's own when none is given. A file that is there is replaced.
StyledDocument openDocument(const std::string& path, const std::string& format);
void saveDocument(const StyledDocument& document, const std::string& path, const std::string& format,
                  const PageDone& pageDone = {});

}  // namespace tool
