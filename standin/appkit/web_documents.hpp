// Documents of web pages and of SimpleText, written from attributed strings.
#pragma once

#include "standin/appkit/document_text.hpp"

namespace standin::appkit {

// Nil when the encoding that is asked for is unknown.
Owned<NSData> newHTMLData(ExportedRuns& exported, const formats::DocumentInformation& information);
Owned<NSData> newWebArchiveData(ExportedRuns& exported, const formats::DocumentInformation& information);
// Nil when the text has characters that the format lacks.
Owned<NSData> newSimpleTextData(ExportedRuns& exported, const formats::DocumentInformation& information);

}  // namespace standin::appkit
