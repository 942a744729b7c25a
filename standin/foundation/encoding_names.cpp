// The names of the encodings that need no converter; of the others ICU's.
#include "standin/foundation/encoding_names.hpp"

#include <unicode/ucnv.h>

#include "standin/foundation/icu_encodings.hpp"

namespace standin::foundation {
namespace {

struct NameRow {
  CFStringEncoding encoding;
  const char* name;
};
constexpr NameRow nameRows[] = {
    {kCFStringEncodingUTF8, "UTF-8"},     {kCFStringEncodingASCII, "US-ASCII"}, {kCFStringEncodingISOLatin1, "ISO-8859-1"},
    {kCFStringEncodingUnicode, "UTF-16"}, {encodingUtf16BigEndian, "UTF-16BE"}, {encodingUtf16LittleEndian, "UTF-16LE"},
    {kCFStringEncodingUTF32, "UTF-32"},   {encodingUtf32BigEndian, "UTF-32BE"}, {encodingUtf32LittleEndian, "UTF-32LE"},
};

}  // namespace

std::string registeredName(CFStringEncoding encoding) {
  for (const NameRow& row : nameRows) {
    if (row.encoding == encoding) return row.name;
  }
  const char* converter = converterName(encoding);
  if (converter == nullptr) return "";
  for (const char* registry : {"MIME", "IANA"}) {
    UErrorCode status = U_ZERO_ERROR;
    const char* name = ucnv_getStandardName(converter, registry, &status);
    if (U_SUCCESS(status) && name != nullptr) return name;
  }
  return "";
}

}  // namespace standin::foundation
