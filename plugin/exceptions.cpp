// Raises host exceptions: by class and message, for platform exceptions, and for standard exceptions.
#include "plugin/exceptions.hpp"

#include <cstdio>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <typeinfo>

#include "bridge/strings.hpp"
#include "plugin/host_owned.hpp"
#include "plugin/sibling.hpp"

namespace plugin {

namespace {

// The message as a host string. A failure while it is built raises an exception of its own, with a message that is built in
// the same way. When that fails too, the exception about it has none: the same failure would not end otherwise.
class MessageBuilder {
 public:
  MessageBuilder() { ++depth_; }
  ~MessageBuilder() { --depth_; }
  MessageBuilder(const MessageBuilder&) = delete;
  MessageBuilder& operator=(const MessageBuilder&) = delete;

  HostOwned<REALstringStruct> build(const char* message) const {
    constexpr int deepest = 2;
    if (message == nullptr || depth_ > deepest) return nullptr;
    return adoptHost(
        bridge::REALBuildUnicodeString(message, static_cast<long long>(std::strlen(message)), kCFStringEncodingASCII));
  }

 private:
  static inline constinit int depth_ = 0;
};

}  // namespace

void RaiseException(const char* className, const char* message, uint32_t, int64_t) {
  const HostOwned<REALstringStruct> text = MessageBuilder().build(message);
  HostOwned<REALobjectStruct> exception = newInstance(className);
  if (!exception) exception = newInstance("RuntimeException");
  if (!exception) return;
  REALSetPropValueString(exception, "Message", text);
  REALSetPropValueInteger(exception, "ErrorNumber", 0);
  REALRaiseException(exception);
}

void RaiseOutOfBoundsException(int64_t value, int64_t count, int64_t, const char*, const char*) {
  constexpr std::size_t size = 205;
  const std::unique_ptr<char[]> message(new (std::nothrow) char[size]());
  if (message == nullptr) return RaiseException("OutOfBoundsException", "Out of Bounds");
  std::snprintf(message.get(), size, "Parameter %s %s%s is too %s. Range is %lld to %lld, but value is %lld.", "index", "",
                "", value < 0 ? "small" : "big", 0LL, static_cast<long long>(count - 1), static_cast<long long>(value));
  RaiseException("OutOfBoundsException", message.get());
}

void RaiseNSExceptionZKT(NSException* exception) {
  NSLog(__CFStringMakeConstantString("A %@: %@, Info: %@\n"), NSException::name(exception), NSException::reason(exception),
        NSException::userInfo(exception));
  if (!sibling::offers(sibling::NewNSException)) return;
  const auto raised = adoptHost(sibling::NewNSException(classOf<NSException>(), exception));
  if (raised) REALRaiseException(raised);
}

namespace {

template <class Type>
bool isA(const std::exception& thrown) {
  return dynamic_cast<const Type*>(&thrown) != nullptr;
}

bool isAny(const std::exception&) { return true; }

struct Translation {
  bool (*matches)(const std::exception&);
  const char* hostClass;
  const char* message;  // Nil: what the exception says itself.
};

// The first row that matches decides, so a base class stands below its descendants.
constexpr Translation translations[] = {
    {isA<std::bad_alloc>, "OutOfMemoryException", "Failed to allocate memory."},
    {isA<std::range_error>, "OutOfBoundsException", nullptr},
    {isA<std::out_of_range>, "OutOfBoundsException", nullptr},
    {isA<std::overflow_error>, "OutOfBoundsException", nullptr},
    {isA<std::underflow_error>, "OutOfBoundsException", nullptr},
    {isA<std::logic_error>, "RuntimeException", nullptr},
    {isA<std::runtime_error>, "RuntimeException", nullptr},
    {isA<std::bad_cast>, "IllegalCastException", nullptr},
    {isAny, "RuntimeException", nullptr},
};

void raiseTranslated(const std::exception& thrown) {
  for (const Translation& row : translations) {
    if (row.matches(thrown)) return RaiseException(row.hostClass, row.message != nullptr ? row.message : thrown.what());
  }
}

}  // namespace

void raiseCurrentException() {
  try {
    throw;
  } catch (const std::exception& thrown) {
    raiseTranslated(thrown);
  } catch (...) {
    RaiseException("RuntimeException", "Sorry, but there was an unnamed C++ Exception.");
  }
}

}  // namespace plugin
