#include "Platform/WipedStack.hpp"

#include <sodium/utils.h>

namespace Rellinor {

void wipeStack(std::size_t size) noexcept {
    ::sodium_stackzero(size);
}

} // namespace Rellinor
