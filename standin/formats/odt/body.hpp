// Reads the text of a document.
#pragma once

#include "standin/formats/odt/numbering.hpp"
#include "standin/formats/odt/pictures.hpp"
#include "standin/formats/odt/places.hpp"

namespace standin::formats::odt {

class Body {
 public:
  // The library and the allowance outlive the body.
  Body(const Library& library, PartSource parts, MemoryAllowance& allowance, bool showsTextBoxes);

  // Elements inside the document's body.
  void startElement(const xml::Element& element);
  void endElement(xml::NameNumber name);
  void characters(std::string_view text);
  // What was read takes all the memory that it may.
  bool isFull() const;

  // Whether there was anything to be read.
  bool isText() const { return isText_; }
  bool hasTextBoxes() const { return hasTextBoxes_; }
  const std::string& firstMasterPage() const { return firstMasterPage_; }
  // The text without the end of its last paragraph. Nothing is left here.
  Document take();

 private:
  struct Cell {
    size_t start;  // of its text
    int copies;
  };

  struct ElementRow;
  static const ElementRow elementRows[];

  Place place() const { return places_.back(); }
  bool isSkipping() const { return skipped_ > 0; }
  void skip() { skipped_ = 1; }

  void startParagraph(const xml::Element& element);
  void endParagraph();
  void breakPage(const ParagraphLook& look);
  void startSpan(const xml::Element& element);
  void startLink(const xml::Element& element);
  void startCitation();
  void startCell(const xml::Element& element);
  void endCell();
  void startTextBox();
  void startVariable(const xml::Element& element);
  void spaces(const xml::Element& element);

  void unit(char16_t unit);
  void text(std::string_view utf8);
  void addPicture(Pictures::Attachment picture);
  void repeat(size_t start, int copies);

  const Library& library_;
  MemoryAllowance& allowance_;
  const bool showsTextBoxes_;
  DocumentBuilder builder_;
  Places styles_;
  Numbering numbering_;
  Pictures pictures_;
  std::vector<size_t> paragraphs_;  // open ones: how many places were open before each
  std::vector<Place> places_;
  std::vector<Cell> cells_;
  Script script_ = Script::western;
  std::string noteClass_, binary_, firstMasterPage_;
  size_t repeated_ = 0;  // units, by counts of spaces and cells
  int skipped_ = 0;      // elements that are open inside one that is not shown, itself included
  bool isText_ = false, hasTextBoxes_ = false, takesBinary_ = false;
  bool isAfterSpace_ = true;  // white space that follows is none of the text
  bool isFirst_ = true;       // no paragraph was met
};

}  // namespace standin::formats::odt
