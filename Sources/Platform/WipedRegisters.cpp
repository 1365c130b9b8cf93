#include "Platform/WipedRegisters.hpp"

namespace Rellinor {

// The assembler takes every instruction, whatever the compiler may use by itself. It is not
// inlined, so that no caller has anything in these registers.
#if defined(__x86_64__)

void wipeRegisters() noexcept {
    if (__builtin_cpu_supports("avx512f")) {
        asm volatile(".irp i, 16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31\n"
                     "vpxord %zmm\\i, %zmm\\i, %zmm\\i\n"
                     ".endr\n"
                     ".irp i, 0,1,2,3,4,5,6,7\n"
                     "kxorw %k\\i, %k\\i, %k\\i\n" // with the bits above the lowest sixteen
                     ".endr");
    }
    if (__builtin_cpu_supports("avx")) {
        asm volatile("vzeroall"); // the first sixteen, as wide as they are
    } else {
        asm volatile(".irp i, 0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\n"
                     "pxor %xmm\\i, %xmm\\i\n"
                     ".endr");
    }
    asm volatile(".irp i, rax,rcx,rdx,rsi,rdi,r8,r9,r10,r11\n"
                 "xorq %%\\i, %%\\i\n"
                 ".endr" ::
                     : "rax", "rcx", "rdx", "rsi", "rdi", "r8", "r9", "r10", "r11", "cc");
}

#elif defined(__aarch64__)

void wipeRegisters() noexcept {
    // To write a part of a vector register clears the rest of it, beyond 128 bits too. The lower
    // halves of v8 to v15 are the caller's.
    asm volatile(".irp i, 0,1,2,3,4,5,6,7,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31\n"
                 "fmov d\\i, xzr\n"
                 ".endr\n"
                 ".irp i, 8,9,10,11,12,13,14,15\n"
                 "fmov d\\i, d\\i\n"
                 ".endr\n"
                 ".irp i, 0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\n"
                 "mov x\\i, xzr\n"
                 ".endr" ::
                     : "x0", "x1", "x2", "x3", "x4", "x5", "x6", "x7", "x8", "x9", "x10", "x11",
                       "x12", "x13", "x14", "x15");
}

#else

void wipeRegisters() noexcept {}

#endif

} // namespace Rellinor
