// The making and the end of host objects.
#include "host/runtime/object.hpp"

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "host/runtime/builtin.hpp"
#include "host/runtime/class.hpp"

namespace host {
namespace {

// Keeps the count of an object that is being destroyed above zero, whatever its destructors lock and unlock.
constexpr int64_t dyingReferences = int64_t{1} << 40;

constexpr size_t roundedUp(size_t size) { return (size + 15) / 16 * 16; }

// Objects that wait for their end. Destroying one drops what it holds, which then waits too, so that however deep values
// nest, the calls do not.
class DyingObjects {
 public:
  void add(HostObject* object) {
    object->next = nullptr;
    (last_ != nullptr ? last_->next : first_) = object;
    last_ = object;
  }
  // Nil when none waits.
  HostObject* takeFirst() {
    HostObject* const taken = first_;
    if (taken != nullptr) first_ = taken->next;
    if (first_ == nullptr) last_ = nullptr;
    return taken;
  }

 private:
  HostObject* first_ = nullptr;
  HostObject* last_ = nullptr;
};

// True for the first of its kind, false for any made while that one lives.
class OneAtATime {
 public:
  OneAtATime() = default;
  OneAtATime(const OneAtATime&) = delete;
  OneAtATime& operator=(const OneAtATime&) = delete;
  ~OneAtATime() {
    if (first_) taken_ = false;
  }
  explicit operator bool() const { return first_; }

 private:
  static inline constinit bool taken_ = false;
  const bool first_ = !std::exchange(taken_, true);
};

LiveList<HostObject>& liveObjects() {
  static LiveList<HostObject> list;
  return list;
}

}  // namespace

const LiveList<HostObject>& HostObject::live() { return liveObjects(); }

HostOwned<HostObject> HostObject::make(const HostClass& type) {
  static uint64_t serial = 0;
  const BuiltinClass* stateOwner = type.stateOwner();
  const size_t stateOffset = sizeof(HostObject) + roundedUp(type.dataSize());
  const size_t size = stateOffset + (stateOwner != nullptr ? stateOwner->state.size : 0);
  void* place = std::calloc(1, size);
  if (place == nullptr) throw std::bad_alloc();
  auto* made = new (place) HostObject{&type, 1, nullptr, nullptr, nullptr, ++serial};
  if (stateOwner != nullptr) {
    made->state = static_cast<std::byte*>(place) + stateOffset;
    stateOwner->state.construct(made->state);
  }
  liveObjects().add(made);
  HostOwned<HostObject> owned = adopt(made);
  type.runConstructors(made);
  return owned;
}

void HostObject::destroy() {
  static constinit DyingObjects dying;
  references = dyingReferences;
  liveObjects().remove(this);
  dying.add(this);
  const OneAtATime turn;
  if (!turn) return;
  while (HostObject* const object = dying.takeFirst()) object->finish();
}

void HostObject::finish() {
  type->runDestructors(this);
  if (state != nullptr) type->stateOwner()->state.destroy(state);
  std::free(this);
}

bool isA(const HostObject* object, const HostClass* type) {
  return object != nullptr && type != nullptr && object->type->isKindOf(type);
}

std::string describe(const HostObject& object) {
  return object.type->name() + " #" + std::to_string(object.serial) + ", " + std::to_string(object.references) +
         (object.references == 1 ? " reference" : " references");
}

}  // namespace host
