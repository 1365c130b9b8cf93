#include "Tests/Memory/Registers.hpp"

#include <array>
#include <cstddef>

namespace Rellinor::Tests {

namespace {

/// More than any processor writes.
struct alignas(64) Registers {
    std::array<std::byte, std::size_t{16} * 1024> bytes;
};

Registers registers{}; // NOLINT(*-avoid-non-const-global-variables)

} // namespace

void keepRegisters() noexcept {
#if defined(__x86_64__)
    asm volatile("xsave64 %0" : "+m"(registers) : "a"(-1), "d"(-1));
#elif defined(__aarch64__)
    void* end = &registers;
    asm volatile(".irp i, 0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\n"
                 "str q\\i, [%0], #16\n"
                 ".endr\n"
                 ".irp i, 16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31\n"
                 "str q\\i, [%0], #16\n"
                 ".endr"
                 : "+r"(end), "+m"(registers));
#endif
}

} // namespace Rellinor::Tests
