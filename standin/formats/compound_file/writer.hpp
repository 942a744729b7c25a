// Writes compound files: the container of named streams that Office's binary formats are kept in.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace standin::formats::compound_file {

struct Stream {
  std::string_view name;  // ASCII, 31 characters at most; no two are alike but for capitals
  std::string_view bytes;
};

using ClassIdentifier = std::array<uint8_t, 16>;

// The file of the streams, all of them in its root; `kind` says what program it belongs to. Nothing when the bytes are more
// than the container can address.
std::optional<std::string> write(std::span<const Stream> streams, const ClassIdentifier& kind);

}  // namespace standin::formats::compound_file
