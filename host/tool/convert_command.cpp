// Converts documents, each in a process of its own.
#include "host/tool/convert_command.hpp"

#include <filesystem>
#include <memory>
#include <optional>
#include <set>

#include "host/tool/documents.hpp"
#include "host/tool/input.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/output.hpp"
#include "host/tool/plugins.hpp"
#include "host/tool/processes.hpp"
#include "host/tool/progress.hpp"

namespace tool {
namespace {

namespace fs = std::filesystem;

// "" when all is well.
std::string wrongUsage(const ConvertOptions& options) {
  if (options.output.empty() == options.folder.empty()) return "give either -o, or --to and --into";
  if (!options.folder.empty() && options.to.empty()) return "--into needs --to";
  if (!options.output.empty() && options.inputs.size() != 1) return "-o takes one document; use --to and --into for several";
  if (options.to.empty() && formatNamed(options.output).empty())
    return "the name after -o does not say the format; use --to";
  return "";
}

class Conversion {
 public:
  explicit Conversion(const ConvertOptions& options)
      : options_(options),
        format_(options.to.empty() ? formatNamed(options.output) : options.to),
        pieces_(options.inputs.size()),
        progress_(options.inputs.size()) {}

  int run() {
    const int signal = runInProcesses({.count = pieces_.size(),
                                       .jobs = options_.jobs,
                                       .prepare = [this](size_t index) { prepare(index); },
                                       .run = [this](size_t index, const PageDone& page) { convert(index, page); },
                                       .pageDone = [this](int page) { progress_.pageDone(page); },
                                       .done = [this](size_t index, const auto& error) { finish(index, error); }});
    pieces_.clear();
    progress_.clear();
    if (signal != 0) endBySignal(signal);
    return status_;
  }

 private:
  struct Piece {
    std::unique_ptr<Input> input;
    std::unique_ptr<Output> output;
    std::string error;
    bool isDone = false;
  };

  std::string targetOf(const std::string& input) const {
    if (!options_.output.empty()) return options_.output;
    // A folder's name may end with a slash.
    const fs::path source = fs::path(input).has_filename() ? fs::path(input) : fs::path(input).parent_path();
    const std::string stem = input == "-" ? "document" : source.stem().string();
    return (fs::path(options_.folder) / stem).string() + extensionOf(format_);
  }

  void prepare(size_t index) {
    const std::string target = targetOf(options_.inputs[index]);
    if (!targets_.insert(target).second) throw DocumentError{"another document was converted to " + target};
    pieces_[index].input = std::make_unique<Input>(options_.inputs[index]);
    pieces_[index].output = std::make_unique<Output>(target);
  }

  void convert(size_t index, const PageDone& pageDone) const {
    startPlugins();
    const Piece& piece = pieces_[index];
    saveDocument(openDocument(piece.input->path(), options_.from), piece.output->path(), format_, pageDone);
  }

  void finish(size_t index, const std::optional<std::string>& error) {
    Piece& piece = pieces_[index];
    piece.error = error.value_or("");
    try {
      if (!error) piece.output->finish();
    } catch (const DocumentError& failure) {
      piece.error = failure.message;
    }
    piece.output.reset();
    piece.input.reset();
    piece.isDone = true;
    tellInOrder();
    progress_.fileDone();
  }

  void tellInOrder() {
    for (; told_ < pieces_.size() && pieces_[told_].isDone; ++told_) {
      if (pieces_[told_].error.empty()) continue;
      progress_.clear();
      report(shownName(options_.inputs[told_]), pieces_[told_].error);
      status_ = Failed;
    }
  }

  const ConvertOptions& options_;
  const std::string format_;
  std::vector<Piece> pieces_;
  Progress progress_;
  std::set<std::string> targets_;
  size_t told_ = 0;
  int status_ = Succeeded;
};

}  // namespace

int convertDocuments(const ConvertOptions& options) {
  if (const std::string wrong = wrongUsage(options); !wrong.empty()) {
    report("convert", wrong);
    return WrongUsage;
  }
  if (!findPlugins()) return Failed;
  std::error_code failure;
  if (!options.folder.empty()) fs::create_directories(options.folder, failure);
  if (failure) {
    report(options.folder, "this folder cannot be made: " + failure.message());
    return Failed;
  }
  return Conversion(options).run();
}

}  // namespace tool
