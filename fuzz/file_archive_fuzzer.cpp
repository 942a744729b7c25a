// File archives: what is read is exactly what would be written; and file wrappers and packages made of them hold together.
#include "fuzz/support/reader_property.hpp"
#include "platform/appkit.h"
#include "platform/guard.h"
#include "platform/owned.h"
#include "standin/formats/file_archive/archive.hpp"
#include "standin/foundation/data.hpp"
#include "standin/runtime/accounting.hpp"

namespace {

namespace file_archive = standin::formats::file_archive;

void checkArchive(fuzz::Bytes bytes) {
  const auto file = fuzz::withinBound(bytes.size(), [&] { return file_archive::read(bytes); });
  if (!file) return;
  const auto written = file_archive::write(*file);
  fuzz::require(written && *written == fuzz::textOf(bytes), "written again it is other bytes");
}

void checkWrapper(fuzz::Bytes bytes) {
  const AutoreleasePool pool;
  const Owned<NSData> data = standin::foundation::newData(std::string(fuzz::textOf(bytes)));
  const auto exception = catchException([&] {
    const auto wrapper = adopt(NSFileWrapper::initWithSerializedRepresentation(alloc<NSFileWrapper>(), data));
    if (wrapper) {
      NSData* written = NSFileWrapper::serializedRepresentation(wrapper);
      fuzz::require(NSObject::isEqual(written, data), "the wrapper's archive is other bytes");
    }
    const auto package = adopt(NSAttributedString::initWithRTFD(alloc<NSAttributedString>(), data, nullptr));
  });
  fuzz::require(exception == nullptr, "an exception was raised");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  checkArchive({bytes, size});
  static const long before = (checkWrapper({}), standin::liveObjectsAfterDrain());
  checkWrapper({bytes, size});
  fuzz::require(standin::liveObjectsAfterDrain() == before, "objects are left: " + standin::describeLiveObjects());
  return 0;
}
