// Classes from records and from built-in descriptions, and their look-ups.
#include "host/runtime/class.hpp"

#include <cstring>

#include "host/runtime/builtin.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/record.hpp"

namespace host {
namespace {

const std::string constructorName = "Constructor";

std::string letterOf(const Type& type) {
  static const std::string letters[] = {
#define HOST_KIND(name, typeName, code, size, Native) SignatureOf<Native>::text(),
      HOST_KINDS(HOST_KIND)
#undef HOST_KIND
  };
  return letters[static_cast<size_t>(type.array ? Kind::Object : type.kind)];
}

std::string expectedSignature(const Declaration& declaration, bool takesSelf) {
  std::string signature = declaration.result ? letterOf(*declaration.result) : "v";
  if (takesSelf) signature += "o";
  for (const Parameter& parameter : declaration.parameters) {
    signature += (parameter.byref ? "&" : "") + letterOf(parameter.type);
  }
  return signature;
}

Declaration getterDeclaration(const Type& type) {
  return {"get", {Parameter{"parameter", typeNamed("Integer"), {}, {}, {}}}, type};
}

Declaration setterDeclaration(const Type& type) {
  return {
      "set", {Parameter{"parameter", typeNamed("Integer"), {}, {}, {}}, Parameter{"value", type, {}, {}, {}}}, std::nullopt};
}

std::string text(const char* string) { return string != nullptr ? string : ""; }

[[noreturn]] void refuse(const std::string& className, std::string_view member, const std::string& reason) {
  throw PluginError{className + ": \"" + std::string(member) + "\": " + reason};
}

void checkSignature(const std::string& className, std::string_view member, const Native& function,
                    const Declaration& declaration, bool takesSelf) {
  const std::string found = function.signature(), expected = expectedSignature(declaration, takesSelf);
  if (found != expected) refuse(className, member, "the function is " + found + ", its declaration says " + expected);
}

}  // namespace

bool Property::isDirect() const { return getter == directField; }

Value Property::read(HostObject* object) const {
  if (isDirect()) {
    uint64_t word = 0;
    std::memcpy(&word, object->data() + owner->dataOffset() + parameter, nativeSize(type.kind));
    Value borrowed = Value::adoptWord(type.kind, word);
    Value copy = borrowed;
    (void)borrowed.detachWord();
    return copy;
  }
  return callGetter(getter, type, object, parameter);
}

void Property::write(HostObject* object, const Value& value) const {
  if (isDirect()) {
    const uint64_t word = convert(value, type).detachWord();
    std::memcpy(object->data() + owner->dataOffset() + parameter, &word, nativeSize(type.kind));
    return;
  }
  Value arguments[] = {Value::integer(parameter), value};
  set(setter, object, arguments);
}

HostClass::HostClass(const BuiltinClass& description, const HostClass* superclass)
    : name_(description.name), superclass_(superclass), builtin_(&description) {
  stateOwner_ = description.state.size != 0 ? &description : superclass != nullptr ? superclass->stateOwner() : nullptr;
  layOut(description.instanceSize);
  for (const BuiltinProperty& property : description.properties) {
    const Declaration parsedProperty = parsed(property.declaration, parsePropertyDeclaration);
    checkSignature(name_, parsedProperty.name, property.getter, getterDeclaration(*parsedProperty.result), true);
    if (property.setter.address != nullptr) {
      checkSignature(name_, parsedProperty.name, property.setter, setterDeclaration(*parsedProperty.result), true);
    }
    addProperty(
        {parsedProperty.name, *parsedProperty.result, property.getter.address, property.setter.address, 0, this, {}});
  }
  const auto addChecked = [this](const BuiltinMethod& method, bool shared) {
    checkSignature(name_, method.declaration, method.function, parsed(method.declaration, parseDeclaration), !shared);
    addMethod(method.declaration, method.function.address, shared);
  };
  for (const BuiltinMethod& method : description.methods) addChecked(method, false);
  for (const BuiltinMethod& method : description.sharedMethods) addChecked(method, true);
  for (const char* constant : description.constants) addConstant(constant);
}

HostClass::HostClass(const ClassRecord& record, const HostClass* superclass)
    : name_(text(record.name)), superclass_(superclass), record_(&record) {
  if (name_.empty()) throw PluginError{"a class record has no name"};
  if (superclass != nullptr) stateOwner_ = superclass->stateOwner();
  layOut(record.instanceSize);
  for (const PropertyRecord& property : std::span(record.properties, record.propertyCount)) {
    addProperty({text(property.name),
                 typeNamed(text(property.type)),
                 property.getter,
                 property.setter,
                 property.parameter,
                 this,
                 {}});
  }
  for (const MethodRecord& method : std::span(record.methods, record.methodCount)) {
    addMethod(text(method.declaration), method.function, false);
  }
  for (const MethodRecord& method : std::span(record.sharedMethods, record.sharedMethodCount)) {
    addMethod(text(method.declaration), method.function, true);
  }
  for (const ConstantRecord& constant : std::span(record.constants, record.constantCount)) {
    addConstant(text(constant.declaration));
  }
}

// A class's own data follows its superclass's.
void HostClass::layOut(size_t ownSize) {
  dataOffset_ = superclass_ != nullptr ? superclass_->dataSize() : 0;
  dataSize_ = dataOffset_ + (ownSize + 15) / 16 * 16;
}

template <class Result>
Result HostClass::parsed(std::string_view text, Result (*parse)(std::string_view)) const {
  try {
    return parse(text);
  } catch (const DeclarationError& error) {
    refuse(name_, text, error.message + " (at character " + std::to_string(error.offset + 1) + ")");
  }
}

void HostClass::addProperty(Property property) {
  if (property.name.empty()) refuse(name_, "", "a property has no name");
  if (property.getter == nullptr) refuse(name_, property.name, "the property has no getter");
  if (!property.isDirect()) {
    property.set = PreparedCall(setterDeclaration(property.type), true);
  }
  propertyIndex_[lowerCase(property.name)].push_back(properties_.size());
  properties_.push_back(std::move(property));
}

void HostClass::addMethod(std::string_view text, void* function, bool shared) {
  if (function == nullptr) refuse(name_, text, "the method has no function");
  Method method{std::string(text), parsed(text, parseDeclaration), function, shared, this, {}};
  method.call = PreparedCall(method.declaration, !shared);
  std::vector<Method>& list = shared ? sharedMethods_ : methods_;
  NameIndex& index = shared ? sharedMethodIndex_ : methodIndex_;
  std::vector<size_t>& overloads = index[lowerCase(method.declaration.name)];
  for (const size_t other : overloads) {
    if (sameSignature(list[other].declaration, method.declaration)) refuse(name_, text, "the method is declared twice");
  }
  overloads.push_back(list.size());
  list.push_back(std::move(method));
}

void HostClass::addConstant(std::string_view text) {
  ConstantDeclaration constant = parsed(text, parseConstant);
  constantIndex_[lowerCase(constant.name)].push_back(constants_.size());
  constants_.push_back({std::string(text), constant.name, constant.value});
}

bool HostClass::isKindOf(const HostClass* other) const {
  const HostClass* walked = this;
  while (walked != nullptr && walked != other) walked = walked->superclass_;
  return walked != nullptr;
}

const Property* HostClass::findProperty(std::string_view name) const {
  const std::string wanted = lowerCase(name);
  for (const HostClass* walked = this; walked != nullptr; walked = walked->superclass_) {
    const auto found = walked->propertyIndex_.find(wanted);
    if (found != walked->propertyIndex_.end()) return &walked->properties_[found->second.front()];
  }
  return nullptr;
}

const Constant* HostClass::findConstant(std::string_view name) const {
  const std::string wanted = lowerCase(name);
  for (const HostClass* walked = this; walked != nullptr; walked = walked->superclass_) {
    const auto found = walked->constantIndex_.find(wanted);
    if (found != walked->constantIndex_.end()) return &walked->constants_[found->second.front()];
  }
  return nullptr;
}

std::vector<const Method*> HostClass::findMethods(std::string_view name) const {
  return overloads(name, &HostClass::methodIndex_, &HostClass::methods_);
}

std::vector<const Method*> HostClass::findSharedMethods(std::string_view name) const {
  return overloads(name, &HostClass::sharedMethodIndex_, &HostClass::sharedMethods_);
}

std::vector<const Method*> HostClass::overloads(std::string_view name, NameIndex HostClass::*index,
                                                std::vector<Method> HostClass::*list) const {
  std::vector<const Method*> result;
  const std::string wanted = lowerCase(name);
  for (const HostClass* walked = this; walked != nullptr; walked = walked->superclass_) {
    const auto found = (walked->*index).find(wanted);
    if (found == (walked->*index).end()) continue;
    for (const size_t position : found->second) result.push_back(&(walked->*list)[position]);
  }
  return result;
}

std::vector<const Method*> HostClass::constructors() const {
  std::vector<const Method*> found = findMethods(constructorName);
  const HostClass* nearest = found.empty() ? nullptr : found.front()->owner;
  std::erase_if(found, [nearest](const Method* method) { return method->owner != nearest; });
  return found;
}

const Method* HostClass::findMethodDeclared(const char* declaration) const {
  const auto known = declared_.find(std::string_view(declaration));
  if (known != declared_.end()) return known->second;
  const Method* found = nullptr;
  try {
    const Declaration wanted = parseDeclaration(declaration);
    for (const Method* method : findMethods(wanted.name)) {
      if (found == nullptr && sameSignature(method->declaration, wanted)) found = method;
    }
  } catch (const DeclarationError&) {
    // What cannot be read declares no method.
  }
  return declared_.emplace(declaration, found).first->second;
}

void HostClass::runConstructors(HostObject* object) const {
  if (superclass_ != nullptr) superclass_->runConstructors(object);
  if (record_ != nullptr && record_->constructor != nullptr) record_->constructor(object);
}

void HostClass::runDestructors(HostObject* object) const {
  for (const HostClass* walked = this; walked != nullptr; walked = walked->superclass_) {
    if (walked->record_ != nullptr && walked->record_->destructor != nullptr) walked->record_->destructor(object);
  }
}

}  // namespace host
