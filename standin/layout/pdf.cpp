// A document's pages, and what the file says besides.
#include "standin/layout/pdf.hpp"

#include "standin/layout/pages.hpp"
#include "standin/layout/pdf/information.hpp"
#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout {
namespace {

// The height of the whole column.
class HeightTaker : public LineTaker {
 public:
  bool take(const Line& line) override {
    height_ += line.spaceBefore + line.height + line.spaceAfter;
    return true;
  }
  double height() const { return height_; }

 private:
  double height_ = 0;
};

PageGrid gridFor(const PageGeometry& geometry, Column& column) {
  if (geometry.vertical != Pagination::fit) return gridOf(geometry);
  HeightTaker taker;
  column.layOut(taker);
  return gridOf(geometry, taker.height());
}

int writeCatalog(pdf::File& file, int pages, int outline) {
  const int object = file.reserve();
  std::string body = "<</Type/Catalog/Pages " + pdf::reference(pages);
  if (outline != 0) body += "/Outlines " + pdf::reference(outline);
  file.put(object, body + ">>");
  return object;
}

}  // namespace

bool writePDF(const formats::StyledRuns& styled, const formats::DocumentInformation& information,
              const PageGeometry& geometry, const std::string& path, const std::function<void(int page)>& pageDone) {
  pdf::File file(path);
  if (!file.isOpen()) return false;
  Faces faces;
  pdf::Resources resources(file);
  Column column(styled, faces, geometry.viewWidth - 2 * geometry.linePadding, gridOf(geometry).height,
                [&](const text::Attachment& attachment) { return !resources.imageName(attachment).empty(); });
  const PageGrid grid = gridFor(geometry, column);
  Pages pages(geometry, grid, file, resources, column, pageDone);
  column.layOut(pages);
  const int list = pages.finish();
  resources.finish();
  const int outline = pdf::writeOutline(file, pages.headings());
  return file.finish(writeCatalog(file, list, outline), pdf::writeInformation(file, information.properties));
}

}  // namespace standin::layout
