// What holds for the reader and the writer of a document format, whatever the bytes.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "fuzz/support/fuzzer.hpp"
#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace fuzz {

struct Format {
  std::function<std::optional<standin::formats::Document>(Bytes)> read;
  std::function<std::optional<std::string>(const standin::formats::StyledRuns&,
                                           const standin::formats::DocumentInformation&)>
      write;
};

// The reader returns, takes no more memory at a time than 50 times its input and 64 MB, and answers a document that is
// whole. What the writer makes of that document, the reader takes again.
void checkFormat(const Format& format, Bytes bytes);

// Runs the code, which works on so many bytes, and holds it to that memory.
template <class Body>
auto withinBound(size_t bytes, Body&& body);

// Runs cover the text, none is empty, and each has a style; numbers are finite.
void checkDocument(const standin::formats::Document& document);

}  // namespace fuzz

#include "fuzz/support/allocation_meter.hpp"

namespace fuzz {

template <class Body>
auto withinBound(size_t bytes, Body&& body) {
  const AllocationMeter meter;
  auto result = body();
  const size_t bound = 50 * bytes + (size_t{64} << 20);
  require(meter.peak() <= bound, "it held " + std::to_string(meter.peak()) + " bytes over " + std::to_string(bytes));
  return result;
}

}  // namespace fuzz
