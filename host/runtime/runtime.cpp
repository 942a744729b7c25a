// The runtime: start-up, plug-ins, classes and accounts.
#include "host/runtime/runtime.hpp"

#include <dlfcn.h>

#include <algorithm>

#include "host/runtime/builtin.hpp"
#include "host/runtime/record.hpp"
#include "host/runtime/service.hpp"
#include "host/runtime/string.hpp"

namespace host {
namespace {

constexpr char entryPointName[] = "REALPluginMain";
constexpr char versionService[] = "REALGetRBVersion";

template <class Item, class Describe>
void describeItems(std::string& text, const LiveList<Item>& list, size_t maximum, Describe describe) {
  std::vector<const Item*> oldestFirst;
  for (const Item* item = list.first(); item != nullptr; item = item->next) oldestFirst.push_back(item);
  std::reverse(oldestFirst.begin(), oldestFirst.end());
  const size_t shown = std::min(maximum, oldestFirst.size());
  for (size_t index = 0; index < shown; ++index) text += describe(*oldestFirst[index]) + "\n";
  if (shown < oldestFirst.size()) text += "and " + std::to_string(oldestFirst.size() - shown) + " more\n";
}

std::string describeBytes(const char* sort, std::string_view bytes, int64_t references) {
  constexpr size_t shown = 60;
  return std::string(sort) + " \"" + std::string(bytes.substr(0, shown)) + (bytes.size() > shown ? "...\", " : "\", ") +
         std::to_string(references) + (references == 1 ? " reference" : " references");
}

}  // namespace

// Runs to the end of the process: objects may outlive every other static value.
Runtime& Runtime::shared() {
  static Runtime& runtime = *new Runtime;
  return runtime;
}

Runtime::Runtime() {
  for (const BuiltinClass* description : builtinClasses()) registerClass(*description);
  for (const BuiltinMethod& method : builtinGlobalMethods()) {
    Method global{method.declaration, parseDeclaration(method.declaration), method.function.address, true, nullptr, {}};
    global.call = PreparedCall(global.declaration, false);
    globalMethods_.push_back(std::move(global));
  }
}

void Runtime::loadPlugin(const std::string& path) {
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw PluginError{dlerror()};
  void* entryPoint = dlsym(library, entryPointName);
  if (entryPoint == nullptr) throw PluginError{path + ": there is no " + entryPointName};
  startPlugin(reinterpret_cast<PluginMain>(entryPoint));
}

void Runtime::startPlugin(PluginMain entryPoint) {
  registrationError_.reset();
  entryPoint(&Runtime::resolve);
  if (registrationError_) throw *std::exchange(registrationError_, std::nullopt);
}

void* Runtime::resolve(const char* name) {
  Runtime& runtime = shared();
  if (!runtime.faults_.countLookup(name)) return nullptr;
  if (!runtime.version_ && std::string_view(name) == versionService) return nullptr;
  const Service* service = findService(name);
  return service != nullptr ? service->function : nullptr;
}

const HostClass* Runtime::findClass(std::string_view name) const {
  const auto exact = classesByName_.find(name);
  if (exact != classesByName_.end()) return exact->second;
  const auto folded = classesByName_.find(lowerCase(name));
  return folded != classesByName_.end() ? folded->second : nullptr;
}

const HostClass& Runtime::add(std::unique_ptr<HostClass> added) {
  const HostClass* known = findClass(added->name());
  if (known != nullptr) throw PluginError{"the class " + added->name() + " is there already"};
  // Found by the name as declared without folding it first.
  classesByName_[added->name()] = added.get();
  classesByName_[lowerCase(added->name())] = added.get();
  classes_.push_back(std::move(added));
  return *classes_.back();
}

template <class Description>
const HostClass& Runtime::define(const Description& description, const char* superclassName) {
  const HostClass* superclass = superclassName != nullptr ? findClass(superclassName) : nullptr;
  if (superclassName != nullptr && superclass == nullptr) {
    throw PluginError{std::string(description.name) + ": there is no superclass " + superclassName};
  }
  return add(std::make_unique<HostClass>(description, superclass));
}

const HostClass& Runtime::registerClass(const ClassRecord& record) { return define(record, record.superclass); }
const HostClass& Runtime::registerClass(const BuiltinClass& description) {
  return define(description, description.superclass);
}

void registerClassFromPlugin(ClassRecord* record) {
  Runtime& runtime = Runtime::shared();
  try {
    runtime.registerClass(*record);
  } catch (const PluginError& error) {
    if (!runtime.registrationError_) runtime.registrationError_ = error;
  }
}

HostOwned<HostObject> Runtime::newInstance(std::string_view className) {
  const HostClass* type = findClass(className);
  return type != nullptr ? HostObject::make(*type) : nullptr;
}

std::vector<const Method*> Runtime::findGlobalMethods(std::string_view name) const {
  std::vector<const Method*> found;
  for (const Method& method : globalMethods_) {
    if (equalNames(method.declaration.name, name)) found.push_back(&method);
  }
  return found;
}

const Method* Runtime::findGlobalMethodDeclared(std::string_view declaration) const {
  try {
    const Declaration wanted = parseDeclaration(declaration);
    for (const Method* method : findGlobalMethods(wanted.name)) {
      if (sameSignature(method->declaration, wanted)) return method;
    }
  } catch (const DeclarationError&) {
    // What cannot be read declares no method.
  }
  return nullptr;
}

void Runtime::raise(HostObject* exception) {
  if (!pending_) pending_ = retain(exception);
}

LiveCounts Runtime::live() const {
  return {HostObject::live().count(), HostString::live().count(), HostText::live().count()};
}

std::string Runtime::describeLive(size_t maximum) const {
  std::string text;
  describeItems(text, HostObject::live(), maximum, [](const HostObject& object) { return describe(object); });
  describeItems(text, HostString::live(), maximum,
                [](const HostString& string) { return describeBytes("string", string.bytes(), string.references); });
  describeItems(text, HostText::live(), maximum,
                [](const HostText& item) { return describeBytes("text", item.bytes(), item.references); });
  return text;
}

}  // namespace host
