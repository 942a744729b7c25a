// NSException, and raising it from C++.
#include "standin/runtime/exception.hpp"

#include "standin/foundation/exception_names.hpp"
#include "standin/foundation/string_classes.hpp"

namespace standin {
namespace foundation {
namespace {

struct Exception : Object {
  Owned<NSString> name;
  Owned<NSString> reason;
  Owned<NSDictionary> userInfo;
};

NSException* initWithName(NSException* self, NSString* name, NSString* reason, NSDictionary* userInfo) {
  auto& state = stateOf<Exception>(self);
  state.name = adopt(static_cast<NSString*>(NSObject::copy(name)));
  state.reason = adopt(static_cast<NSString*>(NSObject::copy(reason)));
  state.userInfo = retain(userInfo);
  return self;
}

NSException* exceptionWithName(Class self, NSString* name, NSString* reason, NSDictionary* userInfo) {
  auto* const made = static_cast<NSException*>(NSObject::alloc(self));
  return adopt(initWithName(made, name, reason, userInfo)).autorelease();
}

NSString* name(Exception& self) { return self.name; }
NSString* reason(Exception& self) { return self.reason; }
NSDictionary* userInfo(Exception& self) { return self.userInfo; }
NSString* description(Exception& self) { return self.reason ? self.reason : self.name; }
void raiseException(NSException* self) { objc_exception_throw(self); }
NSObject* copyWithZone(NSObject* self, void*) { return retainObject(self); }

BOOL isEqual(Exception& self, NSObject* other) {
  if (object_getClass(platformObject(self)) != object_getClass(other)) return NO;
  const auto& exception = stateOf<Exception>(other);
  const auto same = [](NSObject* left, NSObject* right) { return left == right || NSObject::isEqual(left, right) != NO; };
  return same(self.name, exception.name) && same(self.reason, exception.reason) && same(self.userInfo, exception.userInfo)
             ? YES
             : NO;
}
NSUInteger hash(Exception& self) { return self.name ? hashOf(self.name) : 0; }

const ClassDefinition exceptionClass = defineClass<Exception>("NSException", "NSObject")
                                           .classMethod<exceptionWithName>("exceptionWithName:reason:userInfo:")
                                           .method<initWithName>("initWithName:reason:userInfo:")
                                           .method<name>("name")
                                           .method<reason>("reason")
                                           .method<userInfo>("userInfo")
                                           .method<description>("description")
                                           .method<raiseException>("raise")
                                           .method<copyWithZone>("copyWithZone:")
                                           .method<isEqual>("isEqual:")
                                           .method<hash>("hash");

}  // namespace
}  // namespace foundation

void raise(NSString* name, std::string_view reason) {
  using namespace foundation;
  const Owned<NSException> exception = create<Exception, NSException>(exceptionClass);
  auto& state = stateOf<Exception>(exception);
  state.name = retain(name);
  state.reason = newString(reason);
  objc_exception_throw(exception);
}

void raiseOutOfMemory() { raise(NSMallocException, "There is not enough memory."); }

}  // namespace standin

extern "C" {

#define EXCEPTION_NAME(name) NSString* const name = standin::foundation::constantString(#name)
EXCEPTION_NAME(NSInvalidArgumentException);
EXCEPTION_NAME(NSRangeException);
EXCEPTION_NAME(NSGenericException);
EXCEPTION_NAME(NSInternalInconsistencyException);
EXCEPTION_NAME(NSMallocException);
EXCEPTION_NAME(NSCharacterConversionException);
#undef EXCEPTION_NAME
}
