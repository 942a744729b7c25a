// The table of members and the values that go with it.
#include "tests/library/member_matrix.hpp"

#include "host/runtime/dictionary.hpp"
#include "html/state.hpp"

namespace member_matrix {
namespace {

using host::Kind;

constexpr const char* classNames[] = {"NSAttributedStringZKT", "NSMutableAttributedStringZKT", "NSTextAttachmentZKT",
                                      "NSFileWrapperZKT", "NSShadowZKT"};
// What calls may raise: the library's own refusals, the platform's, and the host's.
const std::set<std::string> documented = {"NilObjectException",   "OutOfMemoryException", "IllegalCastException",
                                          "NSExceptionZKT",       "OutOfBoundsException", "TypeMismatchException",
                                          "KeyNotFoundException", "RuntimeException"};
std::vector<Target> targetsOf(const host::HostClass& type) {
  std::vector<Target> targets;
  for (const host::Property& property : type.properties()) {
    targets.push_back({&type, nullptr, &property});
    if (!property.isReadOnly() && !property.isDirect()) targets.push_back({&type, nullptr, &property, true});
  }
  for (const host::Method& method : type.methods()) targets.push_back({&type, &method, nullptr});
  // Of the shared methods, the constants of keys are one function over one table: the first few stand for all.
  int constants = 0;
  for (const host::Method& method : type.sharedMethods()) {
    const bool isConstant = method.declaration.parameters.empty();
    if (!isConstant || ++constants <= 4) targets.push_back({&type, &method, nullptr});
  }
  return targets;
}

Value attributeDictionary() {
  Value made = Value::object(host::makeDictionary());
  host::setDictionaryValue(made.asObject(), Value::string("NSKern"), Value::number(1.5));
  host::setDictionaryValue(made.asObject(), Value::string("NSLink"), Value::string("x:y"));
  return made;
}

}  // namespace

std::string Target::name() const {
  return type->name() + "." + (method != nullptr ? method->text : property->name + (writes ? " (set)" : ""));
}

std::vector<host::Type> Target::parameters() const {
  std::vector<host::Type> types;
  if (writes) types.push_back(property->type);
  if (method == nullptr) return types;
  for (const host::Parameter& parameter : method->declaration.parameters) types.push_back(parameter.type);
  return types;
}

std::vector<Target> allTargets() {
  std::vector<Target> targets;
  for (const char* name : classNames) {
    for (const Target& target : targetsOf(*host::Runtime::shared().findClass(name))) targets.push_back(target);
  }
  return targets;
}

Arguments::Arguments()
    : text(calls::html("<b>full</b> <a href=\"x:y\">text</a>")),
      wrapper(calls::callShared("NSFileWrapperZKT", "initRegularFileWithContents(data as MemoryBlock) as NSFileWrapperZKT",
                                {calls::bytes("contents")})),
      attributes(attributeDictionary()),
      rtf(calls::call(text, "rtf as memoryblock")) {}

Value Arguments::plain(const host::Type& type) const {
  const std::string name = host::lowerCase(type.name);
  if (type.kind == Kind::Boolean) return Value::boolean(true);
  if (type.kind == Kind::String) return Value::string("NSFont");
  if (type.kind == Kind::Double) return Value::number(2);
  if (type.kind == Kind::Single) return Value::single(2);
  if (type.kind == Kind::UInt64 || type.kind == Kind::UInt32) return Value::unsignedInteger(1, type.kind);
  if (type.kind != Kind::Object) return Value::integer(1, type.kind);
  if (name == "memoryblock") return rtf;
  if (name == "dictionary") return attributes;
  if (name == "variant") return Value::string("value");
  if (name == "nsrangezkt") return calls::range(1, 2);
  if (name == "nssizezkt") return calls::structure("NSSizeZKT", 3.0, -3.0);
  if (name == "nsattributedstringzkt") return text;
  if (name == "nsfilewrapperzkt") return wrapper;
  return {};
}

Value Arguments::empty(const host::Type& type) {
  if (type.kind == Kind::String) return Value::string("");
  return type.kind == Kind::Object ? Value() : Value::integer(0, type.kind);
}

Value objectFor(const Target& target, bool full, const Arguments& arguments) {
  Value made = calls::make(target.type->name());
  if (!full) return made;
  const std::string& name = target.type->name();
  if (name == "NSAttributedStringZKT" || name == "NSMutableAttributedStringZKT") {
    calls::call(made, "initWithAttributedString(text as NSAttributedStringZKT) as boolean", {arguments.text});
  } else if (name == "NSFileWrapperZKT") {
    return calls::callShared("NSFileWrapperZKT", "initRegularFileWithContents(data as MemoryBlock) as NSFileWrapperZKT",
                             {calls::bytes("own contents")});
  } else if (name == "NSTextAttachmentZKT") {
    calls::call(made, "Constructor(fileWrapper as NSFileWrapperZKT)", {arguments.wrapper});
  } else {
    calls::call(made, "Constructor");
  }
  return made;
}

void invoke(const Target& target, const Value& object, std::vector<Value>& values) {
  try {
    if (target.method != nullptr) {
      target.method->invoke(target.isInstance() ? object.asObject() : nullptr, values);
    } else if (target.writes) {
      target.property->write(object.asObject(), values[0]);
    } else {
      target.property->read(object.asObject());
    }
  } catch (const host::HostException& exception) {
    EXPECT_TRUE(documented.contains(exception.className()))
        << target.name() << " raised " << exception.className() << ": " << exception.message();
  }
}

void settle() {
  html::hold(html::cachedAttributes, Owned<NSDictionary>());
  html::hold(html::fontDirectiveStack, Owned<NSMutableArray>());
}

}  // namespace member_matrix
