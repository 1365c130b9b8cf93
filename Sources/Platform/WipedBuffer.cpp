#include "Platform/WipedBuffer.hpp"

#include <sodium/utils.h>

namespace Rellinor {

WipedBuffer::~WipedBuffer() {
    const std::span<char> bytes = _memory.bytes();
    if (!bytes.empty()) {
        ::sodium_memzero(bytes.data(), bytes.size());
    }
}

} // namespace Rellinor
