// The class object: methods, the method cache that lookups probe, and the layout of instances.
#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standin/runtime/class_definition.hpp"

namespace standin {

struct CachedMethod {
  SEL selector;
  RawFunction function;
};

// An open-addressed table of the methods that a class has answered so far, its superclasses' among them. The capacity is
// a power of two and the table is never full, so that a probe ends.
class MethodCache {
 public:
  RawFunction find(SEL selector) const {
    for (size_t slot = slotOf(selector);; slot = (slot + 1) & mask_) {
      if (slots_[slot].selector == selector) return slots_[slot].function;
      if (slots_[slot].selector == nullptr) return nullptr;
    }
  }
  void insert(SEL selector, RawFunction function);
  void clear();

 private:
  size_t slotOf(SEL selector) const { return (reinterpret_cast<uintptr_t>(selector) >> 5) & mask_; }
  void grow();

  static CachedMethod empty_[1];
  CachedMethod* slots_ = empty_;
  size_t mask_ = 0;
  size_t used_ = 0;
};

struct InstanceVariable {
  std::string name;
  ptrdiff_t offset;
};

struct ClassObject : Object {
  ClassObject* superclass = nullptr;
  MethodCache cache;
  const char* name = nullptr;
  const char* superclassName = nullptr;
  ClassObject* allocatesAs = nullptr;
  InstanceLayout layout;
  size_t extraBytes = 0;  // behind the state: instance variables added at run time
  long liveInstances = 0;
  bool isMetaclass = false;
  bool isLinked = false;
  std::vector<std::pair<const char*, RawFunction>> pendingMethods;  // not yet registered selectors
  std::unordered_map<SEL, RawFunction> methods;
  std::vector<InstanceVariable> variables;

  ClassObject* metaclass() const { return isa; }
};

// Links the class to its superclass and registers its methods, once.
void link(ClassObject* cls);
// The class of that name, linked, or nil.
ClassObject* findClass(std::string_view name);
// A new class and its metaclass, known by name once `registerClass` was called.
ClassObject* makeClass(const char* name, const char* superclassName, InstanceLayout layout);
void registerClass(ClassObject* cls);
// The method of the class or of the nearest superclass that has one, or nil.
RawFunction findMethod(ClassObject* cls, SEL selector);
// False when the class itself has a method of that selector already; forgets what caches hold otherwise.
bool addMethod(ClassObject* cls, SEL selector, RawFunction function);
// The class's own method of that selector is this one from now on. Answers the one before, nil for none.
RawFunction replaceMethod(ClassObject* cls, SEL selector, RawFunction function);
// Every class known, for accounting.
const std::vector<ClassObject*>& allClasses();

}  // namespace standin
