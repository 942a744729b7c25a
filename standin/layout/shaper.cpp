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
  bool isMarks;  // of the character before, which the face does not have
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

// A joiner on the side of what is in the buffer that `offset` says, not in it: 1 before, 0 behind.
void addContext(hb_buffer_t* buffer, unsigned offset) {
  constexpr uint16_t joiner = 0x200D;
  hb_buffer_add_utf16(buffer, &joiner, 1, offset, 0);
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

// As a share of the size.
double widthOfLastCharacter(const GlyphRun& run) {
  const Glyph* last = nullptr;
  for (const Glyph& glyph : run.glyphs) {
    if (glyph.advance != 0 && (last == nullptr || glyph.unit >= last->unit)) last = &glyph;
  }
  return last != nullptr ? last->advance / run.use.face->unitsPerEm() : 0;
}

// The middle of each mark goes to the middle of the base, which is so many units of the marks' face wide.
void placeMarks(GlyphRun& run, double baseWidth, bool isRightToLeft) {
  for (Glyph& glyph : run.glyphs) {
    hb_glyph_extents_t extents;
    if (!hb_font_get_glyph_extents(run.use.face->font(), glyph.id, &extents)) continue;
    const double middle = extents.x_bearing + extents.width / 2.0;
    glyph.offsetX = static_cast<int>(std::lround((isRightToLeft ? baseWidth : -baseWidth) / 2 - middle));
    glyph.advance = 0;
  }
}

// Whether the nearest character but marks that `next` answers, until it answers none, joins towards the side.
template <class Next>
bool joinsTowards(UJoiningType side, Next&& next) {
  for (UChar32 character; (character = next()) != U_SENTINEL;) {
    const int32_t type = u_getIntPropertyValue(character, UCHAR_JOINING_TYPE);
    if (type != U_JT_TRANSPARENT) return type == side || type == U_JT_DUAL_JOINING || type == U_JT_JOIN_CAUSING;
  }
  return false;
}

}  // namespace

Joins joinsAround(std::u16string_view text, uint32_t from, uint32_t end) {
  Joins joins;
  if (from > 0 && text[from] >= firstJoining && text[from - 1] >= firstJoining) {
    joins.before = joinsTowards(U_JT_LEFT_JOINING, [&, at = from]() mutable -> UChar32 {
      UChar32 character = U_SENTINEL;
      if (at > 0) U16_PREV(text.data(), 0, at, character);
      return character;
    });
  }
  if (end < text.size() && text[end - 1] >= firstJoining && text[end] >= firstJoining) {
    joins.after = joinsTowards(U_JT_RIGHT_JOINING, [&, at = end]() mutable -> UChar32 {
      UChar32 character = U_SENTINEL;
      if (at < text.size()) U16_NEXT(text.data(), at, static_cast<uint32_t>(text.size()), character);
      return character;
    });
  }
  return joins;
}

Shaper::Shaper(Faces& faces) : faces_(faces), buffer_(hb_buffer_create()) {}
Shaper::~Shaper() { hb_buffer_destroy(buffer_); }

const Word& Shaper::word(std::u16string_view units, const FontChoice& choice, bool isRightToLeft, Joins joins) {
  const KeyView key(units, choice.number * 8 + (isRightToLeft ? 1 : 0) + (joins.before ? 2 : 0) + (joins.after ? 4 : 0));
  if (const auto found = words_.find(key); found != words_.end()) return found->second;
  unitsHeld_ += units.size() + 8;
  return words_.emplace(Key{std::u16string(units), key.tag}, shaped(units, choice, isRightToLeft, joins)).first->second;
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
  const auto add = [&](uint32_t start, uint32_t end, const FaceUse& use, UScriptCode script, bool isMark) {
    const bool joins = !parts.empty() && parts.back().use == use && parts.back().isMarks == isMark &&
                       (script == parts.back().script || script == USCRIPT_COMMON || parts.back().script == USCRIPT_COMMON);
    if (!joins) parts.push_back({start, start, use, USCRIPT_COMMON, isMark});
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
      const FaceUse own =
          lacksMarks && isMark(character) ? faces_.forCharacter(static_cast<char32_t>(character), choice.font, false) : use;
      add(at, next, own, scriptOf(character), !(own == use));
    }
  }
  return parts;
}

GlyphRun Shaper::shapedRun(std::u16string_view units, const Part& part, const FontChoice& choice, bool isRightToLeft,
                           Joins joins) {
  hb_buffer_clear_contents(buffer_);
  hb_buffer_set_cluster_level(buffer_, HB_BUFFER_CLUSTER_LEVEL_MONOTONE_CHARACTERS);
  if (joins.before && part.start == 0) addContext(buffer_, 1);
  hb_buffer_add_utf16(buffer_, reinterpret_cast<const uint16_t*>(units.data()), static_cast<int>(units.size()), part.start,
                      static_cast<int>(part.end - part.start));
  if (joins.after && part.end == units.size()) addContext(buffer_, 0);
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

Word Shaper::shaped(std::u16string_view units, const FontChoice& choice, bool isRightToLeft, Joins joins) {
  Word word;
  word.isRightToLeft = isRightToLeft;
  double baseWidth = 0;  // of the last character that is no mark
  for (const Part& part : partsOf(units, choice)) {
    GlyphRun run = shapedRun(units, part, choice, isRightToLeft, joins);
    if (part.isMarks) placeMarks(run, baseWidth * part.use.face->unitsPerEm(), isRightToLeft);
    if (!part.isMarks) baseWidth = widthOfLastCharacter(run);
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
