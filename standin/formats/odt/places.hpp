// The style of each place in the text: what paragraph, span and link there say together, worked out once for each way in
// which they meet.
#pragma once

#include <deque>
#include <map>

#include "standin/formats/document_builder.hpp"
#include "standin/formats/odt/library.hpp"

namespace standin::formats::odt {

// Indices of what holds at a place.
struct Place {
  uint32_t paragraph = 0, text = 0, link = 0;

  bool operator==(const Place&) const = default;
};

struct ParagraphLook {
  text::Paragraph layout;
  uint32_t text = 0;  // of the paragraph's own characters
  bool breaksBefore = false, breaksAfter = false;
  std::string masterPage;
};

// What of a paragraph's look its style does not say.
struct ParagraphRole {
  const LevelLayout* list = nullptr;  // of the list level that it is in
  bool hasMarker = false;
  int headerLevel = 0;

  auto operator<=>(const ParagraphRole&) const = default;
};

class Places {
 public:
  // Ways past half of so many bytes look like what they are part of.
  Places(const Library& library, DocumentBuilder& builder, size_t mostBytes)
      : library_(library), builder_(builder), mostWays_(mostBytes / 2 / wayCost) {}

  // Bytes that the places take; the styles are the builder's.
  size_t cost() const;

  Place paragraph(std::string_view styleName, const ParagraphRole& role);
  Place span(Place place, std::string_view styleName);
  Place link(Place place, std::string_view target);

  const ParagraphLook& look(Place place) const { return paragraphs_[place.paragraph]; }
  // The builder's index of the style there.
  uint32_t style(Place place, Script script);
  // The style with this attachment.
  uint32_t attachmentStyle(Place place, std::shared_ptr<const text::Attachment> attachment);

 private:
  // Names as numbers, from 0.
  class Numbers {
   public:
    uint32_t of(std::string_view name);
    const std::string& name(uint32_t number) const { return *names_[number]; }
    // Bytes, with a copy in UTF-16.
    size_t cost() const { return bytes_; }

   private:
    struct Hash : std::hash<std::string_view> {
      using is_transparent = void;
    };
    std::unordered_map<std::string, uint32_t, Hash, std::equal_to<>> numbers_;
    std::vector<const std::string*> names_;
    size_t bytes_ = 0;
  };
  struct StyleKey {
    Place place;
    Script script;
    bool operator==(const StyleKey&) const = default;
  };
  struct StyleKeyHash {
    size_t operator()(const StyleKey& key) const;
  };

  static constexpr size_t lookCost = sizeof(ParagraphLook) + 384, textCost = sizeof(TextProperties) + 128, styleCost = 64;
  // With the builder's style.
  static constexpr size_t wayCost = lookCost + textCost + styleCost + 4 * sizeof(text::Style);

  ParagraphLook lookOf(std::string_view styleName, const ParagraphRole& role);
  text::Style styleAt(Place place, Script script) const;

  const Library& library_;
  DocumentBuilder& builder_;
  const size_t mostWays_;
  Numbers paragraphNames_, spanNames_, links_;
  std::deque<ParagraphLook> paragraphs_;
  std::map<std::pair<uint32_t, ParagraphRole>, uint32_t> paragraphIndices_;
  std::deque<TextProperties> texts_;
  std::unordered_map<const StyleProperties*, uint32_t> paragraphTexts_;
  std::unordered_map<uint64_t, uint32_t> spanTexts_;  // by the text around and the number of the span's style
  std::vector<text::Link> targets_{text::Link()};     // 0: none
  std::unordered_map<StyleKey, uint32_t, StyleKeyHash> styles_;
};

}  // namespace standin::formats::odt
