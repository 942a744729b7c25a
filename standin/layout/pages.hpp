// Cuts the column into pages between its lines, and writes them.
#pragma once

#include <functional>
#include <vector>

#include "standin/layout/painter.hpp"
#include "standin/layout/pdf.hpp"
#include "standin/layout/pdf/outline.hpp"

namespace standin::layout {

// What of the view a page shows: lengths are those of the view, before it is scaled.
struct PageGrid {
  double scale;
  double width, height;  // of the view on one page
  int columns;           // pages beside each other
  bool isOneRow;         // what does not fit on the first pages is not shown
};

PageGrid gridOf(const PageGeometry& geometry);
// The same for a view of this height, fitted to the page in both directions.
PageGrid gridOf(const PageGeometry& geometry, double viewHeight);

class Pages : public LineTaker {
 public:
  Pages(const PageGeometry& geometry, const PageGrid& grid, pdf::File& file, pdf::Resources& resources, Column& column,
        const std::function<void(int)>& pageDone);

  bool take(const Line& line) override;
  // Writes the last page and the list of pages, which this answers. A file has at least one page, an empty one if need be.
  int finish();
  const std::vector<pdf::Heading>& headings() const { return headings_; }

 private:
  bool finishRow();
  void writePage(int column);
  std::string beginning(double left, double bottom) const;
  std::string annotations(double left, double bottom) const;
  void noteHeading(const Line& line);
  bool isWanted(int page) const { return page >= geometry_.firstPage && page <= geometry_.lastPage; }
  int pageObject();

  const PageGeometry& geometry_;
  const PageGrid grid_;
  pdf::File& file_;
  pdf::Resources& resources_;
  Painter painter_;
  const std::function<void(int)>& pageDone_;
  const int list_;
  std::vector<int> written_;
  std::vector<pdf::Heading> headings_;
  int page_ = 1;        // the first one of the row
  int nextObject_ = 0;  // of the row's first page, once something refers to it
  double used_ = 0;     // of the row's height
  bool hasLines_ = false, isClipped_ = false;
};

}  // namespace standin::layout
