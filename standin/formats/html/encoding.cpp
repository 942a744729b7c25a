// Marks, names and guesses, then ICU's converters.
#include "standin/formats/html/encoding.hpp"

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "standin/formats/html/ascii.hpp"

namespace standin::formats::html {
namespace {

using namespace std::string_view_literals;

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;
struct CloseDetector {
  void operator()(UCharsetDetector* detector) const { ucsdet_close(detector); }
};

// The longer marks first: that of UTF-32 begins with one of UTF-16. Without a mark the zeros of the first character, "<"
// mostly, tell the width.
struct Beginning {
  std::string_view bytes;
  const char* encoding;
  bool isMark;
};
constexpr Beginning beginnings[] = {
    {"\xEF\xBB\xBF"sv, "UTF-8", true}, {"\xFF\xFE\0\0"sv, "UTF-32LE", true}, {"\0\0\xFE\xFF"sv, "UTF-32BE", true},
    {"\xFF\xFE"sv, "UTF-16LE", true},  {"\xFE\xFF"sv, "UTF-16BE", true},     {"<\0\0\0"sv, "UTF-32LE", false},
    {"\0\0\0<"sv, "UTF-32BE", false},  {"<\0"sv, "UTF-16LE", false},         {"\0<"sv, "UTF-16BE", false},
};

// What documents mean that name one of these, or that look like one.
struct Meaning {
  std::string_view name;
  const char* encoding;
};
constexpr Meaning meanings[] = {
    {"iso-8859-1", "windows-1252"},
    {"iso8859-1", "windows-1252"},
    {"latin1", "windows-1252"},
    {"us-ascii", "windows-1252"},
    {"ascii", "windows-1252"},
    {"ansi", "windows-1252"},
    {"iso-8859-9", "windows-1254"},
    {"iso-8859-8-i", "windows-1255"},
    {"iso-8859-8", "windows-1255"},
    {"iso-8859-11", "windows-874"},
    {"tis-620", "windows-874"},
    {"gb2312", "gb18030"},
    {"gbk", "gb18030"},
    {"ks_c_5601-1987", "windows-949"},
    {"euc-kr", "windows-949"},
    {"shift_jis", "windows-31j"},
    {"sjis", "windows-31j"},
    {"x-sjis", "windows-31j"},
    {"x-mac-roman", "macintosh"},
    {"mac", "macintosh"},
    {"utf-16", "UTF-8"},
    {"utf-16le", "UTF-8"},
    {"utf-16be", "UTF-8"},
    {"unicode", "UTF-8"},
    {"utf8", "UTF-8"},
    {"utf-8", "UTF-8"},
    {"x-user-defined", "windows-1252"},
};

// Of the bytes in which names of encodings are looked for.
constexpr size_t declarationLength = 4096;

std::string encodingMeant(std::string_view name) {
  for (const Meaning& meaning : meanings) {
    if (equalIgnoringCase(meaning.name, name)) return meaning.encoding;
  }
  return std::string(name);
}

Converter openConverter(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name.c_str(), &status));
  return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

// Of the ASCII that the bytes begin with, eight bytes at a step.
size_t asciiLength(std::string_view bytes) {
  size_t at = 0;
  for (uint64_t eight = 0; at + sizeof eight <= bytes.size(); at += sizeof eight) {
    std::memcpy(&eight, bytes.data() + at, sizeof eight);
    if ((eight & 0x8080808080808080u) != 0) break;
  }
  while (at < bytes.size() && (bytes[at] & 0x80) == 0) ++at;
  return at;
}

// The last character may be cut off.
bool isUTF8(std::string_view bytes) {
  size_t at = 0;
  while (at < bytes.size()) {
    at += asciiLength(bytes.substr(at));
    if (at == bytes.size()) break;
    const auto lead = static_cast<unsigned char>(bytes[at]);
    const size_t length = lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length == 0) return false;
    for (size_t next = 1; next < length && at + next < bytes.size(); ++next) {
      if ((bytes[at + next] & 0xC0) != 0x80) return false;
    }
    at += length;
  }
  return true;
}

// "charset=…" of a meta element, "encoding=…" of an XML declaration.
std::string declaredEncoding(std::string_view bytes) {
  const std::string start = asciiLowercase(bytes.substr(0, declarationLength));
  for (const std::string_view key : {"charset"sv, "encoding"sv}) {
    for (size_t at = start.find(key); at != std::string::npos; at = start.find(key, at + 1)) {
      const size_t tag = start.rfind('<', at);
      const bool isDeclaration =
          tag != std::string::npos && start.find('>', tag) > at &&
          (key == "charset" ? start.compare(tag, 5, "<meta") == 0 : start.compare(tag, 5, "<?xml") == 0);
      size_t value = start.find_first_not_of(" \t\r\n", at + key.size());
      if (!isDeclaration || value == std::string::npos || start[value] != '=') continue;
      value = start.find_first_not_of(" \t\r\n\"'", value + 1);
      const size_t end = start.find_first_of(" \t\r\n\"';>/?", value);
      if (value == std::string::npos || end == std::string::npos || end == value) continue;
      std::string name = encodingMeant(start.substr(value, end - value));
      if (openConverter(name)) return name;
    }
  }
  return {};
}

// What statistics of letters say; tags are left out of them.
std::string likelyEncoding(std::string_view bytes) {
  constexpr size_t sample = 64 * 1024;
  constexpr int leastConfidence = 10;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UCharsetDetector, CloseDetector> detector(ucsdet_open(&status));
  if (U_FAILURE(status)) return "windows-1252";
  bytes = bytes.substr(0, sample);
  ucsdet_setText(detector.get(), bytes.data(), static_cast<int32_t>(bytes.size()), &status);
  ucsdet_enableInputFilter(detector.get(), true);
  const UCharsetMatch* match = ucsdet_detect(detector.get(), &status);
  if (U_FAILURE(status) || match == nullptr || ucsdet_getConfidence(match, &status) < leastConfidence) return "windows-1252";
  const char* name = ucsdet_getName(match, &status);
  return U_SUCCESS(status) && name != nullptr ? encodingMeant(name) : "windows-1252";
}

std::string decoded(std::string_view bytes, UConverter* converter) {
  std::string text;
  char buffer[8192];
  const char* from = bytes.data();
  const char* const end = from + bytes.size();
  UConverter* utf8 = openConverter("UTF-8").release();
  const Converter owner(utf8);
  UChar pivot[1024], *pivotFrom = pivot, *pivotTo = pivot;
  bool isFirst = true;
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    char* to = buffer;
    status = U_ZERO_ERROR;
    ucnv_convertEx(utf8, converter, &to, buffer + sizeof buffer, &from, end, pivot, &pivotFrom, &pivotTo,
                   pivot + std::size(pivot), isFirst, true, &status);
    isFirst = false;
    text.append(buffer, static_cast<size_t>(to - buffer));
  }
  return text;
}

// Null characters mean nothing; line ends of all kinds are line feeds.
void normalize(std::string& text) {
  std::erase(text, '\0');
  if (text.find('\r') == std::string::npos) return;
  size_t out = 0;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
    text[out++] = text[at] == '\r' ? '\n' : text[at];
  }
  text.resize(out);
}

const Beginning* beginningOf(std::string_view bytes, bool isMark) {
  const auto found = std::find_if(std::begin(beginnings), std::end(beginnings), [&](const Beginning& beginning) {
    return beginning.isMark == isMark && bytes.starts_with(beginning.bytes);
  });
  return found != std::end(beginnings) ? found : nullptr;
}

std::string encodingOf(std::string_view bytes) {
  if (const Beginning* beginning = beginningOf(bytes, false)) return beginning->encoding;
  if (std::string declared = declaredEncoding(bytes); !declared.empty()) return declared;
  return isUTF8(bytes) ? "UTF-8" : likelyEncoding(bytes);
}

std::string textIn(const std::string& encoding, std::string_view bytes) {
  if (encoding == "UTF-8" && isUTF8(bytes)) return std::string(bytes);
  Converter converter = openConverter(encoding);
  if (!converter) converter = openConverter("windows-1252");
  return converter ? decoded(bytes, converter.get()) : std::string();
}

}  // namespace

std::optional<DecodedText> decodeDocument(std::span<const uint8_t> bytes, const std::string& asked) {
  std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  DecodedText result;
  if (const Beginning* mark = beginningOf(rest, true)) {
    result.encoding = mark->encoding;
    rest.remove_prefix(mark->bytes.size());
  } else {
    if (!asked.empty() && !openConverter(asked)) return std::nullopt;
    result.encoding = asked.empty() ? encodingOf(rest) : asked;
  }
  result.text = textIn(result.encoding, rest);
  normalize(result.text);
  return result;
}

std::string decodeSheet(const std::string& bytes) { return textIn(isUTF8(bytes) ? "UTF-8" : "windows-1252", bytes); }

}  // namespace standin::formats::html
