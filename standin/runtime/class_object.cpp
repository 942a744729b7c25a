// Classes: the table of them by name, linking, methods and method caches.
#include "standin/runtime/class_object.hpp"

#include <cstring>
#include <stdexcept>
#include <string_view>

namespace standin {
namespace {

// Made on first use, because definitions in other files register themselves while static objects are being made.
struct ClassTable {
  std::unordered_map<std::string_view, ClassObject*> byName;
  std::vector<ClassObject*> all;
  // Methods waiting for a class that no file has defined yet.
  struct Waiting {
    const char* selector;
    RawFunction function;
    bool onMetaclass;
  };
  std::unordered_map<std::string_view, std::vector<Waiting>> waiting;
};

ClassTable& table() {
  static ClassTable* const classes = new ClassTable;
  return *classes;
}

void forgetCaches() {
  for (ClassObject* cls : allClasses()) {
    cls->cache.clear();
    cls->metaclass()->cache.clear();
  }
}

void registerPending(ClassObject* cls) {
  for (const auto& [selector, function] : cls->pendingMethods) cls->methods.emplace(sel_registerName(selector), function);
  cls->pendingMethods.clear();
}

// The root class is its own metaclass' superclass, so that class objects answer what every object answers.
void linkMetaclass(ClassObject* cls) {
  ClassObject* meta = cls->metaclass();
  meta->superclass = cls->superclass != nullptr ? cls->superclass->metaclass() : cls;
  meta->isa = cls->superclass != nullptr ? cls->superclass->metaclass()->isa : meta;
  meta->isLinked = true;
  registerPending(meta);
}

void defineMethod(ClassObject* cls, const char* selector, RawFunction function) {
  if (cls->isLinked) {
    addMethod(cls, sel_registerName(selector), function);
  } else {
    cls->pendingMethods.emplace_back(selector, function);
  }
}

}  // namespace

CachedMethod MethodCache::empty_[1] = {};

void MethodCache::insert(SEL selector, RawFunction function) {
  if (used_ * 2 >= mask_) grow();
  size_t slot = slotOf(selector);
  while (slots_[slot].selector != nullptr && slots_[slot].selector != selector) slot = (slot + 1) & mask_;
  if (slots_[slot].selector == nullptr) ++used_;
  slots_[slot] = {selector, function};
}

void MethodCache::clear() {
  if (slots_ == empty_) return;
  std::memset(slots_, 0, (mask_ + 1) * sizeof *slots_);
  used_ = 0;
}

void MethodCache::grow() {
  MethodCache larger;
  larger.mask_ = slots_ == empty_ ? 15 : mask_ * 2 + 1;
  larger.slots_ = new CachedMethod[larger.mask_ + 1]();
  for (size_t slot = 0; slots_ != empty_ && slot <= mask_; ++slot) {
    if (slots_[slot].selector != nullptr) larger.insert(slots_[slot].selector, slots_[slot].function);
  }
  if (slots_ != empty_) delete[] slots_;
  slots_ = larger.slots_;
  mask_ = larger.mask_;
  larger.slots_ = empty_;
}

ClassObject* makeClass(const char* name, const char* superclassName, InstanceLayout layout) {
  auto* cls = new ClassObject;
  auto* meta = new ClassObject;
  for (ClassObject* part : {cls, meta}) {
    part->name = name;
    part->references = -1;
    part->superclassName = superclassName;
  }
  meta->isMetaclass = true;
  cls->isa = meta;
  cls->layout = layout;
  return cls;
}

void registerClass(ClassObject* cls) {
  ClassTable& classes = table();
  if (!classes.byName.emplace(cls->name, cls).second)
    throw std::logic_error(std::string("class defined twice: ") + cls->name);
  classes.all.push_back(cls);
  if (const auto found = classes.waiting.find(cls->name); found != classes.waiting.end()) {
    for (const auto& method : found->second) {
      defineMethod(method.onMetaclass ? cls->metaclass() : cls, method.selector, method.function);
    }
    classes.waiting.erase(found);
  }
}

void link(ClassObject* cls) {
  if (cls->isLinked) return;
  if (cls->superclassName != nullptr) {
    cls->superclass = findClass(cls->superclassName);
    if (cls->superclass == nullptr) throw std::logic_error(std::string("no superclass ") + cls->superclassName);
  }
  cls->isLinked = true;
  registerPending(cls);
  linkMetaclass(cls);
}

ClassObject* findClass(std::string_view name) {
  const auto found = table().byName.find(name);
  if (found == table().byName.end()) return nullptr;
  link(found->second);
  return found->second;
}

RawFunction findMethod(ClassObject* cls, SEL selector) {
  for (; cls != nullptr; cls = cls->superclass) {
    if (const auto found = cls->methods.find(selector); found != cls->methods.end()) return found->second;
  }
  return nullptr;
}

bool addMethod(ClassObject* cls, SEL selector, RawFunction function) {
  if (!cls->methods.emplace(selector, function).second) return false;
  forgetCaches();
  return true;
}

RawFunction replaceMethod(ClassObject* cls, SEL selector, RawFunction function) {
  const RawFunction before = std::exchange(cls->methods[selector], function);
  forgetCaches();
  return before;
}

const std::vector<ClassObject*>& allClasses() { return table().all; }

ClassDefinition::ClassDefinition(const char* name, const char* superclass, InstanceLayout layout)
    : class_(makeClass(name, superclass, layout)) {
  registerClass(class_);
}

ClassDefinition& ClassDefinition::allocatesAs(const ClassDefinition& concrete) {
  class_->allocatesAs = concrete.object();
  return *this;
}

ClassDefinition& ClassDefinition::addMethod(const char* selector, RawFunction function) {
  defineMethod(class_, selector, function);
  return *this;
}

ClassDefinition& ClassDefinition::addClassMethod(const char* selector, RawFunction function) {
  defineMethod(class_->metaclass(), selector, function);
  return *this;
}

Category& Category::add(const char* selector, RawFunction function, bool onMetaclass) {
  const auto found = table().byName.find(className_);
  if (found == table().byName.end()) {
    table().waiting[className_].push_back({selector, function, onMetaclass});
  } else {
    defineMethod(onMetaclass ? found->second->metaclass() : found->second, selector, function);
  }
  return *this;
}

}  // namespace standin
