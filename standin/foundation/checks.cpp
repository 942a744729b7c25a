// Refusals that name receiver, selector and what was wrong.
#include "standin/foundation/checks.hpp"

#include <string>

#include "standin/runtime/exception.hpp"

namespace standin::foundation {
namespace {

[[noreturn]] void raiseOutOfBounds(NSObject* receiver, const char* selector, const std::string& what, const char* noun,
                                   NSUInteger length) {
  raise(NSRangeException,
        describeMethod(receiver, selector) + ": " + what + " out of bounds; " + noun + " length " + std::to_string(length));
}

}  // namespace

void requireIndex(NSObject* receiver, const char* selector, NSUInteger index, NSUInteger limit, const char* noun,
                  NSUInteger length) {
  if (index > limit) raiseOutOfBounds(receiver, selector, "Index " + std::to_string(index), noun, length);
}

void requireElement(NSObject* receiver, const char* selector, NSUInteger index, NSUInteger length) {
  if (index >= length) raiseOutOfBounds(receiver, selector, "Index " + std::to_string(index), "array", length);
}

void requireRange(NSObject* receiver, const char* selector, NSRange range, const char* noun, NSUInteger length) {
  if (range.location <= length && range.length <= length - range.location) return;
  raiseOutOfBounds(receiver, selector,
                   "Range {" + std::to_string(range.location) + ", " + std::to_string(range.length) + "}", noun, length);
}

void requireArgument(NSObject* receiver, const char* selector, const void* argument) {
  if (argument == nullptr) raise(NSInvalidArgumentException, describeMethod(receiver, selector) + ": nil argument");
}

}  // namespace standin::foundation
