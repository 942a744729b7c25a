// The lists of a document: what their levels look like, and the markers of their items.
#pragma once

#include <map>
#include <memory>

#include "standin/formats/list_markers.hpp"
#include "standin/formats/memory_allowance.hpp"
#include "standin/formats/word_xml/formatting.hpp"

namespace standin::formats::word_xml {

struct NumberingLevel {
  ListLevel look;
  bool isLegal = false;        // the numbers of the levels above are decimal in its markers
  std::string paragraphStyle;  // paragraphs of this style are on this level
  ParagraphProperties paragraph;
};

// What several lists have in common: their items are counted together.
struct AbstractNumbering {
  std::map<int, NumberingLevel> levels;
  std::string styleLink, numberingStyleLink;  // the style that it defines, and the one that it is defined by
  ListCounters counters;
};

struct NumberingInstance {
  int abstract = -1;
  std::map<int, NumberingLevel> levels;  // instead of the abstract ones
  std::map<int, int> starts;             // numbers that the first items of levels have; gone when these came
  std::unique_ptr<std::array<ListLevel, listLevels>> looks{};  // of all levels, made when the first item comes
};

// Lists have the numbers by which paragraphs name them, levels count from 0.
class Numbering {
 public:
  // Nil past the number of lists that a document can have.
  AbstractNumbering* addAbstract(int id);
  NumberingInstance* addInstance(int id);

  // What the level says of paragraphs; nil when there is no such list or level.
  const NumberingLevel* level(int list, int level) const;
  // The level of the list that paragraphs of the style are on.
  std::optional<int> levelOfStyle(int list, std::string_view style) const;
  // Counts an item and gives its marker; empty when there is no such list.
  std::u16string nextMarker(int list, int level);

 private:
  const AbstractNumbering* abstractOf(const NumberingInstance& instance) const;
  std::array<ListLevel, listLevels> looksOf(const NumberingInstance& instance) const;

  std::map<int, AbstractNumbering> abstracts_;
  std::map<int, NumberingInstance> instances_;
  std::map<std::string, int, std::less<>> abstractsByStyle_;

  friend class NumberingHandler;
};

class NumberingHandler final : public xml::Handler {
 public:
  // Both outlive the handler.
  NumberingHandler(Numbering& numbering, MemoryAllowance& allowance) : numbering_(numbering), allowance_(allowance) {}
  void startElement(const xml::Element& element) override;
  void endElement(xml::NameNumber name) override;
  void characters(std::string_view) override {}
  bool isFull() const override { return allowance_.isHalfSpent(); }

 private:
  void startLevel(const xml::Element& element);
  void takeLevelElement(const xml::Element& element);
  void takeReference(const xml::Element& element);

  Numbering& numbering_;
  MemoryAllowance& allowance_;
  AbstractNumbering* abstract_ = nullptr;
  NumberingInstance* instance_ = nullptr;
  NumberingLevel* level_ = nullptr;
  int abstractId_ = 0, levelIndex_ = 0;
  PropertyCollector collector_;
};

}  // namespace standin::formats::word_xml
