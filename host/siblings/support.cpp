// Strings, wrappers, registry.
#include "host/siblings/support.hpp"

#include <cstring>

namespace siblings {
namespace {

Resolver resolver = nullptr;

}  // namespace

void setResolver(Resolver given) { resolver = given; }
void* findService(const char* name) { return resolver != nullptr ? resolver(name) : nullptr; }

HostString* hostString(NSString* string) {
  const char* text = NSString::UTF8String(string);
  const size_t length = text != nullptr ? std::strlen(text) : 0;
  return length > 0 ? buildString(text, static_cast<int32_t>(length), kCFStringEncodingUTF8) : nullptr;
}

NSString* platformString(HostString* string) {
  NSString* converted = string != nullptr ? adopt(copyPlatformString(string, false)).autorelease() : nullptr;
  return converted != nullptr ? converted : NSString::string(classOf<NSString>());
}

CFMutableDictionaryRef registry() {
  static const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(kCFAllocatorDefault, 0, nullptr, nullptr);
  return dictionary;
}

HostObject* wrap(NSObject* object, const char* className) {
  if (object == nullptr) return nullptr;
  const void* known = CFDictionaryGetValue(registry(), object);
  if (known != nullptr) {
    auto* wrapper = static_cast<HostObject*>(const_cast<void*>(known));
    lockObject(wrapper);
    return wrapper;
  }
  HostObject* made = newInstance(className);
  if (made != nullptr) fill(made, object);
  return made;
}

void fill(HostObject* wrapper, NSObject* object) {
  wrapper->word<NSObject*>() = retain(object).detach();
  CFDictionarySetValue(registry(), object, wrapper);
}

void empty(HostObject* wrapper) {
  NSObject* object = std::exchange(wrapper->word<NSObject*>(), nullptr);
  if (object == nullptr) return;
  // Another wrapper of the same object may be the registered one.
  if (CFDictionaryGetValue(registry(), object) == wrapper) CFDictionaryRemoveValue(registry(), object);
  const Owned<NSObject> released = adopt(object);
}

void raise(NSException* exception) {
  HostObject* object = exceptionObject(exception);
  if (object == nullptr) return;
  raiseException(object);
  unlockObject(object);
}

void raise(const char* className, const char* message) {
  HostObject* object = newInstance(className);
  if (object == nullptr) return;
  HostString* text = buildString(message, static_cast<int32_t>(std::strlen(message)), kCFStringEncodingUTF8);
  setStringProperty(object, "Message", text);
  unlockString(text);
  raiseException(object);
  unlockObject(object);
}

}  // namespace siblings
