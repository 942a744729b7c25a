// Styled text as the pages of a PDF file: a column of text, cut into pages between its lines.
#pragma once

#include <climits>
#include <functional>
#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::layout {

// What becomes of a text view that is wider or longer than a page. The platform's numbers.
enum class Pagination { automatic, fit, clip };

// Lengths are points.
struct PageGeometry {
  double paperWidth = 595, paperHeight = 842;  // as turned: a landscape page is wider than high
  double leftMargin = 72, rightMargin = 72, topMargin = 72, bottomMargin = 72;
  double viewWidth = 451, linePadding = 5;  // lines are inset by the padding at both sides
  double scale = 1;                         // of the view on the page
  Pagination horizontal = Pagination::automatic, vertical = Pagination::automatic;
  bool centersHorizontally = false, centersVertically = false;
  int firstPage = 1, lastPage = INT_MAX;  // numbers of the pages that are written, from 1
};

// False when the file cannot be written. `pageDone`, which may be empty, is called after each page with its number.
// Text without characters makes one empty page.
bool writePDF(const formats::StyledRuns& styled, const formats::DocumentInformation& information,
              const PageGeometry& geometry, const std::string& path, const std::function<void(int page)>& pageDone);

}  // namespace standin::layout
