// The main text of a document as its pieces have it, with what its pages say of its characters.
#pragma once

#include <string>
#include <vector>

#include "standin/formats/doc/pieces.hpp"
#include "standin/formats/doc/property_runs.hpp"
#include "standin/formats/doc/resolver.hpp"

namespace standin::formats::doc {

struct RawRun {
  size_t end;  // unit behind the run
  StretchModifiers modifiers;
};

struct RawText {
  RawText(const Source& source, const Pieces& pieces);

  // Where in the document stream a unit is, and its piece; units must not go back from one call to the next.
  struct Origin {
    size_t place;
    const Piece* piece;
  };
  Origin originOf(size_t unit);

  std::u16string units;  // of versions 6 and 95, a unit a byte
  std::vector<RawRun> runs;

 private:
  struct PlacedPiece {
    size_t begin;
    const Piece* piece;
  };

  void addRuns(const Piece& piece, const PropertyRuns& pages);
  void addUnits(const Source& source, const Piece& piece);

  std::vector<PlacedPiece> pieces_;
  size_t current_ = 0;
};

}  // namespace standin::formats::doc
