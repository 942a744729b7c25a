// The document's PDF, and a page of it as a PNG file.
#include "host/tool/preview_command.hpp"

#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include <memory>

#include "host/tool/messages.hpp"
#include "host/tool/pdf_pages.hpp"
#include "host/tool/plugins.hpp"
#include "host/tool/progress.hpp"

namespace tool {
namespace {

poppler::image pictureOf(const std::string& pdf, const PreviewOptions& options) {
  // Its messages would come between ours.
  poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
  const std::unique_ptr<poppler::document> document(
      poppler::document::load_from_raw_data(pdf.data(), static_cast<int>(pdf.size())));
  if (document == nullptr) throw DocumentError{"its PDF cannot be shown"};
  if (options.page > document->pages()) {
    throw DocumentError{"it has no page " + std::to_string(options.page) + "; the last is " +
                        std::to_string(document->pages())};
  }
  const std::unique_ptr<poppler::page> page(document->create_page(options.page - 1));
  poppler::page_renderer renderer;
  renderer.set_render_hints(poppler::page_renderer::antialiasing | poppler::page_renderer::text_antialiasing);
  return renderer.render_page(page.get(), options.resolution, options.resolution);
}

}  // namespace

int previewDocument(const PreviewOptions& options) {
  if (!loadPlugins()) return Failed;
  Progress progress(1);
  try {
    const StyledDocument document = openDocument(options.path, options.from);
    const std::string pdf = pdfOf(document, [&](int page) { progress.pageDone(page); });
    poppler::image picture = pictureOf(pdf, options);
    if (!picture.is_valid() || !picture.save(options.output, "png")) {
      throw DocumentError{"the picture cannot be written to " + options.output};
    }
  } catch (const DocumentError& error) {
    progress.clear();
    report(options.path, error.message);
    return Failed;
  }
  return Succeeded;
}

}  // namespace tool
