// Finds members and chooses among overloads.
#include "host/language/dispatch.hpp"

#include <optional>

#include "host/language/builtins.hpp"
#include "host/language/conversion.hpp"
#include "host/runtime/variant.hpp"

namespace language {

using host::HostClass;
using host::Method;

namespace {

[[noreturn]] void throwNoMember(const std::string& owner, const std::string& name) {
  host::throwException("TypeMismatchException", owner + " has no member \"" + name + "\".");
}

[[noreturn]] void throwNoOverload(const std::string& owner, const std::string& name) {
  host::throwException("TypeMismatchException", "No \"" + name + "\" of " + owner + " takes these arguments.");
}

}  // namespace

MemberCall::MemberCall(std::string name) : name_(std::move(name)), foldedName_(host::lowerCase(name_)) {}

Value MemberCall::read(Frame& frame, const Value& receiver, const Expressions& arguments) const {
  HostObject* const object = receiver.asObject();
  if (object == nullptr) return readBuiltin(frame, receiver, arguments);
  if (!arguments.empty()) return callMethod(frame, receiver, arguments);
  if (propertyClass_ != object->type) {
    propertyClass_ = object->type;
    property_ = object->type->findProperty(name_);
  }
  if (property_ == nullptr) return callMethod(frame, receiver, arguments);
  resultType_ = &property_->type;
  return property_->read(object);
}

// Members of strings, numbers and the like; everything else has those of a Variant.
Value MemberCall::readBuiltin(Frame& frame, const Value& receiver, const Expressions& arguments) const {
  if (receiver.isNil()) host::throwNilObject("What \"" + name_ + "\" is asked of");
  if (const Builtin* builtin = findBuiltin(receiverOf(receiver), foldedName_)) {
    return callBuiltin(frame, *builtin, &receiver, arguments);
  }
  const HostOwned<HostObject> variant = host::boxed(receiver);
  return read(frame, Value::object(variant), arguments);
}

Value MemberCall::callMethod(Frame& frame, const Value& receiver, const Expressions& expressions) const {
  HostObject* const object = receiver.asObject();
  if (builtinClass_ != object->type) {
    builtinClass_ = object->type;
    builtin_ = findBuiltin(receiverOf(receiver), foldedName_);
  }
  if (builtin_ != nullptr) return callBuiltin(frame, *builtin_, &receiver, expressions);
  Arguments arguments(frame, expressions);
  if (!reading_.suits(object->type, arguments)) {
    const std::vector<const Method*> candidates = object->type->findMethods(name_);
    if (candidates.empty()) throwNoMember(object->type->name(), name_);
    if (!reading_.choose(object->type, candidates, arguments)) throwNoOverload(object->type->name(), name_);
  }
  const auto& result = reading_.method()->declaration.result;
  resultType_ = result ? &*result : nullptr;
  return reading_.invoke(frame, object, arguments);
}

void MemberCall::write(Frame& frame, const Value& receiver, const Expressions& expressions, Value value) const {
  HostObject* const object = receiver.asObject();
  if (object == nullptr) host::throwNilObject("What \"" + name_ + "\" is assigned to");
  if (expressions.empty()) {
    if (const host::Property* property = object->type->findProperty(name_)) {
      if (property->isReadOnly()) {
        host::throwException("TypeMismatchException",
                             "\"" + name_ + "\" of " + object->type->name() + " cannot be assigned.");
      }
      return property->write(object, value);
    }
  }
  Arguments arguments(frame, expressions);
  arguments.add(std::move(value));
  if (!writing_.suits(object->type, arguments)) {
    std::vector<const Method*> candidates = object->type->findMethods(name_);
    std::erase_if(candidates, [](const Method* method) {
      const auto& parameters = method->declaration.parameters;
      return parameters.empty() || !parameters.back().assigns;
    });
    if (candidates.empty()) throwNoMember(object->type->name(), name_);
    if (!writing_.choose(object->type, candidates, arguments)) throwNoOverload(object->type->name(), name_);
  }
  writing_.invoke(frame, object, arguments);
}

Value SharedCall::read(Frame& frame, const Expressions& expressions) const {
  if (constant_ != nullptr) return constant_->value;
  Arguments arguments(frame, expressions);
  if (!overload_.suits(nullptr, arguments)) {
    const HostClass* type = className_.empty() ? nullptr : frame.context.runtime.findClass(className_);
    if (type != nullptr && expressions.empty()) constant_ = type->findConstant(name_);
    if (constant_ != nullptr) return constant_->value;
    const std::vector<const Method*> candidates =
        type == nullptr ? frame.context.runtime.findGlobalMethods(name_) : type->findSharedMethods(name_);
    if (candidates.empty()) throwNoMember(className_, name_);
    if (!overload_.choose(nullptr, candidates, arguments))
      throwNoOverload(className_.empty() ? "the host" : className_, name_);
  }
  return overload_.invoke(frame, nullptr, arguments);
}

Value Creation::make(Frame& frame, const Expressions& expressions) const {
  HostOwned<HostObject> object = frame.context.runtime.newInstance(className_);
  if (!object) host::throwException("TypeMismatchException", "There are no instances of " + className_ + ".");
  Arguments arguments(frame, expressions);
  if (!overload_.suits(object->type, arguments)) {
    const std::vector<const Method*> candidates = object->type->constructors();
    if (!overload_.choose(object->type, candidates, arguments)) {
      if (expressions.empty()) return Value::object(std::move(object));
      throwNoOverload(className_, "Constructor");
    }
  }
  overload_.invoke(frame, object, arguments);
  return Value::object(std::move(object));
}

}  // namespace language
