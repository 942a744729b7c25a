// UTF-16 text as a value.
#include "standin/text/text.hpp"

#include <algorithm>
#include <stdexcept>

namespace standin::text {
namespace {

UnitSpan spanOf(std::string_view latin1) {
  return UnitSpan(std::span(reinterpret_cast<const uint8_t*>(latin1.data()), latin1.size()));
}

UnitSpan spanOf(std::u16string_view units) { return UnitSpan(std::span(units.data(), units.size())); }

}  // namespace

// Making.

uint32_t Text::checkedLength(uint64_t length) {
  if (length > maximumLength) throw std::length_error("text longer than 4294967295 units");
  return static_cast<uint32_t>(length);
}

Text Text::latin1(std::string_view bytes) {
  checkedLength(bytes.size());
  return Text(FlatText(spanOf(bytes)));
}

Text Text::utf16(std::u16string_view units) {
  checkedLength(units.size());
  return Text(FlatText(spanOf(units)));
}

// Reading.

UnitSpan Text::chunkAt(uint32_t position) const {
  if (isFlat()) return flat_.units().slice(position, flat_.size() - position);
  const Tree::Place place = tree_.find(position);
  const UnitSpan units = place.leaf->content();
  const uint32_t offset = position - place.before.units;
  return units.slice(offset, units.size() - offset);
}

void Text::copy(uint32_t from, uint32_t count, char16_t* out) const {
  visitChunks(from, count, [&](auto units) {
    UnitSpan(units).copyTo(out);
    out += units.size();
  });
}

bool Text::operator==(const Text& other) const {
  if (size() != other.size()) return false;
  if (isFlat() ? flat_.sharesBufferWith(other.flat_) && other.isFlat() : tree_.sharesRootWith(other.tree_)) return true;
  if (isFlat() && other.isFlat()) return flat_.units() == other.flat_.units();
  for (uint32_t position = 0; position < size();) {
    const UnitSpan own = chunkAt(position), others = other.chunkAt(position);
    const uint32_t count = std::min(own.size(), others.size());
    if (!(own.slice(0, count) == others.slice(0, count))) return false;
    position += count;
  }
  return true;
}

// Slices.

FlatText Text::flattened(uint32_t from, uint32_t count) const {
  bool isNarrow = true;
  visitChunks(from, count, [&](auto units) { isNarrow = isNarrow && UnitSpan(units).isLatin1(); });
  const auto fill = [&](auto* out) {
    visitChunks(from, count, [&](auto units) {
      UnitSpan(units).copyTo(out);
      out += units.size();
    });
  };
  return isNarrow ? FlatText::filled<uint8_t>(count, fill) : FlatText::filled<char16_t>(count, fill);
}

Text Text::slice(uint32_t from, uint32_t count) const {
  if (count == size()) return *this;
  // Short slices are copies, so that a word does not keep a book.
  constexpr uint32_t copied = 1024;
  if (!isFlat()) return count <= flatLimit ? Text(flattened(from, count)) : Text(tree_.slice(from, count));
  return count <= copied ? Text(FlatText(flat_.units().slice(from, count))) : Text(flat_.slice(from, count));
}

// Editing.

void Text::splice(uint32_t from, uint32_t removed, const Text& inserted) {
  if (&inserted == this) return splice(from, removed, Text(inserted));
  const uint32_t newSize = checkedLength(uint64_t{size()} - removed + inserted.size());
  if (removed == size()) {
    *this = inserted;
  } else if (isFlat() && inserted.isFlat() && (newSize <= flatLimit || from + removed == size())) {
    flat_.splice(from, removed, inserted.flat_.units());
  } else {
    if (isFlat()) *this = Text(Tree::load(flat_.units()));
    if (inserted.isFlat()) {
      tree_.replace(from, removed, inserted.flat_.units());
    } else {
      tree_.splice(from, removed, inserted.tree_);
    }
  }
}

void Text::append(std::string_view latin1) { appendUnits(spanOf(latin1)); }
void Text::append(std::u16string_view units) { appendUnits(spanOf(units)); }

void Text::appendUnits(UnitSpan units) {
  checkedLength(uint64_t{size()} + units.size());
  if (isFlat()) {
    flat_.splice(size(), 0, units);
  } else {
    tree_.replace(size(), 0, units);
  }
}

void Text::checkInvariants() const {
  if (!isFlat() && flat_.size() > 0) throw std::logic_error("text both flat and in a tree");
  tree_.checkInvariants([](const auto&) {});
}

}  // namespace standin::text
