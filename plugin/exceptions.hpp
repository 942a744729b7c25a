// How failures reach the host program: exceptions raised by class and message, the guard around platform calls, and what
// standard exceptions become.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "platform/guard.h"
#include "plugin/host_owned.hpp"

namespace plugin {

// The host throws a raised exception when the library's function returns. The message may be nil. An unknown class raises
// "RuntimeException". The error number is 0, whatever is passed.
void RaiseException(const char* className, const char* message, uint32_t errorNumber = 0, int64_t reserved = 0);

// `value` is the index at fault, `count` the number of valid positions. The other parameters are not used.
void RaiseOutOfBoundsException(int64_t value, int64_t count, int64_t reserved = 0, const char* parameter = nullptr,
                               const char* place = nullptr);

// Logs the platform exception and raises what the sibling library makes of it; without a sibling it ends here.
void RaiseNSExceptionZKT(NSException* exception);

// Raises the host exception that stands for the C++ exception being handled. To be called in a catch block.
void raiseCurrentException();

// The guard of a function that the host calls. Gives the body's result, or, when a platform exception ended the body,
// reports it and gives the empty value. Any other exception passes.
template <class Body>
std::invoke_result_t<Body&> guarded(Body&& body) {
  using Result = std::invoke_result_t<Body&>;
  if constexpr (std::is_void_v<Result>) {
    if (NSException* exception = catchException(body)) RaiseNSExceptionZKT(exception);
  } else {
    Result result{};
    NSException* exception = catchException([&] { result = body(); });
    if (exception == nullptr) return result;
    RaiseNSExceptionZKT(exception);
    return Result{};
  }
}

// The guard of a function that keeps what it has produced before a failure: the body stores into `Result&` as it goes. When
// another exception passes, nobody gets the host value, and its reference is dropped.
template <class Result, class Body>
Result guardedKeeping(Body&& body) {
  Result produced{};
  try {
    if (NSException* exception = catchException([&] { body(produced); })) RaiseNSExceptionZKT(exception);
  } catch (...) {
    if constexpr (std::is_pointer_v<Result>) const auto dropped = adoptHost(produced);
    throw;
  }
  return produced;
}

// Gives the body's result, or raises what the exception that ended it stands for and gives the empty value.
template <class Body>
std::invoke_result_t<Body&> translatingStandardExceptions(Body&& body) {
  try {
    return body();
  } catch (...) {
    raiseCurrentException();
    return std::invoke_result_t<Body&>();
  }
}

}  // namespace plugin
