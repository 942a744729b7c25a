// The records of the sibling classes.
#include "host/siblings/class_builder.hpp"

#include <deque>

#include "host/siblings/support.hpp"

namespace siblings {
namespace {

void releaseWrapped(HostObject* self) {
  guarded([self] { return empty(self), true; });
}

HostString* description(HostObject* self, int64_t) {
  return guarded([self] { return hostString(NSObject::description(wrapped(self))); });
}

}  // namespace

ClassBuilder::ClassBuilder(const char* name, const char* superclass) {
  record_.name = name;
  record_.superclass = superclass;
}

ClassBuilder& ClassBuilder::data(size_t bytes, Hook constructor, Hook destructor) {
  record_.instanceSize = (bytes + 15) / 16 * 16;
  record_.constructor = constructor;
  record_.destructor = destructor;
  return *this;
}

ClassBuilder& ClassBuilder::wrapper() {
  return data(sizeof(NSObject*), nullptr, releaseWrapped)
      .field("Handle", "Integer", 0)
      .property("description", "String", description);
}

ClassBuilder& ClassBuilder::field(const char* name, const char* type, int64_t offset) {
  addProperty(name, type, host::directField, host::directField);
  properties_.back().parameter = offset;
  return *this;
}

ClassBuilder& ClassBuilder::constant(const char* declaration) {
  constants_.push_back({declaration, {}});
  return *this;
}

ClassBuilder& ClassBuilder::addProperty(const char* name, const char* type, void* getter, void* setter) {
  host::PropertyRecord& added = properties_.emplace_back();
  added.name = name;
  added.type = type;
  added.getter = getter;
  added.setter = setter;
  return *this;
}

void ClassBuilder::addMethod(std::vector<host::MethodRecord>& list, const char* declaration, void* function) {
  host::MethodRecord& added = list.emplace_back();
  added.declaration = declaration;
  added.function = function;
}

void ClassBuilder::registerWithHost(const ClassBuilder& builder) {
  static auto& kept = *new std::deque<ClassBuilder>;
  ClassBuilder& final = kept.emplace_back(builder);
  host::ClassRecord& record = final.record_;
  record.properties = final.properties_.data();
  record.propertyCount = final.properties_.size();
  record.methods = final.methods_.data();
  record.methodCount = final.methods_.size();
  record.constants = final.constants_.data();
  record.constantCount = final.constants_.size();
  record.sharedMethods = final.sharedMethods_.data();
  record.sharedMethodCount = final.sharedMethods_.size();
  registerClass(&record);
}

}  // namespace siblings
