// Pictures in the text: how large they are, and their bytes.
#pragma once

#include <map>
#include <memory>

#include "standin/formats/memory_allowance.hpp"
#include "standin/formats/pictures/embedded.hpp"
#include "standin/formats/word_xml/names.hpp"
#include "standin/formats/word_xml/resources.hpp"

namespace standin::formats::word_xml {

class Drawings {
 public:
  // Both outlive the drawings. Nil resources: the pictures come within the text.
  Drawings(Resources* resources, MemoryAllowance& allowance) : resources_(resources), allowance_(allowance) {}

  // A drawing begins, of which neither size nor link is known.
  void begin();
  // Takes the size that the element says, and whether it is a link.
  void startElement(const xml::Element& element);
  // The picture that the element shows: nil for one that cannot be shown.
  std::shared_ptr<const text::Attachment> pictureOf(const xml::Element& element);
  // The bytes of the picture that will be shown by this name; not more than pictures may take.
  void add(std::string name, std::string bytes);
  // Empty when it is none.
  const std::string& link() const { return link_; }

 private:
  const text::Attachment* find(std::string_view id);

  Resources* resources_;
  MemoryAllowance& allowance_;
  // By the names that the text calls them; nil for what is no picture. Shown twice, a picture has its bytes once.
  std::map<std::string, std::shared_ptr<const text::Attachment>, std::less<>> pictures_;
  pictures::SizedPictures sized_;
  double width_ = 0, height_ = 0;  // points
  std::string link_;
};

}  // namespace standin::formats::word_xml
