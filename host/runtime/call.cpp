// Native calls through libffi.
#include "host/runtime/call.hpp"

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

ffi_type* nativeType(const Type& type) {
  if (type.array) return &ffi_type_pointer;
  switch (type.kind) {
    case Kind::Boolean:
      return &ffi_type_uint8;
    case Kind::Int32:
      return &ffi_type_sint32;
    case Kind::UInt32:
      return &ffi_type_uint32;
    case Kind::Integer:
    case Kind::Color:
      return &ffi_type_sint64;
    case Kind::UInt64:
      return &ffi_type_uint64;
    case Kind::Single:
      return &ffi_type_float;
    case Kind::Double:
    case Kind::Currency:
      return &ffi_type_double;
    default:
      return &ffi_type_pointer;
  }
}

Kind nativeKind(const Type& type) { return type.array ? Kind::Object : type.kind; }

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

struct PreparedCall::Slot {
  uint64_t word = 0;
};

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

void PreparedCall::run(void* function, void** arguments, Slot& result) const {
  NSException* uncaught =
      catchException([&] { ffi_call(&interface_->cif, reinterpret_cast<void (*)()>(function), &result, arguments); });
  if (uncaught != nullptr) throwUncaught(uncaught);
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
  Slot result;
  run(function, places, result);
  Value value = hasResult_ ? received(result_, result.word) : Value();
  Runtime::shared().throwPendingException();
  return value;
}

}  // namespace host
