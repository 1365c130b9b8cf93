#include "Platform/WipedBuffer.hpp"

#include <new>

#include <sodium/utils.h>

namespace Rellinor {

WipedBuffer::WipedBuffer(std::size_t size)
    : _bytes(static_cast<char*>(::operator new(size))), _size(size) {}

WipedBuffer::~WipedBuffer() {
    if (_bytes != nullptr) {
        ::sodium_memzero(_bytes, _size);
        ::operator delete(_bytes, _size);
    }
}

} // namespace Rellinor
