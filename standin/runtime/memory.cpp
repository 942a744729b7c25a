// Instances: allocation, reference counts, autorelease pools, and the count of what is alive.
#include <cstdlib>
#include <cstring>
#include <map>
#include <new>
#include <string>
#include <vector>

#include "standin/runtime/accounting.hpp"
#include "standin/runtime/class_object.hpp"

namespace standin {
namespace {

long live = 0;

// The objects that pools will release, innermost pool last. A pool is the count of entries before it.
std::vector<NSObject*>& pooled() {
  static std::vector<NSObject*>* const objects = new std::vector<NSObject*>;
  return *objects;
}

void drainTo(size_t mark) {
  std::vector<NSObject*>& objects = pooled();
  while (objects.size() > mark) {
    NSObject* object = objects.back();
    objects.pop_back();
    releaseObject(object);
  }
}

}  // namespace

Object* allocate(ClassObject* cls) {
  const size_t size = cls->layout.size + cls->extraBytes;
  void* memory = std::calloc(1, size);
  if (memory == nullptr) throw std::bad_alloc();
  auto* object = new (memory) Object;
  object->isa = cls;
  ++cls->liveInstances;
  ++live;
  return object;
}

void abandon(Object* memory) {
  --memory->isa->liveInstances;
  --live;
  std::free(memory);
}

NSObject* retainObject(NSObject* object) {
  auto* head = reinterpret_cast<Object*>(object);
  if (head != nullptr && head->references >= 0) ++head->references;
  return object;
}

void releaseObject(NSObject* object) {
  auto* head = reinterpret_cast<Object*>(object);
  if (head == nullptr || head->references < 0 || --head->references > 0) return;
  static const Message<void()> dealloc{"dealloc"};
  dealloc(object);
}

NSObject* autoreleaseObject(NSObject* object) {
  if (object != nullptr) pooled().push_back(object);
  return object;
}

NSObject* makeImmortal(NSObject* object) {
  auto* head = reinterpret_cast<Object*>(object);
  if (head->references >= 0) {
    head->references = -1;
    --head->isa->liveInstances;
    --live;
  }
  return object;
}

bool isKindOf(NSObject* object, const ClassObject* cls) {
  if (object == nullptr) return false;
  ClassObject* own = reinterpret_cast<Object*>(object)->isa;
  if (!own->isLinked && !own->isMetaclass) link(own);
  for (const ClassObject* step = own; step != nullptr; step = step->superclass) {
    if (step == cls) return true;
  }
  return false;
}

long liveObjects() { return live; }

long liveObjectsAfterDrain() {
  drainTo(0);
  return live;
}

std::string describeLiveObjects() {
  std::map<std::string, long> counts;
  for (const ClassObject* cls : allClasses()) {
    if (cls->liveInstances != 0) counts[cls->name] = cls->liveInstances;
  }
  std::string text;
  for (const auto& [name, count] : counts) text += name + " " + std::to_string(count) + "\n";
  return text;
}

}  // namespace standin

using namespace standin;

extern "C" {

void* objc_autoreleasePoolPush() { return reinterpret_cast<void*>(pooled().size() + 1); }

void objc_autoreleasePoolPop(void* pool) { drainTo(reinterpret_cast<size_t>(pool) - 1); }
}
