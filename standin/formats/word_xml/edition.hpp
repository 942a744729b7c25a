// What the editions of Word's XML write differently around one text.
#pragma once

#include <string>
#include <string_view>

#include "standin/text/attachment.hpp"
#include "standin/text/link.hpp"

namespace standin::formats::word_xml {

class Edition {
 public:
  virtual ~Edition() = default;
  // The spelling of a name or value of several words: "lineRule".
  virtual std::string spelled(std::string_view name) const = 0;
  // Soft hyphens and hyphens that do not break are elements, not characters.
  virtual bool hasHyphenElements() const = 0;
  // Around the runs of a link, which lie in one paragraph.
  virtual void openLink(std::string& out, const text::Link& target) = 0;
  virtual void closeLink(std::string& out) = 0;
  // Within a run. `number` counts the pictures of the document from 1; sizes are points.
  virtual void appendPicture(std::string& out, const text::Attachment& picture, int number, double width, double height) = 0;
};

}  // namespace standin::formats::word_xml
