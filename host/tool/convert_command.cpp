// Converts documents, one after the other.
#include "host/tool/convert_command.hpp"

#include <filesystem>
#include <set>

#include "host/tool/documents.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/plugins.hpp"
#include "host/tool/progress.hpp"

namespace tool {
namespace {

namespace fs = std::filesystem;

std::string targetOf(const ConvertOptions& options, const std::string& input) {
  if (!options.output.empty()) return options.output;
  // A folder's name may end with a slash.
  const fs::path source = fs::path(input).has_filename() ? fs::path(input) : fs::path(input).parent_path();
  return (fs::path(options.folder) / source.stem()).string() + extensionOf(options.to);
}

// "" when all is well.
std::string wrongUsage(const ConvertOptions& options) {
  if (options.output.empty() == options.folder.empty()) return "give either -o, or --to and --into";
  if (!options.folder.empty() && options.to.empty()) return "--into needs --to";
  if (!options.output.empty() && options.inputs.size() != 1) return "-o takes one document; use --to and --into for several";
  if (options.to.empty() && formatNamed(options.output).empty())
    return "the name after -o does not say the format; use --to";
  return "";
}

}  // namespace

int convertDocuments(const ConvertOptions& options) {
  if (const std::string wrong = wrongUsage(options); !wrong.empty()) {
    report("convert", wrong);
    return WrongUsage;
  }
  if (!loadPlugins()) return Failed;
  const std::string format = options.to.empty() ? formatNamed(options.output) : options.to;
  std::error_code failure;
  if (!options.folder.empty()) fs::create_directories(options.folder, failure);
  Progress progress(options.inputs.size());
  std::set<std::string> written;
  int status = Succeeded;
  for (const std::string& input : options.inputs) {
    try {
      const std::string target = targetOf(options, input);
      if (!written.insert(target).second) throw DocumentError{"another document was converted to " + target};
      saveDocument(openDocument(input, options.from), target, format, [&](int page) { progress.pageDone(page); });
    } catch (const DocumentError& error) {
      progress.clear();
      report(input, error.message);
      status = Failed;
    }
    progress.fileDone();
  }
  return status;
}

}  // namespace tool
