// The runtime's C functions: selectors, classes by name, methods and classes added at run time, message lookup.
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "standin/runtime/class_object.hpp"
#include "standin/runtime/exception.hpp"

// Selectors are spaced so that the method caches, which hash addresses, spread them.
struct alignas(32) objc_selector {
  std::string name;
};

struct objc_ivar {
  ptrdiff_t offset;
};

namespace standin {
namespace {

struct SelectorTable {
  std::deque<objc_selector> selectors;
  std::unordered_map<std::string_view, SEL> byName;
};

SelectorTable& selectors() {
  static SelectorTable* const table = new SelectorTable;
  return *table;
}

ClassObject* classObject(Class cls) { return reinterpret_cast<ClassObject*>(cls); }
Class platformClass(ClassObject* cls) { return reinterpret_cast<Class>(cls); }
ClassObject* classOfObject(id object) { return reinterpret_cast<Object*>(object)->isa; }

// Slow path of a lookup: the first message of its kind to the class, or one that nothing answers.
RawFunction resolve(id receiver, SEL selector) {
  ClassObject* cls = classOfObject(receiver);
  link(cls->isMetaclass ? reinterpret_cast<ClassObject*>(receiver) : cls);
  const RawFunction function = findMethod(cls, selector);
  if (function == nullptr) {
    raise(NSInvalidArgumentException, describeMethod(receiver, sel_getName(selector)) + ": unrecognized selector");
  }
  cls->cache.insert(selector, function);
  return function;
}

size_t alignedUp(size_t value, size_t alignment) { return (value + alignment - 1) / alignment * alignment; }

}  // namespace

std::string describeMethod(NSObject* receiver, const char* selector) {
  const ClassObject* cls = classOfObject(receiver);
  return std::string(cls->isMetaclass ? "+[" : "-[") + cls->name + " " + selector + "]";
}

}  // namespace standin

using namespace standin;

extern "C" {

SEL sel_registerName(const char* name) {
  SelectorTable& table = selectors();
  if (const auto found = table.byName.find(name); found != table.byName.end()) return found->second;
  objc_selector& made = table.selectors.emplace_back(objc_selector{name});
  table.byName.emplace(made.name, &made);
  return &made;
}

const char* sel_getName(SEL selector) { return selector->name.c_str(); }

Class objc_getClass(const char* name) { return name != nullptr ? platformClass(findClass(name)) : nullptr; }

Class object_getClass(id object) { return object != nullptr ? platformClass(classOfObject(object)) : nullptr; }

const char* object_getClassName(id object) { return object != nullptr ? classOfObject(object)->name : "nil"; }

const char* class_getName(Class cls) { return cls != nullptr ? classObject(cls)->name : "nil"; }

Class class_getSuperclass(Class cls) {
  if (cls == nullptr) return nullptr;
  if (!classObject(cls)->isMetaclass) link(classObject(cls));
  return platformClass(classObject(cls)->superclass);
}

BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char*) {
  if (cls == nullptr || selector == nullptr || implementation == nullptr) return NO;
  if (!classObject(cls)->isMetaclass) link(classObject(cls));
  return addMethod(classObject(cls), selector, implementation) ? YES : NO;
}

IMP class_replaceMethod(Class cls, SEL selector, IMP implementation, const char*) {
  if (cls == nullptr || selector == nullptr || implementation == nullptr) return nullptr;
  if (!classObject(cls)->isMetaclass) link(classObject(cls));
  return replaceMethod(classObject(cls), selector, implementation);
}

IMP class_getMethodImplementation(Class cls, SEL selector) {
  if (cls == nullptr || selector == nullptr) return nullptr;
  if (!classObject(cls)->isMetaclass) link(classObject(cls));
  return findMethod(classObject(cls), selector);
}

BOOL class_addIvar(Class cls, const char* name, size_t size, uint8_t alignmentBits, const char*) {
  ClassObject* target = classObject(cls);
  if (target == nullptr || target->liveInstances > 0 || class_getInstanceVariable(cls, name) != nullptr) return NO;
  const size_t offset = alignedUp(target->layout.size + target->extraBytes, size_t{1} << alignmentBits);
  target->variables.push_back({name, static_cast<ptrdiff_t>(offset)});
  target->extraBytes = offset + size - target->layout.size;
  return YES;
}

Ivar class_getInstanceVariable(Class cls, const char* name) {
  for (ClassObject* owner = classObject(cls); owner != nullptr; owner = owner->superclass) {
    for (InstanceVariable& variable : owner->variables) {
      if (variable.name == name) return reinterpret_cast<Ivar>(&variable.offset);
    }
  }
  return nullptr;
}

ptrdiff_t ivar_getOffset(Ivar ivar) { return ivar->offset; }

Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes) {
  if (superclass == nullptr || name == nullptr || findClass(name) != nullptr) return nullptr;
  ClassObject* parent = classObject(superclass);
  link(parent);
  ClassObject* made = makeClass(strdup(name), parent->name, parent->layout);
  made->extraBytes = parent->extraBytes + extraBytes;
  link(made);
  return platformClass(made);
}

void objc_registerClassPair(Class cls) { registerClass(classObject(cls)); }

IMP objc_msg_lookup(id receiver, SEL selector) {
  const RawFunction cached = classOfObject(receiver)->cache.find(selector);
  return cached != nullptr ? cached : resolve(receiver, selector);
}
}
