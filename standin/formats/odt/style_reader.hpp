// Reads the parts of a document that define its styles.
#pragma once

#include "standin/formats/memory_allowance.hpp"
#include "standin/formats/odt/library.hpp"
#include "standin/formats/odt/names.hpp"

namespace standin::formats::odt {

// Takes the elements inside font declarations, common, automatic and master styles, until half of the allowance is gone.
class StyleReader {
 public:
  // Both outlive the reader.
  StyleReader(Library& library, MemoryAllowance& allowance) : library_(library), allowance_(allowance) {}

  // `section` is the element around what follows. Automatic styles of a part without text are not the text's.
  void enter(xml::NameNumber section, bool hasText);
  void startElement(const xml::Element& element);
  void endElement(xml::NameNumber name);

 private:
  void startStyle(const xml::Element& element, bool isDefault);
  void endStyle();
  void startListStyle(const xml::Element& element, bool isOutline);
  void addFont(const xml::Element& element);
  void takePageProperties(const xml::Element& element);
  void takeProperties(const xml::Element& element);

  Library& library_;
  MemoryAllowance& allowance_;
  FontFaces faces_;
  bool isAutomatic_ = false, takesStyles_ = false;
  std::optional<Library::Key> key_;  // of the style that is open
  std::optional<Library::Key> parent_;
  StyleProperties style_;
  ListStyle* listStyle_ = nullptr;
  LevelLayout* layout_ = nullptr;
  Library::Page* page_ = nullptr;
};

}  // namespace standin::formats::odt
