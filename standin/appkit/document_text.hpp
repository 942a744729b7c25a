// Between attributed strings and the forms in which document readers give and document writers take styled text.
#pragma once

#include <deque>
#include <unordered_map>

#include "standin/appkit/attributed_string.hpp"
#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::appkit {

// The runs of a range with their styles, each style made once an attribute set.
class ExportedRuns {
 public:
  ExportedRuns(const text::StyledText& text, text::UnitRange range);
  ExportedRuns(const ExportedRuns&) = delete;

  const formats::StyledRuns& runs() const { return styled_; }

  // Gives every attachment that is a picture the bytes to be written into the text.
  void embedPictures();
  // Gives every attachment the bytes and the name of its file, if that is a regular one, to be drawn.
  void takeFiles();
  // Puts the files of the attachments into the directory, and gives each attachment its name there.
  void packageFiles(NSFileWrapper* directory);

 private:
  formats::StyledRuns styled_;
  std::deque<text::Style> styles_;
  std::unordered_map<text::AttributeHandle, const text::Style*> byHandle_;
};

// The text of a document, its styles made into attributes.
text::StyledText styledTextOf(const formats::Document& document);

}  // namespace standin::appkit
