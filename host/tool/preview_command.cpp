// The document's PDF, and a page of it as a PNG file.
#include "host/tool/preview_command.hpp"

#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include <memory>
#include <optional>

#include "host/tool/input.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/output.hpp"
#include "host/tool/pdf_pages.hpp"
#include "host/tool/plugins.hpp"
#include "host/tool/processes.hpp"
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

void writePicture(const PreviewOptions& options, const std::string& input, const std::string& output,
                  const PageDone& pageDone) {
  startPlugins();
  const StyledDocument document = openDocument(input, options.from);
  poppler::image picture = pictureOf(pdfOf(document, pageDone), options);
  if (!picture.is_valid() || !picture.save(output, "png")) throw DocumentError{"its picture cannot be written"};
}

// As documents are converted: what is not complete is not seen. Answers the signal that ended it, or 0.
int writePreview(const PreviewOptions& options, Progress& progress) {
  const Input input(options.path);
  Output output(options.output);
  std::optional<std::string> failure;
  const int signal = runInProcesses(
      {.count = 1,
       .prepare = {},
       .run = [&](size_t, const PageDone& pageDone) { writePicture(options, input.path(), output.path(), pageDone); },
       .pageDone = [&](int page) { progress.pageDone(page); },
       .done = [&](size_t, const auto& error) { failure = error; }});
  if (failure) throw DocumentError{*failure};
  if (signal == 0) output.finish();
  return signal;
}

}  // namespace

int previewDocument(const PreviewOptions& options) {
  if (!findPlugins()) return Failed;
  Progress progress(1);
  try {
    if (const int signal = writePreview(options, progress); signal != 0) endBySignal(signal);
    return Succeeded;
  } catch (const DocumentError& error) {
    progress.clear();
    report(shownName(options.path), error.message);
    return Failed;
  }
}

}  // namespace tool
