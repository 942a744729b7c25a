// A line an option.
#include "standin/appkit/html_options.hpp"

#include <cmath>
#include <filesystem>

#include "standin/appkit/style.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/encoding_names.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/string_encodings.hpp"
#include "standin/foundation/url.hpp"
#include "standin/foundation/url_text.hpp"

namespace standin::appkit {
namespace {

template <class Type>
Type* optionOf(NSDictionary* options, NSString* key) {
  NSObject* value = foundation::find(options, key);
  return NSObject::isKindOfClass(value, classOf<Type>()) ? static_cast<Type*>(value) : nullptr;
}

std::string baseURLOf(const DocumentSource& source) {
  if (NSURL* base = optionOf<NSURL>(source.options, NSBaseURLDocumentOption)) return foundation::absoluteParts(base).text();
  if (NSString* base = optionOf<NSString>(source.options, NSBaseURLDocumentOption)) return foundation::utf8Of(base);
  if (source.name.empty()) return {};
  std::error_code failed;
  const std::filesystem::path path = std::filesystem::absolute(source.name, failed);
  return failed ? std::string() : "file://" + foundation::escapedPath(path.string());
}

// Where a document may have its pictures and style sheets: in its own folder, when its address is that of a file.
std::string folderOf(const std::string& baseURL) {
  const foundation::UrlParts parts = foundation::parseUrl(baseURL);
  if (parts.scheme != "file" || (parts.authority && !parts.authority->empty() && parts.authority != "localhost")) return {};
  return std::filesystem::path(foundation::unescaped(parts.path)).parent_path();
}

// The name counts before the number.
std::string encodingNameOf(NSDictionary* options) {
  if (NSString* name = optionOf<NSString>(options, NSTextEncodingNameDocumentOption)) return foundation::utf8Of(name);
  NSNumber* number = optionOf<NSNumber>(options, NSCharacterEncodingDocumentOption);
  if (number == nullptr) return {};
  return foundation::registeredName(foundation::toCFStringEncoding(static_cast<NSUInteger>(foundation::integerOf(number))));
}

double multiplierOf(NSDictionary* options) {
  NSNumber* number = optionOf<NSNumber>(options, NSTextSizeMultiplierDocumentOption);
  const double factor = number != nullptr ? foundation::doubleOf(number) : 1;
  return std::isfinite(factor) && factor > 0 ? factor : 1;
}

}  // namespace

formats::html::ReadOptions htmlOptionsOf(const DocumentSource& source) {
  formats::html::ReadOptions options;
  options.baseURL = baseURLOf(source);
  options.folder = folderOf(options.baseURL);
  options.encodingName = encodingNameOf(source.options);
  options.textSizeMultiplier = multiplierOf(source.options);
  if (NSDictionary* attributes = optionOf<NSDictionary>(source.options, NSDefaultAttributesDocumentOption)) {
    options.defaultStyle = styleOf(attributes);
  }
  return options;
}

std::optional<formats::Document> readHTML(const DocumentSource& source) {
  return formats::html::read(source.bytes, htmlOptionsOf(source));
}

}  // namespace standin::appkit
