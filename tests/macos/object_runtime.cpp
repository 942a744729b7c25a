// Message sending in assembly, and exceptions on top of the stand-in's.
#include "tests/macos/object_runtime.hpp"

#include <cxxabi.h>

#include "platform/owned.h"

// Both keep every register that can carry an argument while the method is looked up, the count of vector registers in al
// included, and jump to it. A nil receiver answers zero in all registers that results come back in. They differ in where the
// receiver and the selector are.
asm(R"(
.text
.macro each_argument_register action
  \action rdi, 0
  \action rsi, 8
  \action rdx, 16
  \action rcx, 24
  \action r8, 32
  \action r9, 40
  \action rax, 48
.endm
.macro each_vector_register action
  \action xmm0, 64
  \action xmm1, 80
  \action xmm2, 96
  \action xmm3, 112
  \action xmm4, 128
  \action xmm5, 144
  \action xmm6, 160
  \action xmm7, 176
.endm
.macro keep register, place
  mov %\register, \place(%rsp)
.endm
.macro give_back register, place
  mov \place(%rsp), %\register
.endm
.macro keep_vector register, place
  movaps %\register, \place(%rsp)
.endm
.macro give_back_vector register, place
  movaps \place(%rsp), %\register
.endm

.macro message_send name, receiver, selector
.globl \name
.type \name, @function
\name:
.cfi_startproc
  test %\receiver, %\receiver
  jz 1f
  push %rbp
.cfi_def_cfa_offset 16
.cfi_offset %rbp, -16
  mov %rsp, %rbp
.cfi_def_cfa_register %rbp
  sub $192, %rsp
  each_argument_register keep
  each_vector_register keep_vector
  mov %\receiver, %rdi
  mov %\selector, %rsi
  call objc_msg_lookup@PLT
  mov %rax, %r11
  each_argument_register give_back
  each_vector_register give_back_vector
  leave
.cfi_def_cfa %rsp, 8
.cfi_restore %rbp
  jmp *%r11
1:
  xor %eax, %eax
  xor %edx, %edx
  pxor %xmm0, %xmm0
  pxor %xmm1, %xmm1
  ret
.cfi_endproc
.size \name, .-\name
.endm

message_send macos_objc_msgSend, rdi, rsi
message_send macos_objc_msgSend_stret, rsi, rdx
)");

namespace macos {
namespace {

// The type of what the stand-in throws, which only a catch can tell.
const std::type_info& thrownType() {
  static const std::type_info& type = [&]() -> const std::type_info& {
    try {
      objc_exception_throw(nullptr);
    } catch (...) {
      return *abi::__cxa_current_exception_type();
    }
  }();
  return type;
}

// The unwinder asks the type in the catch whether it takes what was thrown, which is how macOS matches classes as well.
class ExceptionClassType : public std::type_info {
 public:
  ExceptionClassType() : std::type_info("NSException") {}
  bool __do_catch(const std::type_info* thrown, void** object, unsigned) const override {
    return *thrown == thrownType() && NSObject::isKindOfClass(*static_cast<NSObject**>(*object), classOf<NSException>());
  }
};

}  // namespace

const std::type_info& exceptionClassType() {
  static const ExceptionClassType type;
  return type;
}

}  // namespace macos

extern "C" {

NSObject* macos_objc_begin_catch(void* exception) { return *static_cast<NSObject**>(abi::__cxa_begin_catch(exception)); }
void macos_objc_end_catch() { abi::__cxa_end_catch(); }
NSObject* macos_objc_retainAutorelease(NSObject* object) { return retain(object).autorelease(); }
}
