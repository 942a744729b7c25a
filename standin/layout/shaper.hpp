// Words, shaped by HarfBuzz once and kept: documents use few different ones.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "standin/layout/word.hpp"

namespace standin::layout {

// A font as text asks for it, whatever the size.
struct FontChoice {
  uint32_t number;  // of the font among a document's
  text::Font font;
  FaceUse use;
  int ligatures;  // 0 none, 1 the usual ones, 2 all
};

// Whether letters join beyond the edges of what is shaped: a word that changes its style stays one word to the eye.
struct Joins {
  bool before = false, after = false;
};
// For units `from` to `end` of the text. Below `firstJoining` no letter joins another.
inline constexpr char16_t firstJoining = 0x600;
Joins joinsAround(std::u16string_view text, uint32_t from, uint32_t end);

class Shaper {
 public:
  explicit Shaper(Faces& faces);
  ~Shaper();
  Shaper(const Shaper&) = delete;
  Shaper& operator=(const Shaper&) = delete;

  // Valid until words are forgotten.
  const Word& word(std::u16string_view units, const FontChoice& choice, bool isRightToLeft, Joins joins = {});
  // Gives memory back when there are many words; none may be in use.
  void forget();

 private:
  struct Key {
    std::u16string units;
    uint32_t tag;  // font, direction and joins
  };
  struct KeyView {
    std::u16string_view units;
    uint32_t tag;
    KeyView(std::u16string_view text, uint32_t number) : units(text), tag(number) {}
    KeyView(const Key& key) : units(key.units), tag(key.tag) {}
    bool operator==(const KeyView&) const = default;
  };
  struct Hash {
    using is_transparent = void;
    size_t operator()(const KeyView& key) const {
      return std::hash<std::u16string_view>()(key.units) ^ key.tag * 0x9E3779B97F4A7C15u;
    }
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(const KeyView& left, const KeyView& right) const { return left == right; }
  };
  struct Part;

  Word shaped(std::u16string_view units, const FontChoice& choice, bool isRightToLeft, Joins joins);
  std::vector<Part> partsOf(std::u16string_view units, const FontChoice& choice);
  FaceUse faceOf(std::u16string_view cluster, const FontChoice& choice, bool& lacksMarks);
  GlyphRun shapedRun(std::u16string_view units, const Part& part, const FontChoice& choice, bool isRightToLeft, Joins joins);

  Faces& faces_;
  hb_buffer_t* buffer_;
  size_t unitsHeld_ = 0;
  std::unordered_map<Key, Word, Hash, Equal> words_;
};

}  // namespace standin::layout
