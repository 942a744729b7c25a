// Styles of text for the properties that a document has for it, each made once.
#pragma once

#include <memory>
#include <unordered_map>

#include "standin/formats/doc/fonts.hpp"
#include "standin/formats/doc/resolver.hpp"
#include "standin/formats/document_builder.hpp"

namespace standin::formats::doc {

// What the style of a stretch follows from: indices of the resolver, a link by number or 0.
struct StyleKey {
  uint32_t paragraph, characters, link;
  Script script;

  bool operator==(const StyleKey&) const = default;
};

class Formatter {
 public:
  // Of more styles than `mostStyles` no more are made: what follows looks like what came before.
  Formatter(const Resolver& resolver, const Fonts& fonts, DocumentBuilder& builder, size_t mostStyles)
      : resolver_(resolver), fonts_(fonts), builder_(builder), mostStyles_(mostStyles) {}

  // The index of the style in the document. `target` is the link's.
  uint32_t indexOf(const StyleKey& key, const text::Link& target);
  // The same style with a picture.
  uint32_t indexWith(uint32_t style, std::shared_ptr<const text::Attachment> picture);

 private:
  struct Hash {
    size_t operator()(const StyleKey& key) const;
  };

  text::Style make(const StyleKey& key, const text::Link& target);
  const text::Paragraph& paragraphOf(uint32_t index);

  const Resolver& resolver_;
  const Fonts& fonts_;
  DocumentBuilder& builder_;
  size_t mostStyles_;
  StyleKey last_{UINT32_MAX, 0, 0, Script::ascii};
  uint32_t lastIndex_ = 0;
  std::unordered_map<StyleKey, uint32_t, Hash> indices_;
  std::unordered_map<uint32_t, text::Paragraph> paragraphs_;
};

}  // namespace standin::formats::doc
