// URLs for C++ code: making them, and the file that one names.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation.h"
#include "platform/owned.h"
#include "standin/foundation/url_text.hpp"

namespace standin::foundation {

// Nil for text that is no URL. A base is ignored when the text has a scheme.
Owned<NSURL> newURL(NSString* text, NSURL* base = nullptr);
// From parts that are legal already.
Owned<NSURL> newURL(const UrlParts& parts, NSURL* base = nullptr);
// The path, in the bytes of the file system; a relative one is seen from the current folder. A slash is added when the
// URL is to name a folder.
Owned<NSURL> newFileURL(const std::string& path, bool isDirectory);

// The parts of the URL as it was written, without its base; and seen from its base.
UrlParts relativeParts(NSURL* url);
UrlParts absoluteParts(NSURL* url);
NSURL* baseOf(NSURL* url);

// The path of the file that a file URL names, without a slash at its end; nothing for other URLs and nil.
std::optional<std::string> filePath(NSURL* url);

// Edits of the last path component; nil when the URL has no path.
Owned<NSURL> newURLAppending(NSURL* url, NSString* component, bool isDirectory);
Owned<NSURL> newURLDeletingLast(NSURL* url);
// "b" of "/a/b/", "/" of "/", unescaped; nil when the URL has no path or the bytes are no UTF-8.
Owned<NSString> newLastComponent(NSURL* url);
// The unescaped path of the parts without a slash at its end, nil as above.
Owned<NSString> newPath(const UrlParts& parts);

}  // namespace standin::foundation
