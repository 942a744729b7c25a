// The platform's object runtime as the library sees it: types, C functions, and the typed message.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

using BOOL = signed char;
using NSInteger = long;
using NSUInteger = unsigned long;
using CGFloat = double;
using NSTimeInterval = double;
using unichar = char16_t;

inline constexpr BOOL YES = 1;
inline constexpr BOOL NO = 0;
inline constexpr NSUInteger NSNotFound = 0x7FFFFFFFFFFFFFFF;

struct NSRange {
  NSUInteger location, length;
};
struct NSPoint {
  CGFloat x, y;
};
struct NSSize {
  CGFloat width, height;
};
struct NSRect {
  NSPoint origin;
  NSSize size;
};

struct NSObject;
struct NSString;
struct NSMethodSignature;
struct objc_class;
struct objc_selector;
struct objc_ivar;

using id = NSObject*;
using Class = objc_class*;
using SEL = objc_selector*;
using Ivar = objc_ivar*;
using IMP = void (*)();

extern "C" {
SEL sel_registerName(const char* name);
const char* sel_getName(SEL selector);
Class objc_getClass(const char* name);
Class object_getClass(id object);
const char* object_getClassName(id object);
const char* class_getName(Class cls);
Class class_getSuperclass(Class cls);
BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
// Gives the class the method in place of its own; answers that one, nil when it had none.
IMP class_replaceMethod(Class cls, SEL selector, IMP implementation, const char* types);
// The implementation that instances of the class answer the selector with: the way to a superclass's method.
IMP class_getMethodImplementation(Class cls, SEL selector);
BOOL class_addIvar(Class cls, const char* name, size_t size, uint8_t alignment, const char* types);
Ivar class_getInstanceVariable(Class cls, const char* name);
ptrdiff_t ivar_getOffset(Ivar ivar);
Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes);
void objc_registerClassPair(Class cls);
void* objc_autoreleasePoolPush();
void objc_autoreleasePoolPop(void* pool);
[[noreturn]] void objc_exception_throw(id exception);
#if defined(__APPLE__)
void objc_msgSend();
void objc_msgSend_stret();
#else
// The implementation that answers the selector. Raises NSInvalidArgumentException when there is none; never nil.
IMP objc_msg_lookup(id receiver, SEL selector);
#endif
}

template <class Signature>
class Message;

// One message of the platform: `Result` and `Arguments` as its method declares them. The selector is registered by the
// first send. A nil receiver answers with the empty value of the result type.
template <class Result, class... Arguments>
class Message<Result(Arguments...)> {
 public:
  constexpr explicit Message(const char* name) : name_(name) {}

  Result operator()(NSObject* receiver, Arguments... arguments) const {
    if (receiver == nullptr) return Result();
    const SEL selector = this->selector();
    return reinterpret_cast<Result (*)(NSObject*, SEL, Arguments...)>(implementation(receiver, selector))(receiver, selector,
                                                                                                          arguments...);
  }

  SEL selector() const {
    if (selector_ == nullptr) selector_ = sel_registerName(name_);
    return selector_;
  }
  constexpr const char* name() const { return name_; }

 private:
#if defined(__APPLE__)
  // x86-64: a result of more than 16 bytes comes back through memory, and has a send function of its own.
  static constexpr bool throughMemory() {
    if constexpr (std::is_void_v<Result>) {
      return false;
    } else {
      return sizeof(Result) > 16;
    }
  }
  static IMP implementation(NSObject*, SEL) { return throughMemory() ? &objc_msgSend_stret : &objc_msgSend; }
#else
  static IMP implementation(NSObject* receiver, SEL selector) { return objc_msg_lookup(receiver, selector); }
#endif

  const char* name_;
  mutable SEL selector_ = nullptr;
};

// Platform objects are pointers to these structs, which are never instantiated: each lists the messages of its class.
struct NSObject {
  static constexpr char className_[] = "NSObject";
  static inline constinit Message<NSObject*()> alloc{"alloc"};
  static inline constinit Message<NSObject*()> init{"init"};
  static inline constinit Message<NSObject*()> retain{"retain"};
  static inline constinit Message<void()> release{"release"};
  static inline constinit Message<NSObject*()> autorelease{"autorelease"};
  static inline constinit Message<NSUInteger()> retainCount{"retainCount"};
  static inline constinit Message<Class()> class_{"class"};
  static inline constinit Message<NSString*()> className{"className"};
  static inline constinit Message<NSString*()> description{"description"};
  static inline constinit Message<NSUInteger()> hash{"hash"};
  static inline constinit Message<BOOL(NSObject*)> isEqual{"isEqual:"};
  static inline constinit Message<BOOL(Class)> isKindOfClass{"isKindOfClass:"};
  static inline constinit Message<BOOL(SEL)> respondsToSelector{"respondsToSelector:"};
  static inline constinit Message<NSObject*()> copy{"copy"};
  static inline constinit Message<NSObject*()> mutableCopy{"mutableCopy"};
  static inline constinit Message<NSObject*(void*)> copyWithZone{"copyWithZone:"};
  static inline constinit Message<NSObject*(void*)> mutableCopyWithZone{"mutableCopyWithZone:"};
};

// A class is an object, so that class messages have it as their receiver.
struct objc_class : NSObject {};

// The class object of a platform class, looked up by name once a class and kept, nil included.
template <class Type>
Class classOf() {
  static constinit Class found = nullptr;
  if (found == nullptr) found = objc_getClass(Type::className_);
  return found;
}

// A new, uninitialised instance: the receiver for one of the class's init messages.
template <class Type>
Type* alloc() {
  return static_cast<Type*>(NSObject::alloc(classOf<Type>()));
}
