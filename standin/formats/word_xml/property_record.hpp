// Formatting elements kept as they came: comparing two lists of them costs nothing, and they are understood once.
#pragma once

#include <string>
#include <vector>

#include "standin/formats/xml.hpp"

namespace standin::formats::word_xml {

class PropertyRecord {
 public:
  void clear() { bytes_.clear(); }
  bool empty() const { return bytes_.empty(); }
  // Elements that no name table knows say nothing; nor do those past the length that a record has at most.
  void add(const xml::Element& element);
  // Equal for equal elements in equal order.
  const std::string& bytes() const { return bytes_; }

  template <class Visit>
  void forEach(Visit visit) const {
    std::vector<xml::Attribute> attributes;
    for (size_t at = 0; at < bytes_.size();) visit(elementAt(at, attributes));
  }

 private:
  // Moves to the element behind.
  xml::Element elementAt(size_t& at, std::vector<xml::Attribute>& attributes) const;
  void addNumbers(uint32_t first, uint32_t second);
  uint32_t numberAt(size_t& at) const;

  std::string bytes_;
};

// What a w:pPr or a w:rPr says: elements of the paragraph, and those of the characters (or of the paragraph's mark).
// Former formatting in the history of changes is passed over.
class PropertyCollector {
 public:
  void clear();
  bool isOpen() const { return depth_ > 0; }
  // With a w:pPr or a w:rPr: both records begin anew.
  void open(const xml::Element& element);
  void startElement(const xml::Element& element);
  void endElement() { --depth_; }

  PropertyRecord paragraph, run;

 private:
  int depth_ = 0;          // of open elements, the one that it was opened with included
  int recordedDepth_ = 0;  // elements of this depth are taken
  PropertyRecord *own_ = nullptr, *target_ = nullptr;
};

}  // namespace standin::formats::word_xml
