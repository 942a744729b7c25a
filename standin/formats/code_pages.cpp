// Charset numbers and ICU converters.
#include "standin/formats/code_pages.hpp"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/ucnv_err.h>

#include "standin/text/ascii.hpp"

namespace standin::formats {
namespace {

struct CharsetRow {
  int charset, codePage;
};
constexpr CharsetRow charsets[] = {
    {0, 1252},   {2, symbolCodePage}, {77, 10000}, {78, 932},  {79, 949},   {80, 936},   {81, 950},   {128, 932},
    {129, 949},  {130, 1361},         {134, 936},  {136, 950}, {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255},
    {178, 1256}, {186, 1257},         {204, 1251}, {222, 874}, {238, 1250}, {254, 437},  {255, 850},
};

// Code pages whose ICU name is not "cp" and the number.
struct ConverterName {
  int codePage;
  const char* name;
};
constexpr ConverterName converterNames[] = {
    {10000, "macintosh"},
    {10001, "Shift_JIS"},
    {10006, "x-mac-greek"},
    {10007, "x-mac-cyrillic"},
    {10029, "x-mac-centraleurroman"},
    {10081, "x-mac-turkish"},
    {932, "windows-31j"},
    {936, "windows-936"},
    {949, "windows-949"},
    {950, "windows-950"},
    {874, "windows-874"},
    {1361, "ibm-1363"},
    {65001, "UTF-8"},
    {20866, "KOI8-R"},
    {21866, "KOI8-U"},
    {28591, "ISO-8859-1"},
    {28592, "ISO-8859-2"},
    {28597, "ISO-8859-7"},
    {28605, "ISO-8859-15"},
};

std::string converterName(int codePage) {
  for (const ConverterName& row : converterNames) {
    if (row.codePage == codePage) return row.name;
  }
  return (codePage >= 1250 && codePage <= 1258 ? "windows-" : "cp") + std::to_string(codePage);
}

// ICU's own substitute for a single bad byte is a control character in some code pages.
void replaceBadBytes(const void*, UConverterToUnicodeArgs* arguments, const char*, int32_t, UConverterCallbackReason reason,
                     UErrorCode* error) {
  if (reason > UCNV_IRREGULAR) return;
  constexpr UChar replacement = 0xFFFD;
  *error = U_ZERO_ERROR;
  ucnv_cbToUWriteUChars(arguments, &replacement, 1, 0, error);
}

}  // namespace

int codePageOfCharset(int charset) {
  for (const CharsetRow& row : charsets) {
    if (row.charset == charset) return row.codePage;
  }
  return 0;
}

Decoder::Decoder() = default;
Decoder::~Decoder() = default;

void Decoder::Close::operator()(UConverter* converter) const { ucnv_close(converter); }

UConverter* Decoder::converterFor(int codePage) {
  const auto [entry, isNew] = converters_.try_emplace(codePage);
  if (isNew) {
    UErrorCode error = U_ZERO_ERROR;
    entry->second.reset(ucnv_open(converterName(codePage).c_str(), &error));
    if (U_FAILURE(error)) {
      error = U_ZERO_ERROR;
      entry->second.reset(ucnv_open("windows-1252", &error));
    }
    if (entry->second) ucnv_setToUCallBack(entry->second.get(), replaceBadBytes, nullptr, nullptr, nullptr, &error);
  }
  return entry->second.get();
}

void Decoder::append(std::u16string& out, std::string_view bytes, int codePage) {
  if (codePage == symbolCodePage) {
    for (const char byte : bytes)
      out += static_cast<char16_t>(byte >= 0 && byte < 0x20 ? byte : 0xF000 + static_cast<uint8_t>(byte));
  } else if (text::lengthOfASCII(bytes) == bytes.size()) {
    out.append(bytes.begin(), bytes.end());
  } else if (UConverter* converter = converterFor(codePage)) {
    const size_t old = out.size();
    out.resize(old + bytes.size() * 2);  // no code page gives more units than this a byte
    UErrorCode error = U_ZERO_ERROR;
    const int32_t units = ucnv_toUChars(converter, out.data() + old, static_cast<int32_t>(out.size() - old), bytes.data(),
                                        static_cast<int32_t>(bytes.size()), &error);
    out.resize(old + static_cast<size_t>(U_SUCCESS(error) ? units : 0));
  }
}

}  // namespace standin::formats
