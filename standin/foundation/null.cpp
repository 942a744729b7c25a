// NSNull: one object, which stands for no value in collections.
#include "standin/foundation/immortal.hpp"
#include "standin/foundation/string.hpp"

namespace standin::foundation {
namespace {

Object shared;

NSObject* null(Class) { return platformObject(shared); }
NSObject* copy(NSObject* self, void*) { return self; }
NSString* description(NSObject*) { return constantString("<null>"); }

const ClassDefinition nullClass = defineClass("NSNull", "NSObject")
                                      .classMethod<null>("null")
                                      .classMethod<null>("alloc")
                                      .method<copy>("copyWithZone:")
                                      .method<description>("description");
[[maybe_unused]] NSObject* const placed = makeImmortal(shared, nullClass);

}  // namespace
}  // namespace standin::foundation
