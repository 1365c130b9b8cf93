#include "Platform/WipedBuffer.hpp"

#include <sodium/utils.h>

#include "Platform/LargeMemory.hpp"

namespace Rellinor {

WipedBuffer::WipedBuffer(std::size_t size)
    : _bytes(static_cast<char*>(allocateMemory(size))), _size(size) {}

WipedBuffer::~WipedBuffer() {
    if (_bytes != nullptr) {
        ::sodium_memzero(_bytes, _size);
        releaseMemory(_bytes, _size);
    }
}

} // namespace Rellinor
