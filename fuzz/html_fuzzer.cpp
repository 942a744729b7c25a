// HTML: any bytes can be read, and what is written of them can be read again.
#include "fuzz/support/reader_property.hpp"
#include "standin/formats/html/reader.hpp"
#include "standin/formats/html/writer.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  using namespace standin::formats;
  const fuzz::Format format{
      [](fuzz::Bytes input) { return html::read(input, {.baseURL = "http://host/folder/page"}); },
      [](const StyledRuns& styled, const DocumentInformation& information) { return html::write(styled, information); }};
  fuzz::checkFormat(format, {bytes, size});
  return 0;
}
