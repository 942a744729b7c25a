// The leaf of a tree of text: some units in a buffer of their own, as bytes while all of them are Latin-1.
#pragma once

#include "standin/text/attachment.hpp"
#include "standin/text/flat_text.hpp"
#include "standin/text/summed_tree.hpp"

namespace standin::text {

struct TextSum {
  uint32_t units, paragraphBreaks, attachments;

  TextSum& operator+=(const TextSum& other) {
    units += other.units;
    paragraphBreaks += other.paragraphBreaks;
    attachments += other.attachments;
    return *this;
  }
  TextSum& operator-=(const TextSum& other) {
    units -= other.units;
    paragraphBreaks -= other.paragraphBreaks;
    attachments -= other.attachments;
    return *this;
  }
  bool operator==(const TextSum&) const = default;
};

// The unit ends a paragraph, alone or as one of a pair: line feed, carriage return, paragraph separator.
constexpr bool isParagraphBreak(char16_t unit) { return unit == u'\n' || unit == u'\r' || unit == u'\u2029'; }

TextSum sumOfUnits(UnitSpan units);

template <uint32_t leafCapacity>
class TextLeaf : public TreeNode {
 public:
  using Sum = TextSum;
  using Content = UnitSpan;
  static constexpr uint32_t capacity = leafCapacity;

  static uint32_t countOf(const UnitSpan& units) { return units.size(); }
  static UnitSpan slice(const UnitSpan& units, uint32_t from, uint32_t count) { return units.slice(from, count); }
  static TextSum sumOf(const UnitSpan& units) { return sumOfUnits(units); }
  static uint32_t roomFor(uint32_t units) { return units; }
  static TextLeaf* make(uint32_t) { return new TextLeaf; }
  static void destroy(TextLeaf* leaf) { delete leaf; }
  static constexpr bool canGrow = false;  // nor need to

  uint32_t count() const { return text_.size(); }
  UnitSpan content() const { return text_.units(); }
  bool hasRoom(uint32_t) const { return true; }
  size_t bytesHeld() const { return sizeof(TextLeaf) + text_.bytesHeld(); }
  Extent extent(uint32_t from, uint32_t removed) const { return {from, removed}; }
  void append(const UnitSpan& units) { text_.splice(text_.size(), 0, units); }
  void replace(Extent extent, const UnitSpan& units, TextSum& sum) {
    sum -= sumOf(content().slice(extent.first, extent.count));
    sum += sumOf(units);
    text_.splice(extent.first, extent.count, units);
  }

 private:
  FlatText text_;
};

}  // namespace standin::text
