// The frame of the document: its type, its head with what the document says of itself, its body.
#include "standin/formats/html/writer.hpp"

#include <algorithm>

#include "standin/formats/base64.hpp"
#include "standin/formats/calendar_times.hpp"
#include "standin/formats/html/body_writer.hpp"
#include "standin/formats/html/character_writer.hpp"
#include "standin/formats/html/charset.hpp"
#include "standin/formats/html/css_text.hpp"
#include "standin/formats/html/property_names.hpp"
#include "standin/formats/pictures/picture.hpp"

namespace standin::formats::html {
namespace {

class DocumentWriter {
 public:
  DocumentWriter(const DocumentInformation& information, std::string charset)
      : information_(information),
        charset_(std::move(charset)),
        vocabulary_(information.excludedElements),
        hasSheet_(vocabulary_.has("head") && vocabulary_.has("style")),
        classes_(hasSheet_) {}

  std::string write(const StyledRuns& styled, const PictureAddress& address) {
    const std::string body = writeBody(styled, vocabulary_, classes_, address, indentation(2));
    writePrologue();
    if (vocabulary_.has("html")) line(0, vocabulary_.isXML() ? "<html xmlns=\"http://www.w3.org/1999/xhtml\">" : "<html>");
    if (vocabulary_.has("head")) writeHead();
    if (vocabulary_.has("body")) line(1, "<body" + bodyAttributes() + ">");
    out_ += body;
    if (vocabulary_.has("body")) line(1, "</body>");
    if (vocabulary_.has("html")) line(0, "</html>");
    return std::move(out_);
  }

 private:
  void writePrologue() {
    if (vocabulary_.isXML()) line(0, "<?xml version=\"1.0\" encoding=\"" + charset_ + "\"?>");
    if (vocabulary_.has("doctype")) line(0, vocabulary_.documentType());
  }

  void writeHead() {
    line(1, "<head>");
    if (vocabulary_.has("meta")) writeMeta("http-equiv", "Content-Type", "text/html; charset=" + charset_);
    if (vocabulary_.has("title")) {
      std::string title;
      appendAttributeValue(title, information_.properties.title);
      line(2, "<title>" + title + "</title>");
    }
    if (vocabulary_.has("meta")) writeProperties();
    if (hasSheet_) writeSheet();
    line(1, "</head>");
  }

  void writeProperties() {
    for (const TextName& row : writtenTextNames) {
      std::string value;
      appendAttributeValue(value, information_.properties.*row.member);
      if (!value.empty()) writeMeta("name", row.name, value);
    }
    for (const TimeName& row : writtenTimeNames) {
      if (const auto& time = information_.properties.*row.member) writeMeta("name", row.name, textOf(*time));
    }
  }

  // The value is escaped.
  void writeMeta(std::string_view key, std::string_view name, const std::string& value) {
    std::string tag = "<meta ";
    ((((tag += key) += "=\"") += name) += "\" content=\"") += value;
    line(2, (tag += '"') += vocabulary_.voidEnd());
  }

  void writeSheet() {
    line(2, "<style type=\"text/css\">");
    if (const std::string page = pageDeclarations(information_.page); !page.empty()) line(3, "@page {" + page + "}");
    if (information_.background) line(3, "body {" + backgroundDeclaration(*information_.background) + "}");
    for (const std::string& rule : classes_.rules()) line(3, rule);
    line(2, "</style>");
  }

  std::string bodyAttributes() const {
    if (hasSheet_ || !information_.background) return "";
    return " style=\"" + backgroundDeclaration(*information_.background) + "\"";
  }

  std::string indentation(int level) const {
    constexpr int mostSpaces = 64;
    return std::string(static_cast<size_t>(level * std::clamp(information_.prefixSpaces.value_or(0), 0, mostSpaces)), ' ');
  }
  void line(int level, std::string_view text) { ((out_ += indentation(level)) += text) += '\n'; }

  const DocumentInformation& information_;
  const std::string charset_;
  const Vocabulary vocabulary_;
  const bool hasSheet_;
  StyleClasses classes_;
  std::string out_;
};

}  // namespace

std::string dataAddress(const text::Attachment& attachment) {
  const std::string type = pictures::mimeTypeOf(pictures::formatOf(attachment.contents));
  if (type.empty()) return "";
  return "data:" + type + ";base64," + base64Of(attachment.contents);
}

std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information,
                                 const PictureAddress& address) {
  const auto charset = charsetNamed(information.textEncodingName);
  if (!charset) return std::nullopt;
  return encoded(DocumentWriter(information, *charset).write(styled, address), *charset);
}

}  // namespace standin::formats::html
