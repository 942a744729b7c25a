// Paragraphs, in them runs, in those characters and pictures.
#include "standin/formats/html/body_writer.hpp"

#include "standin/formats/html/character_writer.hpp"
#include "standin/formats/html/markup.hpp"
#include "standin/formats/html/paragraph_cursor.hpp"

namespace standin::formats::html {
namespace {

// Nothing for a picture in its own size.
std::string sizeAttribute(const text::Attachment& attachment) {
  if (attachment.width <= 0 || attachment.height <= 0) return "";
  return " style=\"" + sizeDeclarations(attachment.width, attachment.height) + "\"";
}

class BodyWriter {
 public:
  BodyWriter(const Vocabulary& vocabulary, StyleClasses& classes, const PictureAddress& address)
      : vocabulary_(vocabulary),
        address_(address),
        markup_(vocabulary, classes),
        break_(vocabulary.has("br") ? "<br" + std::string(vocabulary.voidEnd()) : ""),
        characters_(
            out_, [this] { return markup_.spaces(); }, break_.empty() ? " " : break_, vocabulary.isXML()) {}

  std::string write(const StyledRuns& styled, std::string_view indentation) {
    out_.reserve(styled.text.size() + styled.runs.size() * 32);
    for (ParagraphCursor cursor(styled); cursor.next();) {
      out_ += indentation;
      writeParagraph(cursor.units(), cursor.runs());
      out_ += '\n';
    }
    return std::move(out_);
  }

 private:
  // A break of lines before the paragraph's end shows only with another one behind it.
  void writeParagraph(std::u16string_view units, const std::vector<RunPart>& parts) {
    styles_.clear();
    for (const RunPart& part : parts) styles_.push_back(&markup_.of(part.style));
    const uint32_t font = prevailingFont(parts);
    const Tags& tags = markup_.paragraph(*styles_.front(), font);
    out_ += tags.open;
    for (size_t index = 0; index < parts.size() && !units.empty(); ++index)
      writeRun(units, parts[index], markup_.run(*styles_[index], font));
    setLink({});
    if (units.empty() || units.back() == lineSeparator) out_ += break_;
    out_ += tags.close;
  }

  // The font of most of the paragraph.
  uint32_t prevailingFont(const std::vector<RunPart>& parts) {
    unitsByFont_.resize(markup_.fontCount());
    uint32_t best = styles_.front()->font;
    for (size_t index = 0; index < parts.size(); ++index) {
      const uint32_t font = styles_[index]->font;
      unitsByFont_[font] += parts[index].to - parts[index].from;
      if (unitsByFont_[font] > unitsByFont_[best]) best = font;
    }
    for (const StyleMarkup* style : styles_) unitsByFont_[style->font] = 0;
    return best;
  }

  void writeRun(std::u16string_view units, const RunPart& part, const Tags& tags) {
    setLink(part.style->link);
    out_ += tags.open;
    writeContent(units, part);
    out_ += tags.close;
  }

  void writeContent(std::u16string_view units, const RunPart& part) {
    size_t from = part.from;
    for (size_t at = from; part.style->attachment != nullptr && at < part.to; ++at) {
      if (units[at] != text::attachmentCharacter) continue;
      characters_.write(units, from, at);
      writePicture(*part.style->attachment);
      from = at + 1;
    }
    characters_.write(units, from, part.to);
  }

  void writePicture(const text::Attachment& attachment) {
    const std::string source = vocabulary_.has("img") ? address_(attachment) : "";
    if (source.empty()) return;
    out_ += "<img src=\"";
    appendAttributeValue(out_, source);
    ((out_ += '"') += sizeAttribute(attachment)) += " alt=\"\"";
    out_ += vocabulary_.voidEnd();
  }

  // Runs with one target are one link.
  void setLink(const text::Link& target) {
    if (target == link_ || !vocabulary_.has("a")) return;
    if (!link_.empty()) out_ += "</a>";
    link_ = target;
    if (target.empty()) return;
    if (linkOpening_.empty()) linkOpening_ = "<a" + markup_.linkAttributes() + " href=\"";
    out_ += linkOpening_;
    appendAttributeValue(out_, target);
    out_ += "\">";
  }

  const Vocabulary& vocabulary_;
  const PictureAddress& address_;
  Markup markup_;
  const std::string break_;            // its tag; empty when there are none
  std::vector<StyleMarkup*> styles_;   // of the paragraph's runs
  std::vector<uint32_t> unitsByFont_;  // of the paragraph, all zero between paragraphs
  text::Link link_;                    // the open one
  std::string linkOpening_;
  std::string out_;
  CharacterWriter characters_;
};

}  // namespace

std::string writeBody(const StyledRuns& styled, const Vocabulary& vocabulary, StyleClasses& classes,
                      const PictureAddress& address, std::string_view indentation) {
  return BodyWriter(vocabulary, classes, address).write(styled, indentation);
}

}  // namespace standin::formats::html
