// Rows of pages: all that stand beside each other show the same lines.
#include "standin/layout/pages.hpp"

#include <algorithm>
#include <cmath>

#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout {
namespace {

// Rounding must not push a line to the next page.
constexpr double tolerance = 0.01;
// Even pages that are all margin have room for something.
constexpr double leastRoom = 10;
constexpr int mostColumns = 100;

double room(double paper, double first, double second) { return std::max(paper - first - second, leastRoom); }

}  // namespace

PageGrid gridOf(const PageGeometry& geometry) {
  const double width = room(geometry.paperWidth, geometry.leftMargin, geometry.rightMargin);
  const double height = room(geometry.paperHeight, geometry.topMargin, geometry.bottomMargin);
  double scale = std::isfinite(geometry.scale) ? std::clamp(geometry.scale, 0.01, 100.0) : 1;
  if (geometry.horizontal == Pagination::fit) scale = std::min(scale, width / geometry.viewWidth);
  const double columns = std::ceil(geometry.viewWidth * scale / width - tolerance);
  return {scale, width / scale, height / scale,
          geometry.horizontal == Pagination::automatic ? static_cast<int>(std::clamp<double>(columns, 1, mostColumns)) : 1,
          geometry.vertical != Pagination::automatic};
}

PageGrid gridOf(const PageGeometry& geometry, double viewHeight) {
  PageGrid grid = gridOf(geometry);
  const double factor = std::min(1.0, grid.height / std::max(viewHeight, 1.0));
  PageGeometry fitted = geometry;
  fitted.scale = grid.scale * factor;
  return gridOf(fitted);
}

Pages::Pages(const PageGeometry& geometry, const PageGrid& grid, pdf::File& file, pdf::Resources& resources, Column& column,
             const std::function<void(int)>& pageDone)
    : geometry_(geometry),
      grid_(grid),
      file_(file),
      resources_(resources),
      painter_(resources, column),
      pageDone_(pageDone),
      list_(file.reserve()) {}

// A line that is higher than a page has one to itself, and is cut off at its end. At the top of a page the space before a
// line gives way to it.
bool Pages::take(const Line& line) {
  const bool fits = used_ + line.spaceBefore + line.height <= grid_.height + tolerance;
  if (!fits && hasLines_ && !finishRow()) return false;
  if (!fits && line.height > grid_.height) isClipped_ = true;
  used_ += hasLines_ ? line.spaceBefore : std::min(line.spaceBefore, std::max(grid_.height - line.height, 0.0));
  if (line.headingLevel > 0 && isWanted(page_)) noteHeading(line);
  painter_.paint(line, geometry_.linePadding, -used_);
  hasLines_ = true;
  used_ += line.height + line.spaceAfter;
  return !line.endsPage || finishRow();
}

int Pages::pageObject() {
  if (nextObject_ == 0) nextObject_ = file_.reserve();
  return nextObject_;
}

void Pages::noteHeading(const Line& line) {
  const double top = geometry_.paperHeight - geometry_.topMargin - used_ * grid_.scale;
  headings_.push_back({line.headingLevel, line.heading, pageObject(), top});
}

// False when no more pages are wanted.
bool Pages::finishRow() {
  for (int column = 0; column < grid_.columns; ++column, ++page_) {
    if (isWanted(page_)) writePage(column);
    nextObject_ = 0;
  }
  painter_.clear();
  used_ = 0;
  hasLines_ = isClipped_ = false;
  return !grid_.isOneRow && page_ <= geometry_.lastPage;
}

// Clips what reaches beyond the page's part of the view, and leads to its left upper corner.
std::string Pages::beginning(double left, double bottom) const {
  std::string out = "q ";
  const auto numbers = [&](std::initializer_list<double> values) {
    for (const double value : values) {
      pdf::appendFineNumber(out, value);
      out += ' ';
    }
  };
  const double width = grid_.width * grid_.scale, height = grid_.height * grid_.scale;
  if (grid_.columns > 1 || geometry_.horizontal == Pagination::clip || isClipped_) {
    numbers({geometry_.leftMargin, geometry_.paperHeight - geometry_.topMargin - height, width, height});
    out += "re W n ";
  }
  numbers({grid_.scale, 0, 0, grid_.scale, left, bottom});
  return out += "cm\n";
}

// What of the links lies on the page's part of the view.
std::string Pages::annotations(double left, double top) const {
  const double partLeft = geometry_.leftMargin, partTop = geometry_.paperHeight - geometry_.topMargin;
  const double partRight = partLeft + grid_.width * grid_.scale, partBottom = partTop - grid_.height * grid_.scale;
  std::string out;
  for (const LinkArea& link : painter_.links()) {
    const double from = std::max(left + link.left * grid_.scale, partLeft);
    const double end = std::min(left + link.right * grid_.scale, partRight);
    const double bottom = std::max(top + link.bottom * grid_.scale, partBottom);
    const double upper = std::min(top + link.top * grid_.scale, partTop);
    if (from >= end || bottom >= upper) continue;
    out += "<</Type/Annot/Subtype/Link/Border[0 0 0]/Rect[";
    for (const double value : {from, bottom, end, upper}) {
      pdf::appendNumber(out, value);
      out += ' ';
    }
    out += "]/A " + pdf::reference(link.action) + ">>";
  }
  return out.empty() ? out : "/Annots[" + out + ']';
}

void Pages::writePage(int column) {
  const double viewWidth = geometry_.viewWidth * grid_.scale, width = grid_.width * grid_.scale;
  const double height = grid_.height * grid_.scale;
  double left = geometry_.leftMargin - column * width, top = geometry_.paperHeight - geometry_.topMargin;
  if (geometry_.centersHorizontally && grid_.columns == 1) left += std::max(0.0, (width - viewWidth) / 2);
  if (geometry_.centersVertically) top -= std::max(0.0, (height - used_ * grid_.scale) / 2);
  const int page = pageObject(), content = file_.reserve();
  file_.putStream(content, "", beginning(left, top) + painter_.content().operators() + "Q\n");
  std::string body = "<</Type/Page/Parent " + pdf::reference(list_) + "/MediaBox[0 0 ";
  pdf::appendNumber(body, geometry_.paperWidth);
  body += ' ';
  pdf::appendNumber(body, geometry_.paperHeight);
  file_.put(page, body + "]/Resources " + pdf::reference(resources_.object()) + "/Contents " + pdf::reference(content) +
                      annotations(left, top) + ">>");
  written_.push_back(page);
  if (pageDone_) pageDone_(page_);
}

int Pages::finish() {
  if (hasLines_) finishRow();
  if (written_.empty()) writePage(0);
  std::string body = "<</Type/Pages/Count " + std::to_string(written_.size()) + "/Kids[";
  for (const int page : written_) body += pdf::reference(page) + ' ';
  file_.put(list_, body + "]>>");
  return list_;
}

}  // namespace standin::layout
