// Members looked up by the types that the text tells.
#include "host/language/diagnosis.hpp"

#include <algorithm>

#include "host/language/builtins.hpp"

namespace language {
namespace {

using host::HostClass;
using host::Method;

constexpr char variantName[] = "Variant", folderItemName[] = "FolderItem";

std::string counted(size_t arguments) { return std::to_string(arguments) + (arguments == 1 ? " argument" : " arguments"); }

SyntaxError noMember(const std::string& owner, const Token& name) {
  return {name.position, owner + " has no member \"" + name.text + "\""};
}

SyntaxError noOverload(const std::string& owner, const std::string& name, Position position, size_t arguments) {
  return {position, "No \"" + name + "\" of " + owner + " takes " + counted(arguments)};
}

// As a call, or as the target of an assignment, whose right side is the last parameter's.
bool takes(const Method& method, size_t arguments) {
  const auto& parameters = method.declaration.parameters;
  const auto assigned = static_cast<size_t>(
      std::count_if(parameters.begin(), parameters.end(), [](const auto& parameter) { return parameter.assigns; }));
  const size_t given = arguments + assigned;
  return given >= method.declaration.requiredParameters() && given <= parameters.size();
}

bool anyTakes(const std::vector<const Method*>& methods, size_t arguments) {
  return std::any_of(methods.begin(), methods.end(), [=](const Method* method) { return takes(*method, arguments); });
}

Receiver receiverFor(const Type& type) {
  if (type.array) return OfArray;
  if (type.kind == Kind::String || type.kind == Kind::Text) return OfString;
  if (type.kind != Kind::Object) return OfNumber;
  return host::equalNames(type.name, folderItemName) ? OfFolderItem : OfNothing;
}

}  // namespace

const Type* Diagnosis::member(const Type* receiver, const Token& name, size_t arguments) {
  if (receiver == nullptr || receiver->isVariant() || builtinMember(*receiver, name, arguments)) return nullptr;
  if (receiver->array) return note(noMember(host::describe(*receiver), name)), nullptr;
  // What is no object has the members of a variant.
  const HostClass* type = runtime_.findClass(receiver->kind == Kind::Object ? receiver->name : variantName);
  return type == nullptr ? nullptr : objectMember(*type, host::describe(*receiver), name, arguments);
}

bool Diagnosis::builtinMember(const Type& receiver, const Token& name, size_t arguments) {
  const Receiver kind = receiverFor(receiver);
  const Builtin* builtin = kind == OfNothing ? nullptr : findBuiltin(kind, name.folded);
  if (builtin == nullptr) return false;
  if (arguments + 1 < builtin->minimum || arguments + 1 > builtin->maximum)
    note(noOverload(host::describe(receiver), name.text, name.position, arguments));
  return true;
}

// A variable may hold an object of any class derived from its own, with members that this one lacks.
const Type* Diagnosis::objectMember(const HostClass& type, const std::string& owner, const Token& name, size_t arguments) {
  Methods methods;
  for (const auto& possible : runtime_.classes()) {
    if (!possible->isKindOf(&type)) continue;
    if (const host::Property* property = possible->findProperty(name.text)) return &property->type;
    const Methods found = possible->findMethods(name.text);
    methods.insert(methods.end(), found.begin(), found.end());
  }
  return resultOf(owner, methods, name, arguments);
}

// The type that all of them have.
const Type* Diagnosis::resultOf(const std::string& owner, const Methods& methods, const Token& name, size_t arguments) {
  if (methods.empty()) return note(noMember(owner, name)), nullptr;
  if (!anyTakes(methods, arguments)) note(noOverload(owner, name.text, name.position, arguments));
  const auto& first = methods.front()->declaration.result;
  const bool isOne =
      std::all_of(methods.begin(), methods.end(), [&](const Method* method) { return method->declaration.result == first; });
  return isOne && first ? &*first : nullptr;
}

const Type* Diagnosis::sharedMember(const std::string& className, const Token& name, size_t arguments) {
  const HostClass* type = runtime_.findClass(className);
  if (type == nullptr) return nullptr;
  if (const host::Constant* constant = type->findConstant(name.text)) {
    return keep(host::typeNamed(host::typeName(constant->value.kind())));
  }
  return resultOf(type->name(), type->findSharedMethods(name.text), name, arguments);
}

const Type* Diagnosis::creation(const std::string& className, Position position, size_t arguments) {
  const HostClass* type = runtime_.findClass(className);
  if (type != nullptr && arguments > 0 && !anyTakes(type->constructors(), arguments))
    note(noOverload(type->name(), "Constructor", position, arguments));
  return keep(host::typeNamed(className));
}

}  // namespace language
