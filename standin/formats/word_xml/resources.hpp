// What a document's text refers to and keeps elsewhere.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace standin::formats::word_xml {

class Resources {
 public:
  virtual ~Resources() = default;
  // The address of a link; empty when there is none by this name.
  virtual std::string linkTarget(std::string_view id) = 0;
  // Nothing when it has more than so many bytes.
  virtual std::optional<std::string> picture(std::string_view id, size_t most) = 0;
};

}  // namespace standin::formats::word_xml
