// Finds the rules of a sheet that are for an element, along a walk over the document: what holds of the elements around and
// before is known by then, so that no selector is ever followed back.
#pragma once

#include <optional>
#include <unordered_map>

#include "standin/formats/html/css/style_sheet.hpp"
#include "standin/formats/html/work.hpp"

namespace standin::formats::html::css {

struct SiblingCount {
  int elements = 0;
  std::unordered_map<std::string_view, int> ofType;
};

class RuleFinder {
 public:
  // Both must outlive the finder.
  RuleFinder(const StyleSheet& sheet, const Tree& tree);

  // Appends the steps that selectors end in and that hold of the element, in the order of their numbers. To be asked of
  // elements in the order of the document, of each one whose parent was asked about unless it is none to be shown. Once the
  // work is spent, no more are found.
  void find(NodeIndex element, Work& work, Steps& found);

 private:
  // The children of an element that is open.
  struct Siblings {
    NodeIndex parent = noNode;
    Steps last;          // that hold of the child before, or that is open
    Steps earlier;       // of any child so far, those that "~" goes on from
    SiblingCount count;  // up to the child at hand
    std::optional<SiblingCount> all{};
  };

  void moveInto(NodeIndex parent);
  void open(NodeIndex parent);
  void close();
  Siblings& siblings() { return open_[depth_]; }
  void count(NodeIndex element);
  void finishElement();

  void findClasses();
  void tryFoundBy(NodeIndex element);
  void tryEach(const Steps& steps);
  void tryNamed(const StepIndex::ByName& steps, std::string_view name);
  bool comesFrom(const SelectorStep& step);

  bool holds(const SelectorPart& part);
  bool holdsOfAttribute(const SelectorPart& part);
  bool holdsOfPlace(const SelectorPart& part);
  const SiblingCount& allSiblings();
  bool spend(uint64_t units) { return work_->spend(units); }

  const StyleSheet& sheet_;
  const Tree& tree_;
  std::vector<Siblings> open_;  // `depth_` is the last one's place; those behind are kept for their memory
  size_t depth_ = 0;
  std::vector<uint32_t> holdsAround_;  // by step: of how many of the elements that are open it holds

  // Of the element at hand.
  NodeIndex element_ = noNode;
  Work* work_ = nullptr;
  Steps* found_ = nullptr;
  Steps holding_;
  std::vector<uint32_t> classes_;  // that the sheet names, in the order of their numbers
};

}  // namespace standin::formats::html::css
