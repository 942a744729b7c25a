// Attributed strings, or stretches of them, as document data.
#include "attributed/export.hpp"

#include <algorithm>

#include "classes/error_variable.hpp"
#include "html/messages.hpp"

namespace attributed {

bool stretchOf(REALobject self, int64_t offset, int64_t length, NSRange& stretch) {
  const auto text = platformObject(self);
  if (text == nullptr) return false;
  const auto total = static_cast<int64_t>(NSAttributedString::length(text));
  if (length < 1 || offset < 0 || offset > total) return false;
  stretch = {static_cast<NSUInteger>(offset), static_cast<NSUInteger>(std::min(length, total - offset))};
  return true;
}

namespace {

// Keeps the result when wrapping the error fails. For use within the guard.
template <auto& message, class Result>
void writeReporting(REALobject self, NSRange range, REALdictionary* documentAttributes, ErrorVariable& reported,
                    Result& result) {
  result = send<message>(self, range, NewNSDictionary(documentAttributes), reported.address());
  reported.store();
}

}  // namespace

REALmemoryBlock dataFromRange(REALobject self, int64_t offset, int64_t length, REALdictionary* documentAttributes,
                              REALobject* error) {
  ErrorVariable reported(error);
  return guardedKeeping<REALmemoryBlock>([&](REALmemoryBlock& data) {
    NSRange range{};
    if (!stretchOf(self, offset, length, range)) return;
    writeReporting<NSAttributedString::dataFromRange>(self, range, documentAttributes, reported, data);
  });
}

REALobject fileWrapperFromRange(REALobject self, int64_t offset, int64_t length, REALdictionary* documentAttributes,
                                REALobject* error) {
  ErrorVariable reported(error);
  return guardedKeeping<REALobject>([&](REALobject& fileWrapper) {
    const NSRange range{static_cast<NSUInteger>(offset), static_cast<NSUInteger>(length)};
    writeReporting<NSAttributedString::fileWrapperFromRange>(self, range, documentAttributes, reported, fileWrapper);
  });
}

REALmemoryBlock rtf(REALobject self) { return methodOf<html::rtf_ZKT>(self); }
REALstring htmlString(REALobject self) { return methodOf<html::htmlString_ZKT>(self); }

}  // namespace attributed
