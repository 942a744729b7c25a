// UTF-16 text as a value: the characters of styled text, and the storage of every string.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "standin/text/flat_text.hpp"
#include "standin/text/text_leaf.hpp"

namespace standin::text {

// The most units that a text can hold.
inline constexpr uint64_t maximumLength = UINT32_MAX;

struct UnitRange {
  uint32_t start, length;

  uint32_t end() const { return start + length; }
  bool operator==(const UnitRange&) const = default;
};

// Copies share. One flat array while small or edited only at its end; a tree from the first edit inside a large text on.
// A length beyond `maximumLength` throws std::length_error; positions and counts must lie inside the text.
class Text {
 public:
  Text() = default;
  static Text latin1(std::string_view bytes);    // one unit a byte
  static Text utf16(std::u16string_view units);  // held in bytes when every unit is below 0x100
  // Built in place: fill(char*) or fill(char16_t*) writes `size` units.
  template <class Fill>
  static Text latin1Filled(size_t size, Fill&& fill) {
    return Text(
        FlatText::filled<uint8_t>(checkedLength(size), [&](uint8_t* bytes) { fill(reinterpret_cast<char*>(bytes)); }));
  }
  template <class Fill>
  static Text utf16Filled(size_t size, Fill&& fill) {
    return Text(FlatText::filled<char16_t>(checkedLength(size), std::forward<Fill>(fill)));
  }

  uint32_t size() const { return isFlat() ? flat_.size() : tree_.sum().units; }
  bool empty() const { return size() == 0; }
  char16_t operator[](uint32_t position) const { return isFlat() ? flat_.units()[position] : chunkAt(position)[0]; }
  void copy(uint32_t from, uint32_t count, char16_t* out) const;

  // Calls visit(std::span<const uint8_t>) for Latin-1 stretches or visit(std::span<const char16_t>) for others, in order.
  template <class Visit>
  void visitChunks(uint32_t from, uint32_t count, Visit&& visit) const {
    for (const uint32_t end = from + count; from < end;) {
      UnitSpan chunk = chunkAt(from);
      if (chunk.size() > end - from) chunk = chunk.slice(0, end - from);
      chunk.visit(visit);
      from += chunk.size();
    }
  }

  Text slice(uint32_t from, uint32_t count) const;
  void splice(uint32_t from, uint32_t removed, const Text& inserted);
  void append(const Text& text) { splice(size(), 0, text); }
  void append(std::string_view latin1);
  void append(std::u16string_view units);
  bool operator==(const Text& other) const;

  // The whole paragraphs that hold the range, with the breaks that end them; CR LF is one break.
  UnitRange paragraphs(uint32_t from, uint32_t count) const;
  // How many units in the range stand for attachments.
  uint32_t attachmentCharacters(uint32_t from, uint32_t count) const;

  // Throws std::logic_error when something is wrong.
  void checkInvariants() const;
  // Shared storage included.
  size_t bytesHeld() const { return flat_.bytesHeld() + tree_.bytesHeld(); }

 private:
  using Tree = SummedTree<TextLeaf<1024>>;
  // Up to this many units edits inside stay flat, and slices are made flat.
  static constexpr uint32_t flatLimit = 4096;

  explicit Text(FlatText flat) : flat_(std::move(flat)) {}
  explicit Text(Tree tree) : tree_(std::move(tree)) {}
  bool isFlat() const { return tree_.empty(); }
  // The length as 32 bits; throws std::length_error when it does not fit.
  static uint32_t checkedLength(uint64_t length);
  // From the position to the end of the array or leaf that holds it.
  UnitSpan chunkAt(uint32_t position) const;
  FlatText flattened(uint32_t from, uint32_t count) const;
  void appendUnits(UnitSpan units);
  bool isBreakPair(uint32_t position) const;
  uint32_t paragraphStart(uint32_t position) const;
  uint32_t paragraphEnd(uint32_t position) const;
  // Along the tree.
  TextSum sumBefore(uint32_t position) const;
  uint32_t positionOfBreak(uint32_t index) const;

  FlatText flat_;  // empty while the tree holds the text
  Tree tree_;
};

}  // namespace standin::text
