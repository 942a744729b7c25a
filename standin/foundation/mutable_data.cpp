// NSMutableData: its messages.
#include "standin/foundation/checks.hpp"
#include "standin/foundation/data_classes.hpp"

namespace standin::foundation {
namespace {

const ClassDefinition& concreteMutableDataClass() {
  static const ClassDefinition definition = defineClass<Data>("NSConcreteMutableData", "NSMutableData");
  return definition;
}

NSData* dataWithCapacity(Class self, NSUInteger) { return static_cast<NSData*>(adopt(NSObject::alloc(self)).autorelease()); }
NSData* dataWithLength(Class self, NSUInteger length) {
  const Owned<NSObject> data = adopt(NSObject::alloc(self));
  stateOf<Data>(data).bytes.resize(length);
  return static_cast<NSData*>(retain(data.get()).autorelease());
}

void* mutableBytes(Data& self) { return self.bytes.data(); }

void appendBytes(NSObject* self, const void* bytes, NSUInteger count) {
  if (count == 0) return;
  requireArgument(self, "appendBytes:length:", bytes);
  stateOf<Data>(self).bytes.append(static_cast<const char*>(bytes), count);
}

void appendData(NSObject* self, NSData* other) {
  requireArgument(self, "appendData:", other);
  stateOf<Data>(self).bytes.append(stateOf<Data>(other).bytes);
}

void setData(NSObject* self, NSData* other) {
  requireArgument(self, "setData:", other);
  stateOf<Data>(self).bytes = stateOf<Data>(other).bytes;
}

// New bytes are zero.
void setLength(Data& self, NSUInteger length) { self.bytes.resize(length); }
void increaseLength(Data& self, NSUInteger by) { self.bytes.resize(self.bytes.size() + by); }

void replaceBytes(NSObject* self, NSRange range, const void* bytes, NSUInteger count) {
  std::string& content = stateOf<Data>(self).bytes;
  requireRange(self, "replaceBytesInRange:withBytes:length:", range, "data", content.size());
  if (count != 0) requireArgument(self, "replaceBytesInRange:withBytes:length:", bytes);
  content.replace(range.location, range.length, std::string(static_cast<const char*>(bytes), count));
}

}  // namespace

const ClassDefinition& mutableDataClass() {
  static const ClassDefinition definition = defineClass<Data>("NSMutableData", "NSData")
                                                .classMethod<dataWithCapacity>("dataWithCapacity:")
                                                .classMethod<dataWithLength>("dataWithLength:")
                                                .method<mutableBytes>("mutableBytes")
                                                .method<appendBytes>("appendBytes:length:")
                                                .method<appendData>("appendData:")
                                                .method<setData>("setData:")
                                                .method<setLength>("setLength:")
                                                .method<increaseLength>("increaseLengthBy:")
                                                .method<replaceBytes>("replaceBytesInRange:withBytes:length:")
                                                .allocatesAs(concreteMutableDataClass());
  return definition;
}

Owned<NSData> newMutableData(std::string bytes) {
  return create<Data, NSData>(concreteMutableDataClass(), std::move(bytes));
}

namespace {

// The class must be known by name before anything asks for it.
[[maybe_unused]] const ClassDefinition& registered = mutableDataClass();

}  // namespace
}  // namespace standin::foundation
