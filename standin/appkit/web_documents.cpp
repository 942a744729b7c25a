// The encoding by its name, pictures with their bytes.
#include "standin/appkit/web_documents.hpp"

#include "standin/formats/html/writer.hpp"
#include "standin/formats/simple_text/writer.hpp"
#include "standin/formats/webarchive/writer.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/encoding_names.hpp"
#include "standin/foundation/string_encodings.hpp"

namespace standin::appkit {
namespace {

using formats::DocumentInformation;

// The information with the name of its encoding, which a name decides before a number does; nothing for a number that is
// none.
std::optional<DocumentInformation> withEncodingName(const DocumentInformation& information) {
  DocumentInformation named = information;
  if (!named.textEncodingName.empty() || !named.characterEncoding) return named;
  named.textEncodingName = foundation::registeredName(foundation::toCFStringEncoding(*named.characterEncoding));
  if (named.textEncodingName.empty()) return std::nullopt;
  return named;
}

Owned<NSData> newData(std::optional<std::string> bytes) { return bytes ? foundation::newData(*std::move(bytes)) : nullptr; }

}  // namespace

Owned<NSData> newHTMLData(ExportedRuns& exported, const DocumentInformation& information) {
  const auto named = withEncodingName(information);
  exported.takeFiles();
  return named ? newData(formats::html::write(exported.runs(), *named)) : nullptr;
}

Owned<NSData> newWebArchiveData(ExportedRuns& exported, const DocumentInformation& information) {
  const auto named = withEncodingName(information);
  exported.takeFiles();
  return named ? newData(formats::webarchive::write(exported.runs(), *named)) : nullptr;
}

Owned<NSData> newSimpleTextData(ExportedRuns& exported, const DocumentInformation& /*information*/) {
  return newData(formats::simple_text::write(exported.runs().text));
}

}  // namespace standin::appkit
