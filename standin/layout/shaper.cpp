// Words cut by face and script, and each part shaped.
#include "standin/layout/shaper.hpp"

#include <hb.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <cmath>

#include "standin/layout/glyph_text.hpp"

namespace standin::layout {

// A stretch of a word in one face and one script.
struct Shaper::Part {
  uint32_t start, end;
  FaceUse use;
  UScriptCode script;
};

namespace {

// Units of words that are kept before all are forgotten: some tens of megabytes with their glyphs.
constexpr size_t mostUnits = 1 << 19;

UChar32 characterAt(std::u16string_view units, uint32_t at) {
  UChar32 character;
  U16_GET(units.data(), 0, static_cast<int32_t>(at), static_cast<int32_t>(units.size()), character);
  return character;
}

uint32_t unitsOf(UChar32 character) { return character > 0xFFFF ? 2 : 1; }

// What has no glyph of its own, or joins that of the character before it.
bool followsOthers(UChar32 character) {
  return (U_GET_GC_MASK(character) & (U_GC_M_MASK | U_GC_C_MASK)) != 0 ||
         u_hasBinaryProperty(character, UCHAR_EMOJI_MODIFIER);
}

// A letter that the emoji selector follows is a picture, as characters are that are made to be.
bool isPicture(UChar32 character, UChar32 next) {
  constexpr UChar32 pictureSelector = 0xFE0F, textSelector = 0xFE0E;
  if (character < 0x2000) return next == pictureSelector && character > 0x20;
  return next == pictureSelector || (next != textSelector && u_hasBinaryProperty(character, UCHAR_EMOJI_PRESENTATION));
}

// Drawn onto the character before it.
bool isMark(UChar32 character) {
  return (U_GET_GC_MASK(character) & U_GC_M_MASK) != 0 &&
         !u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

// Where the character ends that begins there, with all that follows it or is joined to it.
uint32_t clusterEnd(std::u16string_view units, uint32_t at) {
  for (at += unitsOf(characterAt(units, at)); at < units.size();) {
    const UChar32 character = characterAt(units, at);
    if (!followsOthers(character) && units[at - 1] != u'\u200D') break;
    at += unitsOf(character);
  }
  return at;
}

// What has to be drawn of the text, once it is composed or decomposed.
std::u32string drawnOf(const icu::UnicodeString& text, const icu::Normalizer2* form) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString formed = form->normalize(text, status);
  std::u32string characters;
  for (int32_t at = 0; at < formed.length(); at = formed.moveIndex32(at, 1)) {
    const UChar32 character = formed.char32At(at);
    const bool isDrawn = !u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
    if (isDrawn) characters += static_cast<char32_t>(character);
  }
  return characters;
}

bool hasMark(std::u16string_view cluster) {
  for (uint32_t at = unitsOf(characterAt(cluster, 0)); at < cluster.size(); at += unitsOf(characterAt(cluster, at))) {
    if (isMark(characterAt(cluster, at))) return true;
  }
  return false;
}

UScriptCode scriptOf(UChar32 character) {
  UErrorCode status = U_ZERO_ERROR;
  const UScriptCode script = uscript_getScript(character, &status);
  return script == USCRIPT_INHERITED ? USCRIPT_COMMON : script;
}

void addSegmentProperties(hb_buffer_t* buffer, UScriptCode script, bool isRightToLeft) {
  hb_buffer_set_direction(buffer, isRightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  hb_buffer_set_script(buffer, hb_script_from_string(uscript_getShortName(script), -1));
  hb_buffer_set_language(buffer, hb_language_get_default());
}

std::vector<hb_feature_t> featuresFor(int ligatures) {
  constexpr hb_tag_t usual[] = {HB_TAG('l', 'i', 'g', 'a'), HB_TAG('c', 'l', 'i', 'g')};
  std::vector<hb_feature_t> features;
  if (ligatures == 1) return features;
  const auto add = [&](hb_tag_t tag, uint32_t value) {
    features.push_back({tag, value, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END});
  };
  if (ligatures == 0) std::for_each(std::begin(usual), std::end(usual), [&](hb_tag_t tag) { add(tag, 0); });
  if (ligatures == 2) add(HB_TAG('d', 'l', 'i', 'g'), 1);
  return features;
}

}  // namespace

Shaper::Shaper(Faces& faces) : faces_(faces), buffer_(hb_buffer_create()) {}
Shaper::~Shaper() { hb_buffer_destroy(buffer_); }

const Word& Shaper::word(std::u16string_view units, const FontChoice& choice, bool isRightToLeft) {
  const KeyView key(units, choice.number * 2 + (isRightToLeft ? 1 : 0));
  if (const auto found = words_.find(key); found != words_.end()) return found->second;
  unitsHeld_ += units.size() + 8;
  return words_.emplace(Key{std::u16string(units), key.tag}, shaped(units, choice, isRightToLeft)).first->second;
}

void Shaper::forget() {
  if (unitsHeld_ < mostUnits) return;
  words_.clear();
  unitsHeld_ = 0;
}

// A character's face has its marks as well when there is such a face; otherwise the marks come from others.
FaceUse Shaper::faceOf(std::u16string_view cluster, const FontChoice& choice, bool& lacksMarks) {
  const UChar32 character = characterAt(cluster, 0);
  const uint32_t next = unitsOf(character);
  const bool asPicture = isPicture(character, next < cluster.size() ? characterAt(cluster, next) : 0);
  const FaceUse use = faces_.forCharacter(static_cast<char32_t>(character), choice.font, asPicture);
  if (asPicture || !hasMark(cluster)) return use;
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString text(cluster.data(), static_cast<int32_t>(cluster.size()));
  const std::u32string decomposed = drawnOf(text, icu::Normalizer2::getNFDInstance(status));
  if (use.face->hasAll(decomposed) || use.face->hasAll(drawnOf(text, icu::Normalizer2::getNFCInstance(status)))) return use;
  const FaceUse other = faces_.forCharacters(decomposed, choice.font);
  lacksMarks = other.face == nullptr;
  return lacksMarks ? use : other;
}

std::vector<Shaper::Part> Shaper::partsOf(std::u16string_view units, const FontChoice& choice) {
  std::vector<Part> parts;
  const auto add = [&](uint32_t start, uint32_t end, const FaceUse& use, UScriptCode script) {
    const bool joins = !parts.empty() && parts.back().use == use &&
                       (script == parts.back().script || script == USCRIPT_COMMON || parts.back().script == USCRIPT_COMMON);
    if (!joins) parts.push_back({start, start, use, USCRIPT_COMMON});
    parts.back().end = end;
    if (script != USCRIPT_COMMON) parts.back().script = script;
  };
  for (uint32_t at = 0; at < units.size();) {
    const uint32_t end = clusterEnd(units, at);
    bool lacksMarks = false;
    const FaceUse use = faceOf(units.substr(at, end - at), choice, lacksMarks);
    for (uint32_t next; at < end; at = next) {
      const UChar32 character = characterAt(units, at);
      next = at + unitsOf(character);
      const bool isAlone = lacksMarks && isMark(character);
      add(at, next, isAlone ? faces_.forCharacter(static_cast<char32_t>(character), choice.font, false) : use,
          scriptOf(character));
    }
  }
  return parts;
}

GlyphRun Shaper::shapedRun(std::u16string_view units, const Part& part, const FontChoice& choice, bool isRightToLeft) {
  hb_buffer_clear_contents(buffer_);
  hb_buffer_set_cluster_level(buffer_, HB_BUFFER_CLUSTER_LEVEL_MONOTONE_CHARACTERS);
  hb_buffer_add_utf16(buffer_, reinterpret_cast<const uint16_t*>(units.data()), static_cast<int>(units.size()), part.start,
                      static_cast<int>(part.end - part.start));
  addSegmentProperties(buffer_, part.script, isRightToLeft);
  const std::vector<hb_feature_t> features = featuresFor(choice.ligatures);
  hb_shape(part.use.face->font(), buffer_, features.data(), static_cast<unsigned>(features.size()));
  unsigned count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer_, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer_, &count);
  GlyphRun run{part.use, {}, part.start, part.end};
  for (unsigned index = 0; index < count; ++index) {
    const hb_glyph_position_t& position = positions[index];
    run.glyphs.push_back(
        {infos[index].codepoint, infos[index].cluster, position.x_advance, position.x_offset, position.y_offset});
  }
  return run;
}

Word Shaper::shaped(std::u16string_view units, const FontChoice& choice, bool isRightToLeft) {
  Word word;
  word.isRightToLeft = isRightToLeft;
  for (const Part& part : partsOf(units, choice)) {
    GlyphRun run = shapedRun(units, part, choice, isRightToLeft);
    noteTexts(run, units);
    const FaceMeasures& measures = part.use.face->measures();
    word.ascent = std::max(word.ascent, measures.ascent);
    word.descent = std::max(word.descent, measures.descent);
    word.leading = std::max(word.leading, measures.leading);
    for (const Glyph& glyph : run.glyphs) {
      word.width += glyph.advance / part.use.face->unitsPerEm();
      if (glyph.advance != 0) ++word.spacedGlyphs;
    }
    word.runs.push_back(std::move(run));
  }
  if (isRightToLeft) std::reverse(word.runs.begin(), word.runs.end());
  return word;
}

}  // namespace standin::layout
