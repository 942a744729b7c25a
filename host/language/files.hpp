// Reading and writing whole files, and the classes of streams.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {
class Runtime;
}

namespace language {

// Nothing, with errno saying why, where the file cannot be read.
std::optional<std::string> contentsOf(const std::string& path);

// Both raise IOException.
std::string readFile(const std::string& path);
void writeFile(const std::string& path, std::string_view bytes);

[[noreturn]] void throwFileError(const std::string& path);

// BinaryStream and TextOutputStream; does nothing where they are known.
void registerStreams(host::Runtime& runtime);

}  // namespace language
