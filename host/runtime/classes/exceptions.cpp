// RuntimeException and its subclasses.
#include <cstdlib>
#include <utility>

#include "host/runtime/classes/classes.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/string.hpp"

namespace host {
namespace {

struct ExceptionState {
  HostOwned<HostString> message;
  int64_t errorNumber = 0;
};

HostString* message(HostObject* self, int64_t) { return retain(self->stateAs<ExceptionState>().message.get()).detach(); }

void setMessage(HostObject* self, int64_t, HostString* message) {
  self->stateAs<ExceptionState>().message = retain(message);
}

int64_t errorNumber(HostObject* self, int64_t) { return self->stateAs<ExceptionState>().errorNumber; }
void setErrorNumber(HostObject* self, int64_t, int64_t number) { self->stateAs<ExceptionState>().errorNumber = number; }

void construct(HostObject* self, HostString* message, int64_t errorNumber) {
  self->stateAs<ExceptionState>() = {retain(message), errorNumber};
}

const BuiltinProperty properties[] = {
    {"Message as String", native(message), native(setMessage)},
    {"ErrorNumber as Integer", native(errorNumber), native(setErrorNumber)},
};

const BuiltinMethod methods[] = {
    {"Constructor(message as String = \"\", errorNumber as Integer = 0)", native(construct)},
};

constexpr char root[] = "RuntimeException";

// Let go of when memory runs short, so that there is some to tell of it. Nil while it cannot be had again.
constexpr size_t spareSize = 1 << 16;
void* spareMemory = std::malloc(spareSize);

}  // namespace

const BuiltinClass runtimeExceptionClass{
    .name = root, .state = stateOf<ExceptionState>(), .properties = properties, .methods = methods};

const BuiltinClass exceptionClasses[] = {
    {.name = "IllegalCastException", .superclass = root},  {.name = "InvalidArgumentException", .superclass = root},
    {.name = "IOException", .superclass = root},           {.name = "KeyNotFoundException", .superclass = root},
    {.name = "NilObjectException", .superclass = root},    {.name = "OutOfBoundsException", .superclass = root},
    {.name = "OutOfMemoryException", .superclass = root},  {.name = "StackOverflowException", .superclass = root},
    {.name = "TypeMismatchException", .superclass = root}, {.name = "UnsupportedFormatException", .superclass = root},
};

const std::string& HostException::className() const { return object_->type->name(); }
std::string HostException::message() const { return utf8Of(object_->stateAs<ExceptionState>().message); }
int64_t HostException::errorNumber() const { return object_->stateAs<ExceptionState>().errorNumber; }

HostOwned<HostObject> makeException(std::string_view className, std::string_view message, int64_t errorNumber) {
  const HostClass* type = Runtime::shared().findClass(className);
  if (type == nullptr || type->stateOwner() != &runtimeExceptionClass) type = &builtinClass<runtimeExceptionClass>();
  HostOwned<HostObject> exception = HostObject::make(*type);
  exception->stateAs<ExceptionState>() = {HostString::make(message), errorNumber};
  return exception;
}

void throwException(std::string_view className, std::string_view message, int64_t errorNumber) {
  throw HostException(makeException(className, message, errorNumber));
}

void throwOutOfBounds(int64_t index, int64_t upperBound) {
  throwException("OutOfBoundsException",
                 "Index " + std::to_string(index) + " is not in 0 to " + std::to_string(upperBound) + ".");
}

void throwOutOfMemory() {
  std::free(std::exchange(spareMemory, nullptr));
  HostOwned<HostObject> exception = makeException("OutOfMemoryException", "Failed to allocate memory.");
  spareMemory = std::malloc(spareSize);
  throw HostException(std::move(exception));
}

void throwNilObject(std::string_view what) { throwException("NilObjectException", std::string(what) + " is Nil."); }

}  // namespace host
