// The code pages of text in documents: from numbers and font charsets to Unicode.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

struct UConverter;

namespace standin::formats {

// Fonts of this code page show their bytes as private characters from U+F000 on.
inline constexpr int symbolCodePage = 42;

// The code page of a font's charset number; 0 when the document's own holds.
int codePageOfCharset(int charset);

// Decodes by code page, keeping the converters that it opens.
class Decoder {
 public:
  Decoder();
  ~Decoder();

  // Appends the text of the bytes; what is not in the code page becomes U+FFFD. An unknown code page reads as Windows
  // Latin 1.
  void append(std::u16string& out, std::string_view bytes, int codePage);

 private:
  struct Close {
    void operator()(UConverter* converter) const;
  };

  UConverter* converterFor(int codePage);

  std::unordered_map<int, std::unique_ptr<UConverter, Close>> converters_;
};

}  // namespace standin::formats
