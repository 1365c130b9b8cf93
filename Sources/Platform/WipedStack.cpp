#include "Platform/WipedStack.hpp"

#include <cstddef>

#include <sodium/utils.h>

#include "Platform/WipedRegisters.hpp"

namespace Rellinor {

void wipeStack() noexcept {
    wipeRegisters(); // first: the call of another library may write them to the stack
    ::sodium_stackzero(std::size_t{16} * 1024);
}

} // namespace Rellinor
