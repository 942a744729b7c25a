// Pieces cut at the stretches of the pages.
#include "standin/formats/doc/raw_text.hpp"

#include <algorithm>
#include <array>

#include "standin/formats/code_pages.hpp"

namespace standin::formats::doc {
namespace {

// Bytes of narrow pieces, which are characters of the Windows code page for western languages.
const std::array<char16_t, 256>& narrowCharacters() {
  static const auto table = [] {
    std::array<char16_t, 256> characters{};
    Decoder decoder;
    for (size_t byte = 0; byte < characters.size(); ++byte) {
      const auto character = static_cast<char>(byte);
      std::u16string text;
      decoder.append(text, {&character, 1}, 1252);
      characters[byte] = text.empty() ? u'\uFFFD' : text[0];
    }
    return characters;
  }();
  return table;
}

}  // namespace

RawText::RawText(const Source& source, const Pieces& pieces) {
  const PropertyRuns pages = characterRunsOf(source);
  for (const Piece& piece : pieces.all()) {
    pieces_.push_back({units.size(), &piece});
    addRuns(piece, pages);
    addUnits(source, piece);
  }
}

void RawText::addRuns(const Piece& piece, const PropertyRuns& pages) {
  const size_t width = piece.bytesInCharacter(), begin = units.size(), end = begin + piece.length;
  const auto unitAt = [&](size_t place) {
    return place <= piece.place ? begin : std::min(end, begin + (place - piece.place) / width);
  };
  size_t done = begin;
  const auto addRun = [&](size_t until, Bytes ofPage) {
    if (until <= done) return;
    runs.push_back({until, {ofPage, piece.modifiers}});
    done = until;
  };
  for (auto page = findRun(pages, piece.place); page != pages.end() && done < end; ++page) {
    addRun(unitAt(page->begin), {});
    addRun(unitAt(page->end), page->modifiers);
  }
  addRun(end, {});
}

void RawText::addUnits(const Source& source, const Piece& piece) {
  const Bytes part = source.document.part(piece.place, piece.length * piece.bytesInCharacter());
  const std::span<const uint8_t> bytes = part.span();
  const size_t begin = units.size();
  units.resize(begin + piece.length);
  char16_t* out = units.data() + begin;
  if (piece.isWide) {
    part.copy(0, out, piece.length);
  } else if (source.isOld) {
    std::copy(bytes.begin(), bytes.end(), out);
  } else {
    const auto& characters = narrowCharacters();
    for (size_t index = 0; index < piece.length; ++index) out[index] = characters[bytes[index]];
  }
}

RawText::Origin RawText::originOf(size_t unit) {
  while (current_ + 1 < pieces_.size() && pieces_[current_ + 1].begin <= unit) ++current_;
  const auto& [begin, piece] = pieces_[current_];
  return {piece->place + (unit - begin) * piece->bytesInCharacter(), piece};
}

}  // namespace standin::formats::doc
