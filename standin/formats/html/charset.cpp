// ICU's converters, with references for what they lack.
#include "standin/formats/html/charset.hpp"

#include <unicode/ucnv.h>

#include <cstdint>
#include <memory>

namespace standin::formats::html {
namespace {

constexpr const char* standardEncoding = "UTF-8";

struct Close {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, Close>;

// Nil when it is unknown.
Converter openConverter(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name.c_str(), &status));
  return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

}  // namespace

std::optional<std::string> charsetNamed(const std::string& name) {
  if (name.empty()) return standardEncoding;
  if (!openConverter(name)) return std::nullopt;
  for (const char* standard : {"MIME", "IANA"}) {
    UErrorCode status = U_ZERO_ERROR;
    const char* known = ucnv_getStandardName(name.c_str(), standard, &status);
    if (U_SUCCESS(status) && known != nullptr) return known;
  }
  return std::nullopt;
}

std::optional<std::string> encoded(std::string document, const std::string& charset) {
  if (charset == standardEncoding) return document;
  const Converter converter = openConverter(charset);
  if (!converter || document.size() > INT32_MAX / 8) return std::nullopt;
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_ESCAPE, UCNV_ESCAPE_XML_DEC, nullptr, nullptr, &status);
  const auto convert = [&](std::string& out) {
    status = U_ZERO_ERROR;
    return ucnv_fromAlgorithmic(converter.get(), UCNV_UTF8, out.data(), static_cast<int32_t>(out.size()), document.data(),
                                static_cast<int32_t>(document.size()), &status);
  };
  std::string out(document.size() * 2, '\0');
  int32_t length = convert(out);
  if (status == U_BUFFER_OVERFLOW_ERROR) {
    out.resize(static_cast<size_t>(length));
    length = convert(out);
  }
  if (U_FAILURE(status)) return std::nullopt;
  out.resize(static_cast<size_t>(length));
  return out;
}

}  // namespace standin::formats::html
