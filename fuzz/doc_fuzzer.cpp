// Binary Word documents: any bytes can be read, and what is written of them can be read again.
#include "fuzz/support/reader_property.hpp"
#include "standin/formats/doc/reader.hpp"
#include "standin/formats/doc/writer.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  using namespace standin::formats;
  fuzz::checkFormat({doc::read, doc::write}, {bytes, size});
  return 0;
}
