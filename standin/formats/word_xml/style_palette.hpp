// The styles of a document's runs, each made once for the formatting that it comes from.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <unordered_map>

#include "standin/formats/document_builder.hpp"
#include "standin/formats/word_xml/definitions.hpp"

namespace standin::formats::word_xml {

// What all that a paragraph's properties say comes to.
struct ParagraphLook {
  uint32_t number = 0;
  text::Paragraph layout;
  RunFormatting run;        // beneath what its runs say
  RunFormatting mark;       // of the paragraph's mark itself
  int list = 0, level = 0;  // list 0: no item
  bool breaksPage = false;
  bool joinsNext = false;        // the mark is deleted
  bool hasMarkOfItsOwn = false;  // something is said of the mark

  bool isHidden() const { return run.hidden.value_or(false); }
  bool hidesMark() const { return mark.hidden.value_or(false); }
};

// What the properties of a run say, before it is part of a paragraph.
struct RunLook {
  uint32_t number = 0;
  RunFormatting direct;
  std::string style;
  std::optional<bool> hidden;  // by either
};

// Looks and styles are taken from the definitions' allowance. Past their share, what is new looks plain; what is hidden is
// so always.
class StylePalette {
 public:
  // Both outlive the palette.
  StylePalette(Definitions& definitions, DocumentBuilder& builder) : definitions_(definitions), builder_(builder) {}

  // Bytes of its own beside them.
  size_t cost() const { return entries_.size() * entryCost; }

  // The looks are the palette's, and stay.
  const ParagraphLook& paragraph(const PropertyCollector& properties, const std::string& tableStyle);
  const RunLook& run(const PropertyRecord& properties);

  // The builder's index of the style; of the paragraph's mark when `run` is nil.
  uint32_t style(const ParagraphLook& paragraph, const RunLook* run, Script script, std::u16string_view link);
  bool isHidden(const ParagraphLook& paragraph, const RunLook* run) const;
  // Whether there may be more links and pictures.
  bool hasRoom() const;
  // The builder's index of any other style.
  uint32_t intern(const text::Style& style);

 private:
  struct Key {
    uint32_t paragraph, run;  // run: 0 for the mark
    Script script;
    bool operator==(const Key&) const = default;
  };
  struct KeyHash {
    size_t operator()(const Key& key) const {
      return (size_t{key.paragraph} << 32 | key.run) * 0x9E3779B97F4A7C15u + static_cast<size_t>(key.script);
    }
  };
  static constexpr size_t entryCost = 64;

  bool takesLook(size_t bytes, size_t sixteenths);
  const ParagraphLook& plainParagraph(const ParagraphLook& meant);
  const RunLook& plainRun(std::optional<bool> hidden);
  uint32_t entry(const ParagraphLook& paragraph, const RunLook* run, Script script);
  uint32_t plainEntry(const ParagraphLook& paragraph);
  uint32_t newEntry(const Key& key, const ParagraphLook& paragraph, const RunLook* run);
  RunLook makeRun(const PropertyRecord& properties) const;
  RunFormatting formattingOf(const ParagraphLook& paragraph, const RunLook& run) const;
  void applyCharacterStyle(RunFormatting& run, const std::string& style) const;
  ParagraphLook makeParagraph(const PropertyCollector& properties, const std::string& tableStyle) const;
  ParagraphProperties resolve(ParagraphProperties beneath, const ParagraphProperties& direct) const;

  Definitions& definitions_;
  DocumentBuilder& builder_;
  std::unordered_map<std::string, ParagraphLook> paragraphs_;
  std::unordered_map<std::string, RunLook> runs_;
  std::string paragraphKey_;  // kept for its memory
  // By what they say of hidden text, of breaks and of deleted marks.
  std::map<std::array<int, 4>, ParagraphLook> plainParagraphs_;
  std::map<std::optional<bool>, RunLook> plainRuns_;
  std::unordered_map<Key, uint32_t, KeyHash> entries_;
  Key lastKey_{};
  std::optional<uint32_t> last_;  // the entry of that key
};

}  // namespace standin::formats::word_xml
