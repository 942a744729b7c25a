// Styled text as the paragraphs of a document.
#pragma once

#include <unordered_map>
#include <vector>

#include "standin/formats/pictures/sizes.hpp"
#include "standin/formats/styled_runs.hpp"
#include "standin/formats/word_xml/property_writer.hpp"

namespace standin::formats::word_xml {

class BodyWriter {
 public:
  // Both outlive the writer.
  BodyWriter(const StyledRuns& styled, Edition& edition, double textWidth);

  // Appends the w:p elements. Text has at least one paragraph; behind a last paragraph end there is an empty one.
  void write(std::string& out);
  const std::set<std::string>& fonts() const { return properties_.fonts(); }

 private:
  // A place among the runs, which moves forward only.
  struct Place {
    size_t run = 0;
    uint32_t start = 0;  // of the run
  };

  const text::Style& styleAt(Place& place, uint32_t position) const;
  uint32_t endOf(const Place& place) const { return place.start + styled_.runs[place.run].length; }
  // The paragraph's properties, those of its mark, and its runs.
  void writeParagraph(uint32_t from, uint32_t end);
  void writeRun(const text::Style& style, uint32_t from, uint32_t end);
  void writeCharacters(const text::Style& style, uint32_t from, uint32_t end);
  void writeText(uint32_t from, uint32_t end);
  void writePicture(const text::Attachment& picture);
  void moveToLink(const text::Link& target);
  const std::string& runProperties(const text::Style& style);
  const std::string& paragraphProperties(const text::Paragraph& paragraph, bool breaksPage);

  const StyledRuns& styled_;
  Edition& edition_;
  const bool hasHyphenElements_;
  PropertyWriter properties_;
  std::u16string units_;
  Place place_, mark_;
  std::unordered_map<const text::Style*, std::string> runProperties_;
  std::pair<text::Paragraph, bool> paragraph_{};  // what the text below was made for
  std::string paragraphProperties_;
  text::Link link_;  // the one that is open; empty for none
  pictures::KnownSizes sizes_;
  int pictures_ = 0;
  std::string out_;
};

}  // namespace standin::formats::word_xml
