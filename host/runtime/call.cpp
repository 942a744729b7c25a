// Native calls through libffi.
#include "host/runtime/call.hpp"

#include <cstring>
#include <new>
#include <type_traits>

#include "host/runtime/class.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/runtime.hpp"
#include "host/runtime/variant.hpp"
#include "platform/foundation.h"
#include "platform/guard.h"
#include "platform/owned.h"

namespace host {
namespace {

template <class Native>
ffi_type* foreignType() {
  if constexpr (std::is_same_v<Native, bool>) return &ffi_type_uint8;
  if constexpr (std::is_same_v<Native, int32_t>) return &ffi_type_sint32;
  if constexpr (std::is_same_v<Native, uint32_t>) return &ffi_type_uint32;
  if constexpr (std::is_same_v<Native, int64_t>) return &ffi_type_sint64;
  if constexpr (std::is_same_v<Native, uint64_t>) return &ffi_type_uint64;
  if constexpr (std::is_same_v<Native, float>) return &ffi_type_float;
  if constexpr (std::is_same_v<Native, double>) return &ffi_type_double;
  return &ffi_type_pointer;
}

template <class Native>
uint64_t getWord(void* getter, HostObject* object, int64_t parameter) {
  const Native value = reinterpret_cast<Native (*)(HostObject*, int64_t)>(getter)(object, parameter);
  uint64_t word = 0;
  std::memcpy(&word, &value, sizeof(Native));
  return word;
}

// What depends on the C++ type behind a kind.
struct NativeRow {
  ffi_type* (*type)();
  uint64_t (*getWord)(void*, HostObject*, int64_t);
};
constexpr NativeRow nativeRows[] = {
#define HOST_KIND(name, typeName, code, size, Native) {&foreignType<Native>, &getWord<Native>},
    HOST_KINDS(HOST_KIND)
#undef HOST_KIND
};

Kind nativeKind(const Type& type) { return type.array ? Kind::Object : type.kind; }
const NativeRow& nativeRow(const Type& type) { return nativeRows[static_cast<size_t>(nativeKind(type))]; }
ffi_type* nativeType(const Type& type) { return nativeRow(type).type(); }

// A value as the function takes it: variants in their boxes.
void prepare(Value& argument, const Type& type) {
  if (type.isVariant() && !type.array) {
    argument = Value::object(boxed(argument));
  } else if (argument.kind() != type.kind || type.array || type.kind == Kind::Object) {
    argument = convert(argument, type);
  }
}

// A value that the function gave, whose reference is ours.
Value received(const Type& type, uint64_t word) {
  Value value = Value::adoptWord(nativeKind(type), word);
  return type.isVariant() && !type.array ? unboxed(value.asObject()) : value;
}

[[noreturn]] void throwUncaught(NSException* exception) {
  const auto text = [](NSString* string) {
    const char* bytes = NSString::UTF8String(string);
    return std::string(bytes != nullptr ? bytes : "");
  };
  throwException("RuntimeException", text(NSException::name(exception)) + ": " + text(NSException::reason(exception)));
}

// Runs the body, and puts a host exception in the place of a platform exception, and of memory that runs short.
template <class Body>
void guarded(Body&& body) {
  NSException* uncaught = nullptr;
  try {
    uncaught = catchException(body);
  } catch (const std::bad_alloc&) {
    throwOutOfMemory();
  }
  if (uncaught != nullptr) throwUncaught(uncaught);
}

// Puts back what the function stored by reference, also when it threw.
class References {
 public:
  References(std::span<const Parameter> parameters, std::span<Value> arguments)
      : parameters_(parameters), arguments_(arguments) {}
  References(const References&) = delete;
  References& operator=(const References&) = delete;
  ~References() {
    for (size_t index = 0; index < parameters_.size(); ++index) {
      if (taken_[index]) arguments_[index] = received(parameters_[index].type, words_[index]);
    }
  }

  void** take(size_t index) {
    words_[index] = arguments_[index].detachWord();
    taken_[index] = true;
    places_[index] = &words_[index];
    return &places_[index];
  }

 private:
  std::span<const Parameter> parameters_;
  std::span<Value> arguments_;
  bool taken_[PreparedCall::maximumParameters] = {};
  uint64_t words_[PreparedCall::maximumParameters];
  void* places_[PreparedCall::maximumParameters];
};

}  // namespace

PreparedCall::PreparedCall(const Declaration& declaration, bool takesSelf)
    : parameters_(declaration.parameters),
      result_(declaration.result.value_or(Type())),
      hasResult_(declaration.result.has_value()),
      takesSelf_(takesSelf),
      interface_(std::make_shared<Interface>()) {
  if (parameters_.size() + takesSelf_ > maximumParameters) throw DeclarationError{"there are too many parameters", 0};
  unsigned count = 0;
  if (takesSelf_) interface_->types[count++] = &ffi_type_pointer;
  for (const Parameter& parameter : parameters_) {
    interface_->types[count++] = parameter.byref ? &ffi_type_pointer : nativeType(parameter.type);
    hasReferences_ = hasReferences_ || parameter.byref;
  }
  ffi_type* resultType = hasResult_ ? nativeType(result_) : &ffi_type_void;
  ffi_prep_cif(&interface_->cif, FFI_DEFAULT_ABI, count, resultType, interface_->types.data());
}

Value PreparedCall::operator()(void* function, HostObject* self, std::span<Value> arguments) const {
  const AutoreleasePool pool;
  for (size_t index = 0; index < parameters_.size(); ++index) prepare(arguments[index], parameters_[index].type);
  return hasReferences_ ? callWithReferences(function, self, arguments) : call(function, self, arguments);
}

Value PreparedCall::call(void* function, HostObject* self, std::span<Value> arguments) const {
  uint64_t words[maximumParameters];
  void* places[maximumParameters];
  size_t count = 0;
  if (takesSelf_) places[count++] = &self;
  for (size_t index = 0; index < parameters_.size(); ++index) {
    words[index] = arguments[index].word();
    places[count++] = &words[index];
  }
  return finish(function, places);
}

Value PreparedCall::callWithReferences(void* function, HostObject* self, std::span<Value> arguments) const {
  uint64_t words[maximumParameters];
  void* places[maximumParameters];
  References references(parameters_, arguments);
  size_t count = 0;
  if (takesSelf_) places[count++] = &self;
  for (size_t index = 0; index < parameters_.size(); ++index) {
    if (parameters_[index].byref) {
      places[count++] = references.take(index);
    } else {
      words[index] = arguments[index].word();
      places[count++] = &words[index];
    }
  }
  return finish(function, places);
}

Value PreparedCall::finish(void* function, void** places) const {
  uint64_t word = 0;
  guarded([&] { ffi_call(&interface_->cif, reinterpret_cast<void (*)()>(function), &word, places); });
  Value value = hasResult_ ? received(result_, word) : Value();
  Runtime::shared().throwPendingException();
  return value;
}

Value callGetter(void* getter, const Type& type, HostObject* object, int64_t parameter) {
  const AutoreleasePool pool;
  uint64_t word = 0;
  guarded([&] { word = nativeRow(type).getWord(getter, object, parameter); });
  Value value = received(type, word);
  Runtime::shared().throwPendingException();
  return value;
}

}  // namespace host
